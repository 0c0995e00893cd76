# Reads what the hostile tests printed, over all their runs. First line out: how much was tried, in how many seconds,
# with how many findings; then the findings. A run that ended early is one, whatever it said.

function keep(text) {
    if (++findings <= 10)
        found = found "\n" text
}

{ sub(/\r$/, "") }

# "    FuzzBags: 1600 inputs of seed 1 in 8.1 s, 0 findings", and those of a run that an input ended.
/^    [A-Za-z]+: [0-9]+ inputs of seed / {
    tried += $2
    seconds += $8
}
/^    [0-9]+ cases of [0-9]+/ {
    tried += $1
    of += $4
}
# What the run of one suite took, for those that do not say it.
/^\[----------\] [0-9]+ tests? from .* \([0-9]+ ms total\)$/ {
    if (of)
        seconds += substr($(NF - 2), 2) / 1000
}

/^(CRASH|HANG|ABORT) / {
    ended = "  " substr($0, 1, 400)
    next
}
/^in the module at / { next }
ended != "" && /^  again: / {
    split($0, part, /KIV_ATTACK_INPUT=|[- ]/)
    ended = ended "\n  " $0
    if (match($0, /INPUT=[0-9]+-[0-9]+/)) {
        split(substr($0, RSTART, RLENGTH), input, "-")
        tried += input[2]
    }
    next
}
/: Failure$/ {
    failing = 1
    text = ""
    next
}
failing && (/^$/ || /^\[/) {
    failing = 0
    keep("  WRONG" text)
}
failing { text = text (text == "" ? "" : "\n   ") " " substr($0, 1, 400) }

/^ended with status [0-9]+$/ {
    if ($4 != 0 && ended != "")
        keep(ended)
    else if ($4 != 0 && findings == before)
        keep("  ENDED early with status " $4 "; " file " has what it said")
    before = findings
    ended = ""
    runs++
}

END {
    if (runs == 0)
        keep("  it did not run; " file)
    if (findings > 10)
        found = found "\n  More was found; " file " has everything."
    print (of && of != tried ? tried "/" of : tried + 0), int(seconds), findings + 0
    printf "%s", substr(found, 2)
}
