#!/usr/bin/env bash
# Shows each lint a small tree with a mistake, which it must report at its place, and one without, which it must not.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/kiv/lints.sh

samples=$(mktemp -d)
trap 'rm -rf "$samples"' EXIT
cp .clang-format "$samples"
failures=0

# expect LINT FILE CONTENT COMPLAINT: the complaint is how the one line that the lint prints begins, or empty.
expect() {
    local lint=$1 file=$2 content=$3 complaint=$4 printed status=0
    mkdir -p "$samples/${file%/*}"
    printf '%b' "$content" >"$samples/$file"
    printed=$(cd "$samples" && lint "$lint") || status=$?
    rm "$samples/$file"
    if [[ -z $complaint ]]; then
        [[ -z $printed && $status == 0 ]] && return
    else
        [[ $printed == "$complaint"* && $printed != *$'\n'* && $status != 0 ]] && return
    fi
    printf 'tools/kiv/test_lints.sh:%s: %s on %s printed "%s" (status %s), expected "%s"\n' \
        "${BASH_LINENO[0]}" "$lint" "$file" "$printed" "$status" "$complaint"
    failures=$((failures + 1))
}

expect find_misformatted tools/a/A.cpp 'int F()\n{\n    return 1;\n}\n' ''
expect find_misformatted tools/a/A.cpp 'int F()\n{\n  return 1;\n}\n' 'tools/a/A.cpp:2: not laid out'

# Every layer may see itself and those before it, and nothing after it.
mkdir -p "$samples"/{runtime/{core,com,drawing,constituents,control,form},framework/{subclass,library},controls/x,host,tests/{com,native,pictures},tools/pictures,bench,fuzz}
for header in runtime/{core,com,drawing,constituents,control,form}/H framework/{subclass,library}/H controls/x/H host/H {tools,tests}/pictures/H; do
    : >"$samples/$header.h"
done
may_include() { expect find_wrong_includes "$1" "#include \"$2\"\n" ''; }
must_not_include() { expect find_wrong_includes "$1" "\n#include \"$2\"\n" "$1:2: must not include $2"; }
may_include runtime/core/A.cpp runtime/core/H.h
must_not_include runtime/core/A.cpp runtime/com/H.h
may_include runtime/com/A.cpp runtime/core/H.h
must_not_include runtime/com/A.cpp runtime/drawing/H.h
may_include runtime/drawing/A.cpp runtime/com/H.h
must_not_include runtime/drawing/A.cpp runtime/constituents/H.h
may_include runtime/constituents/A.cpp runtime/drawing/H.h
must_not_include runtime/constituents/A.cpp runtime/control/H.h
may_include runtime/control/A.cpp runtime/constituents/H.h
must_not_include runtime/control/A.cpp runtime/form/H.h
may_include runtime/form/A.cpp runtime/control/H.h
must_not_include runtime/form/A.cpp framework/subclass/H.h
may_include framework/subclass/A.cpp runtime/form/H.h
must_not_include framework/subclass/A.cpp controls/x/H.h
must_not_include framework/subclass/A.cpp framework/library/H.h
may_include controls/x/A.cpp framework/subclass/H.h
must_not_include controls/x/A.cpp framework/library/H.h
may_include framework/library/A.cpp controls/x/H.h
must_not_include framework/library/A.cpp host/H.h
may_include host/A.cpp runtime/com/H.h
must_not_include host/A.cpp runtime/control/H.h
may_include tests/com/A.cpp host/H.h
must_not_include tests/com/A.cpp controls/x/H.h
may_include tests/module/A.cpp framework/subclass/H.h
must_not_include tests/module/A.cpp framework/library/H.h
must_not_include bench/A.cpp framework/subclass/H.h
may_include tests/native/A.cpp controls/x/H.h
may_include tests/native/A.cpp tests/pictures/H.h
may_include tests/com/A.cpp tests/pictures/H.h
must_not_include tests/com/A.cpp tools/pictures/H.h
may_include tests/pictures/A.cpp tools/pictures/H.h
must_not_include tests/pictures/A.cpp host/H.h
must_not_include fuzz/A.cpp runtime/com/H.h
expect find_wrong_includes controls/x/A.cpp '#include "controls/x/Gone.h"\n' \
    'controls/x/A.cpp:1: there is no controls/x/Gone.h'
expect find_wrong_includes elsewhere/A.cpp '#include "runtime/core/H.h"\n' 'elsewhere/A.cpp:1: the layers'

printf 'add_library(kiv_rules STATIC\n    x/Rules.cpp)\nadd_library(kiv_controls STATIC\n    x/A.cpp)\n' \
    >"$samples/controls/CMakeLists.txt"
expect find_windows_headers runtime/core/A.h '#include <string>\n' ''
expect find_windows_headers runtime/core/A.h '\n#include <windows.h>\n' 'runtime/core/A.h:2: portable code must not include windows.h'
expect find_windows_headers tools/a/A.cpp '#include <OleAuto.h>\n' 'tools/a/A.cpp:1: portable code'
expect find_windows_headers controls/x/Rules.h '#include <windows.h>\n' 'controls/x/Rules.h:1: portable code'
expect find_windows_headers tests/pictures/A.h '#include <windows.h>\n' 'tests/pictures/A.h:1: portable code'
expect find_windows_headers controls/x/A.h '#include <windows.h>\n' ''
expect find_windows_headers runtime/com/A.h '#include <windows.h>\n' ''

