#!/usr/bin/env bash
# Reads made-up outputs of test programs and looks at what is counted and told.
set -euo pipefail
cd "$(dirname "$0")/../.."
failures=0

# expect STATUS ENDING OUTPUT PATTERN: the output of a program that ended so gives a report that fits.
expect() {
    local report
    report=$(printf '%b' "$3" | awk -v status="$1" -v ending="$2" -v program=tests.exe -v file=log \
        -f tools/kiv/results.awk)
    # shellcheck disable=SC2053 # a pattern
    [[ $report == $4 ]] && return
    printf 'tools/kiv/test_results.sh:%s: reported "%s", expected "%s"\n' "${BASH_LINENO[0]}" "$report" "$4"
    failures=$((failures + 1))
}

run='[ RUN      ] '
ok='[       OK ] '
failed='[  FAILED  ] '
skipped='[  SKIPPED ] '
end='[==========] 2 tests from 1 test suite ran. (1 ms total)\n[  PASSED  ] 1 test.\n'

expect 0 ended "${run}A.B\n${ok}A.B (0 ms)\n${run}A.C\n${ok}A.C (1 ms)\n$end" '2 0 0'
expect 0 ended "${run}A.B\r\n${ok}A.B (0 ms)\r\n$end" '1 0 0'
# A test that leaves its line open still counts.
expect 0 ended "${run}A.B\nopen${ok}A.B (0 ms)\n$end" '1 0 0'
expect 0 ended "${run}A.B\nA.cpp:3: Skipped\nlater\n${skipped}A.B (0 ms)\n$end" '0 0 1'
expect 1 ended "${run}A.B\nA.cpp:3: Failure\n${failed}A.B (0 ms)\n$end$failed 1 test, listed below:\n${failed}A.B\n" \
    $'0 1 0\n\n  FAILED A.B\n    A.cpp:3: Failure'
expect 1 ended "${run}A.B/0\n${failed}A.B/0, where GetParam() = 5 (0 ms)\n$end" $'0 1 0\n\n  FAILED A.B/0*'
expect 5 'ended early with status 5' "${run}A.B\n${ok}A.B (0 ms)\n${run}A.C\npage fault\nModules:\nPE 1\n" \
    $'1 1 0\n\n  FAILED A.C\n    page fault\n    tests.exe ended early with status 5 in this test*'
expect 126 'ended early with status 126' 'cannot run\n' $'0 1 0\n\n  FAILED tests.exe\n    cannot run\n*'
expect 124 'was stopped after 9 seconds' "${run}A.C\n" $'0 1 0\n\n  FAILED A.C\n*was stopped after 9 seconds in this*'
# A leak found at the end belongs to no test.
expect 1 ended "${run}A.B\n${ok}A.B (0 ms)\n${end}leaked\n" $'1 1 0\n\n  FAILED tests.exe*leaked*status 1'
expect 0 ended '[==========] 0 tests from 0 test suites ran. (0 ms total)\n' '0 0 0'

((failures == 0))
