# shellcheck shell=bash
# The lints. Each find_... looks at the tree in the current folder and prints what it finds, one line each.

# Which folders a file may include from; the first row that fits it counts. The order of the library's own rows
# is the order of its layers. Hosts, tests and benchmarks stand outside: they see it only through COM, but may
# use the automation building blocks. tests/native, tests/module and the benchmarks of rules look inside,
# tests/pictures into what reads text pictures.
LAYERS="\
runtime/core/         runtime/core/
runtime/com/          runtime/(core|com)/
runtime/access/       runtime/(core|com|access)/
runtime/drawing/      runtime/(core|com|drawing)/
runtime/constituents/ runtime/(core|com|access|drawing|constituents)/
runtime/control/      runtime/(core|com|access|drawing|constituents|control)/
runtime/form/         runtime/
framework/subclass/   runtime/|framework/subclass/
controls/             runtime/|framework/subclass/|resources/|controls/
framework/library/    runtime/|framework/|controls/
resources/      resources/
tools/          runtime/core/|resources/|tools/
tests/pictures/ tools/pictures/|tests/pictures/
tests/native/   runtime/core/|controls/|host/|resources/|tools/|tests/(native|pictures)/
fuzz/           runtime/core/|controls/|host/|fuzz/
tests/module/   runtime/|framework/subclass/|host/|tests/(support|module)/
host/           runtime/(core|com|access)/|host/
packaging/      packaging/
tests/          runtime/(core|com)/|host/|tests/
bench/Rules     runtime/core/|controls/|bench/
bench/          runtime/(core|com)/|host/|tests/support/|bench/"

WINDOWS_HEADERS='windows|win(def|user|gdi|base|nls|nt|error|reg)|wtypes|guiddef|initguid|unknwn|objbase|objidl'
WINDOWS_HEADERS+='|ole2|ole|oleauto|oleidl|olectl|oaidl|ocidl|comdef|comcat|commctrl|commdlg|shlwapi|shlobj|richedit'
WINDOWS_HEADERS+='|tchar|sql|sqlext|wrl/[a-z/]*|KivControls'

all_files() { find . \( -path ./build -o -path ./.git \) -prune -o -type f -printf '%P\n' | LC_ALL=C sort; }

# Not those that a program reads as bytes.
text_files() { all_files | xargs -r -d '\n' grep -Il ''; }

cpp_sources() { all_files | grep -E '\.(cpp|h)$'; }

code_files() { all_files | grep -E '\.(cpp|h|idl|rc|cmake|sh|awk)$|(^|/)(CMakeLists\.txt|kiv|run)$'; }

# lint FIND: fails if it finds anything; a program that complains of something else counts as well.
lint() {
    local found
    found=$("$1" 2>&1) || true
    [[ -z $found ]] || { printf '%s\n' "$found" && return 1; }
}

# The first place in each file tells enough.
find_misformatted() {
    cpp_sources | xargs -r -d '\n' -P "$(nproc)" -n 20 clang-format-14 --dry-run 2>&1 |
        sed -nE 's/^([^:]+:[0-9]+):[0-9]+: (warning|error): code should be clang-formatted.*/\1: not laid out as .clang-format says/p' |
        awk -F: '!seen[$1]++'
}