expect find_raw_window_calls runtime/control/A.cpp 'void F() { SetFocus(w); }\n' 'runtime/control/A.cpp:1: SetFocus takes'
expect find_raw_window_calls controls/x/A.cpp '\nauto dc = GetDC(nullptr);\n' ''
expect find_raw_window_calls controls/x/A.cpp '\nInvalidateRect(w, nullptr, TRUE);\n' 'controls/x/A.cpp:2: InvalidateRect takes'
expect find_raw_window_calls runtime/constituents/Window.cpp 'void F() { SetFocus(w); }\n' ''
expect find_raw_window_calls host/A.cpp 'void F() { SetFocus(w); }\n' ''

expect find_misnamed tools/a/A.cpp 'constexpr int Most = 3;\nint F(int most)\n{\n    constexpr int local = most;\n}\nint main()\n' ''
expect find_misnamed tools/a/A.cpp '\nconstexpr int most = 3;\n' 'tools/a/A.cpp:2: a constant'
expect find_misnamed host/a/A.h '\ninline constexpr const char* names[] = {"a"};\n' 'host/a/A.h:2: a constant'
expect find_misnamed tools/a/A.cpp 'std::uint16_t read16(ByteView bytes)\n{\n' 'tools/a/A.cpp:1: a function'
expect find_misnamed controls/x/A.cpp 'HRESULT A::get_Value(long* result) noexcept\nvoid A::cmd_Click()\n' ''
expect find_misnamed host/a/A.h 'class A\n{\nprivate:\n    int size_ = 0;\n    bool Same(int size);\n};\nstruct B\n{\n    int size = 0;\n};\n' ''
expect find_misnamed host/a/A.h 'class A\n{\npublic:\n    int Size() const;\n\nprivate:\n    int size = 0; // of it\n};\n' 'host/a/A.h:7: a data member'
expect find_misnamed controls/x/A.h 'class A\n{\nprivate:\n    Label lbl{*this};\n    CommandButton cmdOK;\n    std::wstring StateCode;\n};\n' ''
expect find_misnamed controls/x/A.h 'class A\n{\nprivate:\n    ComboBox combo_{*this};\n};\n' 'controls/x/A.h:4: the name of a ComboBox begins with cbo'

expect find_long_files tools/a/A.cpp "$(printf 'x\\n%.0s' {1..600})" ''
expect find_long_files tools/a/A.cpp "$(printf 'x\\n%.0s' {1..601})" 'tools/a/A.cpp:601: over 600 lines'

expect find_blanks tools/a/A.cpp 'int a;\n' ''
expect find_blanks tools/a/A.cpp 'int a;\nint b; \n' 'tools/a/A.cpp:2: blanks at the end'
expect find_blanks tools/a/A.cpp 'int a;\r\n' 'tools/a/A.cpp:1: blanks at the end'
expect find_blanks tools/a/A.cpp '\tint a;\n' 'tools/a/A.cpp:1: a tab'
expect find_blanks docs/a.md 'one\ntwo' 'docs/a.md:2: no newline at the end'

expect find_words docs/a.md 'A method to do it, in some/root.\n' ''
expect find_words docs/a.md '\nTO''DO: finish\n' 'docs/a.md:2: a note to oneself: TO''DO'
expect find_words docs/a.md 'see /''home/ann/notes\n' 'docs/a.md:1: a path of one machine: /''home/ann/notes'

mkdir -p "$samples/tests/com/state"
printf 'a = 1\nb = 2\nc = 3\n' >"$samples/tests/com/state/A.state"
expect find_lost tests/released/1.0.0/A.state 'a = 1\nc = 3\n' ''
expect find_lost tests/released/1.0.0/A.state 'a = 1\nb = 1\nc = 3\n' 'tests/released/1.0.0/A.state:2: is not so any more: b = 1'
expect find_lost tests/released/1.0.0/A.state 'b = 2\na = 1\n' 'tests/released/1.0.0/A.state:2: is not so any more: a = 1'
expect find_lost tests/released/1.0.0/B.contract 'a\n' 'awk: '

mkdir -p "$samples/framework/contract"
: >"$samples/framework/contract/A.idl"
printf 'coclass A {1}\n' >"$samples/tests/com/KivControls.contract"
expect find_old_reference docs/reference.md "$(cd "$samples" && reference)\n" ''
expect find_old_reference docs/reference.md '# Reference\nof old\n' 'docs/reference.md:2: not what the contract says'

mkdir -p "$samples/.ci" "$samples/tools/kiv"
printf '#!/bin/bash\n' | tee "$samples/.ci/run" >"$samples/tools/kiv/test_none.sh"
# shellcheck disable=SC2016 # the dollar is the sample's
expect find_shell_mistakes ./kiv '#!/bin/bash\necho "$HOME"\n' ''
# shellcheck disable=SC2016
expect find_shell_mistakes ./kiv '#!/bin/bash\necho $HOME\n' 'kiv:2:6: note: Double quote'

((failures == 0))
