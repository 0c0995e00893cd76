# Reads what a GoogleTest program printed. First line out: passed, failed, skipped. Then what the failures said.
# A program that ended before its own closing line crashed or hung, and that is a failure of the test it was in.
# Given: the program, its exit status, its ending in words, and the file that it printed to.

function indented(text) {
    gsub(/\n/, "\n    ", text)
    sub(/ +$/, "", text)
    return "    " text
}

function fail(name, text) {
    failed++
    if (failed <= 20)
        report = report "\n  FAILED " name "\n" indented(text)
    else if (failed == 21)
        report = report "\n  More failed; " file " has everything.\n"
}

function keep(line) {
    if (++kept <= 60)
        said = said line "\n"
    else if (kept == 61)
        said = said "... (" file " has the rest)\n"
}

function settle() {
    running = said = ""
    kept = listing = 0
}

{ sub(/\r$/, "") }

# A test may leave its last line open, so the marks are looked for anywhere in the line.
/\[ RUN      \] / {
    settle()
    running = substr($0, index($0, "[ RUN      ] ") + 13)
    next
}

running != "" && /\[(       OK|  FAILED |  SKIPPED) \] .* \([0-9]+ ms\)$/ {
    if (/\[       OK \]/)
        passed++
    else if (/\[  SKIPPED \]/)
        skipped++
    else
        fail(running, said)
    settle()
    next
}

/^\[==========\] [0-9]+ tests? from [0-9]+ test suites? ran\./ { finished = 1 }

# Of a crash, Wine's debugger goes on to list every module and thread; the backtrace above that is what helps.
/^Modules:$/ { listing = 1 }

!listing { keep($0) }

END {
    if (!finished) {
        if (running != "")
            fail(running, said program " " ending " in this test; the tests after it did not run\n")
        else
            fail(program, said "it " ending "\n")
    } else if (status != 0 && failed == 0)
        fail(program, said "no single test failed, but the program ended with status " status "\n")
    printf "%d %d %d\n%s", passed, failed, skipped, report
}
