# shellcheck shell=bash
# Looks at the source without building it. Every complaint reads `file:line: what is wrong`.

# What is checked, and the command that does it.
CHECKS="\
Formatting|lint find_misformatted
Layers|lint find_wrong_includes
Portable code|lint find_windows_headers
Lengths|lint find_long_files
Names|lint find_misnamed
Calls without a window|lint find_raw_window_calls
What was released|lint find_lost
The reference|lint find_old_reference
Blanks and line ends|lint find_blanks
Words|lint find_words
Shell scripts|lint find_shell_mistakes
The lints themselves|tools/kiv/test_lints.sh
Setting up|tools/kiv/test_setup.sh
Counting test results|tools/kiv/test_results.sh
The command line|tools/kiv/test_kiv.sh"

source tools/kiv/lints.sh

cmd_check() {
    no_arguments check "$@"
    ensure check
    local title failures=0 action
    CHECK_LOGS=$(mktemp -d)
    at_end forget_check_logs
    while IFS='|' read -r title action; do
        # shellcheck disable=SC2086 # a command and its arguments
        step "$title" "$CHECK_LOGS/log" $action && continue
        sed 's/^/    /' "$CHECK_LOGS/log"
        failures=$((failures + 1))
    done <<<"$CHECKS"
    ((failures == 0)) || die "$failures of the checks found something." \
        "./kiv format lays the sources out; the rest is for you to mend."
    say "Nothing to complain about."
}

forget_check_logs() { rm -rf "$CHECK_LOGS"; }

cmd_format() {
    no_arguments format "$@"
    ensure check
    cpp_sources | xargs -r -d '\n' clang-format-14 -i
    say "The C++ sources are laid out as .clang-format says."
}