find_wrong_includes() {
    local places file line header
    # shellcheck disable=SC2016 # the dollars are awk's
    places='
        NR == FNR { from[++rows] = $1; may[rows] = $2; next }
        {
            split($0, part, ":")
            header = $0
            sub(/^[^"]*"/, "", header)
            sub(/".*/, "", header)
            for (row = 1; row <= rows && part[1] !~ "^" from[row]; row++);
            if (row > rows)
                print part[1] ":" part[2] ": the layers in tools/kiv/lints.sh have no row for this folder"
            else if (header !~ "^(" may[row] ")")
                print part[1] ":" part[2] ": must not include " header " (" from[row] " sees only " may[row] ")"
        }'
    includes | awk "$places" <(printf '%s\n' "$LAYERS") -
    includes | sed -E 's/^([^:]*):([0-9]+):[^"]*"([^"]*)".*/\1 \2 \3/' | while read -r file line header; do
        [[ -e $header ]] || printf '%s:%s: there is no %s (includes are written from the root)\n' "$file" "$line" "$header"
    done
}

# Samples are for other people's folders, and see only what goes there with them.
includes() {
    cpp_sources | grep -v '^packaging/sdk/samples/' |
        xargs -r -d '\n' grep -nHE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"'
}

find_windows_headers() {
    portable_files | xargs -r -d '\n' grep -nHiE "#[[:space:]]*include[[:space:]]*[<\"]($WINDOWS_HEADERS)\.h[>\"]" |
        sed -E 's/^([^:]*:[0-9]+):.*[<"](.*)[>"].*/\1: portable code must not include \2/'
}

# What builds natively as well: whole folders, and of the controls what the library of their rules is made of.
portable_files() {
    local rules
    rules=$(sed -n '/^add_library(kiv_rules/,/)/p' controls/CMakeLists.txt | grep -oE '[A-Za-z/]+\.cpp' |
        sed 's/\.cpp$//' | paste -sd '|')
    cpp_sources | grep -E "^((runtime/core|tools|fuzz|tests/(native|pictures)|host/formfile)/|host/data/[A-Za-z]*Query|controls/($rules)\.)"
}

find_old_reference() {
    reference | cmp docs/reference.md - 2>&1 | sed -E 's/^.*line ([0-9]+)$/docs\/reference.md:\1: not what the contract says; .\/kiv docs makes it anew/'
}

# What the documentation says of every member.
REFERENCE_MAKER=$PWD/tools/kiv/reference.awk
reference() {
    awk -f "$REFERENCE_MAKER" framework/contract/*.idl tests/com/KivControls.contract tests/com/state/*.state
}

# What a release had stays: each line of its files is in today's, in the same order. Tests hold those to the library that
# is built.
find_lost() {
    local release file today
    for release in tests/released/*/; do
        for file in "$release"*.contract "$release"*.state "$release"*.def; do
            case $file in
            *.contract) today=tests/com/${file##*/} ;;
            *.state) today=tests/com/state/${file##*/} ;;
            *.def) today=framework/library/${file##*/} ;;
            esac
            # shellcheck disable=SC2016 # the dollars are awk's
            [[ ! -f $file ]] || awk '
                NR == FNR { line[++lines] = $0; next }
                {
                    for (at = last + 1; at <= lines && line[at] != $0; at++);
                    if (at <= lines) last = at
                    else print FILENAME ":" FNR ": is not so any more: " $0
                }' "$today" "$file"
        done
    done
}

# Windows takes no window for all windows, for the desktop or for the thread: runtime/constituents/Window.cpp makes sure that
# there is one. A literal nullptr is meant.
find_raw_window_calls() {
    cpp_sources | grep -E '^(runtime|framework|controls)/' | grep -vx 'runtime/constituents/Window\.cpp' | xargs -r -d '\n' \
        grep -nHoE '\b(InvalidateRect|InvalidateRgn|ValidateRect|RedrawWindow|SetFocus|SetCapture|SetParent|SetTimer|(Post|Peek)Message[AW]?|GetDC(Ex)?|GetWindowDC|LockWindowUpdate)\((nullptr)?' |
        grep -v 'nullptr$' | sed -E 's/^([^:]*:[0-9]+):(.*)\($/\1: \2 takes "no window" for all of them; class Window has it/'
}

# Of CONTRIBUTING's names those that the place of a line decides: constants and functions of a namespace stand at its
# beginning, private data of a class one step in. Names that hosts know come with their class in front, or are
# constituents, whose three letters say what they are.
CONSTITUENTS='TextBox=txt Label=lbl CommandButton=cmd ComboBox=cbo ListBox=lst OptionButton=opt Frame=fra'
find_misnamed() {
    # shellcheck disable=SC2016 # the dollars are awk's
    cpp_sources | xargs -r -d '\n' awk -v constituents="$CONSTITUENTS" '
        BEGIN {
            count = split(constituents, pairs, " ")
            for (i = 1; i <= count; i++) {
                split(pairs[i], pair, "=")
                prefix[pair[1]] = pair[2]
            }
        }
        function complain(what) { print FILENAME ":" FNR ": " what }
        FNR == 1 { private = 0 }
        { sub(/ *\/\/.*/, "") }
        /^(private|protected|public):/ { private = /^private/ }
        /^}/ { private = 0 }
        /^((inline|static) )*constexpr [^=({;]*[ *&][a-z][A-Za-z0-9_]*(\[[^]]*\])? ?[={;]/ {
            complain("a constant is written in PascalCase")
        }
        /^[A-Za-z_][A-Za-z0-9_:<>,&* ]*[ *&][a-z][A-Za-z0-9_]*\(/ && !/^(else|return|throw) / && !/[ *&](main|operator)\(/ {
            complain("a function is written in PascalCase")
        }
        match($0, /^ +(TextBox|Label|CommandButton|ComboBox|ListBox|OptionButton|Frame) [A-Za-z0-9_]+(\[[^]]*\])?[;{]/) && FILENAME ~ /^controls\// {
            split($0, word, " ")
            if (substr(word[2], 1, 3) != prefix[word[1]])
                complain("the name of a " word[1] " begins with " prefix[word[1]])
            next
        }
        private && /^    [A-Za-z_][A-Za-z0-9_:<>,&* ]*[ *&][a-z][A-Za-z0-9_]*(\[[^]]*\])?( = [^(]*|\{.*\})?;$/ &&
            !/^    (using|friend|static constexpr|typedef) / && !/[ *&][a-z][A-Za-z0-9_]*_(\[[^]]*\])?( = .*|\{.*\})?;$/ {
            complain("a data member ends with an underscore")
        }'
}

find_long_files() {
    code_files | xargs -r -d '\n' awk 'FNR == 601 { print FILENAME ":601: over 600 lines; split it by topic" }'
}

find_blanks() {
    local file
    code_files | xargs -r -d '\n' grep -nHE $'[ \t\r]$' | sed -E 's/^([^:]*:[0-9]+):.*/\1: blanks at the end of the line/'
    cpp_sources | xargs -r -d '\n' grep -nH $'\t' | sed -E 's/^([^:]*:[0-9]+):.*/\1: a tab/'
    text_files | while read -r file; do
        [[ -z $(tail -c 1 "$file") ]] || printf '%s:%s: no newline at the end\n' "$file" "$(($(wc -l <"$file") + 1))"
    done
}

# What is only true on one machine, or not finished.
find_words() {
    text_files | xargs -r -d '\n' grep -nHE '(^|[^[:alnum:]_.}])/(home|root|Users)/[[:alnum:]]|\b(TO[D]O|FIX[M]E)\b' |
        sed -E 's/^([^:]*:[0-9]+):.*(TO[D]O|FIX[M]E).*/\1: a note to oneself: \2/; t
                s/^([^:]*:[0-9]+):.*(\/(home|root|Users)\/[^ "]*).*/\1: a path of one machine: \2/'
}

find_shell_mistakes() {
    shellcheck -x -a -f gcc kiv
    shellcheck -x -f gcc .ci/run tools/kiv/test_*.sh
}
