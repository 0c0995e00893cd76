# shellcheck shell=bash
# Runs the test programs and counts.

GROUPS_OF_TESTS=(native com gui clients hostile)
# A program that takes longer than this hangs. In seconds.
TEST_LIMIT=1200

cmd_test() {
    take_arch "$@"
    sort_out_tests "${REST[@]}"
    local windows=() arch group
    for group in "${CHOSEN_GROUPS[@]}"; do [[ $group == native ]] || windows+=("$group"); done

    ensure build ${windows[@]:+run}
    lock_tree test
    if chosen native; then build_tree native all; else build_tree native kiv-tools; fi
    if ((${#windows[@]})); then
        for arch in "${ARCHES[@]}"; do build_tree "$arch" all; done
    fi

    TABLE='' PASSED=0 FAILED=0 SKIPPED=0
    if chosen native; then run_tests native native build/native/tests/native/kiv-native-tests; fi
    if ((${#windows[@]})); then
        if chosen gui; then prepare_test_data; fi
        test_on_windows "${windows[@]}"
    fi
    sum_up
}

# test_on_windows GROUP ...: two jobs at a time where the machine has the processors for it, each architecture one, or
# where there is only one of these, what is shown beside the rest.
test_on_windows() {
    local arch group jobs=() unseen=()
    for group in "$@"; do is_shown "$group" || unseen+=("$group"); done
    for arch in "${ARCHES[@]}"; do
        if chosen gui; then use_prefix "$arch"; fi
        if ((${#unseen[@]})); then use_prefix "$arch" unseen; fi
        if ((${#ARCHES[@]} > 1 || ${#unseen[@]} == 0 || ${#unseen[@]} == $#)); then
            jobs+=("$arch $arch $*")
        else
            jobs+=("$arch $arch gui" "$arch-unseen $arch ${unseen[*]}")
        fi
    done
    if ((${#jobs[@]} > 1 && $(nproc) > 1)); then
        test_side_by_side "${jobs[@]}"
    else
        stay_on_one_processor
        start_display
        for arch in "${ARCHES[@]}"; do test_windows "$arch" "$@"; done
    fi
}

# test_side_by_side "NAME ARCH GROUP ..." ...: each job on a processor and a display of its own. What each says is shown
# when all are through.
test_side_by_side() {
    local job words tally names=''
    for job in "$@"; do
        read -r -a words <<<"$job"
        names+=" ${words[0]}"
    done
    step "Testing side by side:$names" build/test/side-by-side.log test_each "$@" || true
    for job in $names; do
        cat "build/test/$job/said.txt"
        if ! read -r -a tally <"build/test/$job/counts.txt"; then
            tail -n 5 build/test/side-by-side.log >&2
            tally=(0 1 0)
        fi
        ((PASSED += tally[0], FAILED += tally[1], SKIPPED += tally[2])) || true
        TABLE+=$(cat "build/test/$job/table.txt")$'\n'
    done
}

test_each() {
    local number=0 job words
    for job in "$@"; do
        read -r -a words <<<"$job"
        rm -rf "build/test/${words[0]}"
        mkdir -p "build/test/${words[0]}"
        test_apart "$number" "${words[@]}" >"build/test/${words[0]}/said.txt" &
        ((number += 1))
    done
    trap 'kill -TERM $(jobs -p); wait; exit 143' TERM
    wait
}

# test_apart PROCESSOR NAME ARCH GROUP ...: in a shell of its own, which stops what it has started when it is stopped.
test_apart() {
    local number=$1 name=$2
    shift 2
    LIVE='' JOB='' AT_END=() WINE_PREFIXES=() TABLE='' PASSED=0 FAILED=0 SKIPPED=0
    trap clean_up EXIT
    trap 'exit 143' TERM
    stay_on_one_processor "$number"
    start_display
    test_windows "$@"
    printf '%s' "$TABLE" >"build/test/$name/table.txt"
    printf '%s\n' "$PASSED $FAILED $SKIPPED" >"build/test/$name/counts.txt"
}

# Groups and patterns stand in any order: CHOSEN_GROUPS, PATTERNS and the GoogleTest filter FILTER come of them.
sort_out_tests() {
    local word
    CHOSEN_GROUPS=() PATTERNS=()
    for word in "$@"; do
        case $word in
        native | com | gui | clients | hostile) CHOSEN_GROUPS+=("$word") ;;
        -*) misused "test does not know $word" "./kiv help tells what it takes." ;;
        *[.*?]*) PATTERNS+=("$word") ;;
        *) misused "there is no group '$word'" "The groups are: ${GROUPS_OF_TESTS[*]}. A single test is Suite.Name." ;;
        esac
    done
    ((${#CHOSEN_GROUPS[@]})) || CHOSEN_GROUPS=("${GROUPS_OF_TESTS[@]}")
    FILTER=$(filter_for "${PATTERNS[@]}")
}

# filter_for [PATTERN ...]: each may hold several, with colons between them, and after a minus sign those to leave out.
filter_for() {
    local word picked='' left_out=''
    for word in "$@"; do
        picked+=$(spellings "${word%%-*}")
        [[ $word != *-* ]] || left_out+=$(spellings "${word#*-}")
    done
    printf '%s%s' "${picked:-*}" "${left_out:+-$left_out}"
}

# spellings PATTERN[:PATTERN ...]: GoogleTest writes what people know as Suite.Name as Rows/Suite.Name/Parameter where
# a suite goes through rows. Where it goes through the controls, the parameter is what people know a test by.
spellings() {
    local patterns pattern
    mapfile -d : -t patterns < <(printf '%s' "$1")
    for pattern in "${patterns[@]}"; do
        printf '%s:' "$pattern" "$pattern/*" "*/$pattern" "*/$pattern/*"
        [[ $pattern != *.* ]] || printf '*.%s/%s:' "${pattern#*.}" "${pattern%%.*}"
    done
}

chosen() { [[ " ${CHOSEN_GROUPS[*]} " == *" $1 "* ]]; }

# Whether a group needs its windows on a screen: it looks at them, or sends them real input.
is_shown() { [[ $1 == gui ]]; }

# test_windows ARCH GROUP ...
test_windows() {
    local arch=$1 group
    shift
    for group in "$@"; do
        if is_shown "$group"; then use_library "$arch"; else use_library "$arch" unseen; fi
        [[ $group != gui ]] || use_test_data "$arch"
        register_once "$arch"
        run_tests "$group" "$arch" "build/$arch/tests/$group/kiv-$group-tests.exe" wine
        [[ $group != com ]] || test_resolutions "$arch"
    done
}

# test_resolutions ARCH: the tests of that, on systems whose whole screen has another one than 96 pixels to the inch.
# Patterns that say nothing of resolutions pick none of them.
test_resolutions() {
    local FILTER=$FILTER pixels
    if ((${#PATTERNS[@]} == 0)); then
        FILTER='*Resolution*.*'
    elif [[ ${PATTERNS[*]} != *Resolution* ]]; then
        return
    fi
    for pixels in 168 192; do
        use_resolution "$1" "$pixels"
        run_tests "com-$pixels" "$1" "build/$1/tests/com/kiv-com-tests.exe" wine
    done
}

# register_once ARCH: in the current prefix.
register_once() {
    [[ $REGISTERED != *" $WINEPREFIX "* ]] || return 0
    REGISTERED+=" $WINEPREFIX "
    register "$1" && return
    tail -n 10 "build/$1/regsvr32.log"
    note_result "regsvr32" "$1" 0 1 0 "$TOOK"
}
REGISTERED=''

# run_tests GROUP ARCH PROGRAM [RUNNER]
run_tests() {
    local group=$1 arch=$2 program=$3 log status=0 outcome ending
    log=build/test/$arch/$group.log
    shift 3
    run_test_program "$@" || status=$?
    if ((status != 0)) && never_started "$log"; then
        note "Wine did not start the program; once more, with Wine started anew."
        stop_wine
        status=0
        run_test_program "$@" || status=$?
    fi
    ending="ended early with status $status"
    if ((status == 124 || status == 137)); then
        ending="was stopped after $TEST_LIMIT seconds"
        # What it started would disturb the next one.
        stop_wine
    fi
    tell_picked "$@"
    awk -v status="$status" -v ending="$ending" -v program="$program" -v file="$log" \
        -f tools/kiv/results.awk "$log" >"$log.results"
    tail -n +2 "$log.results"
    read -r -a outcome <"$log.results"
    note_result "$group" "$arch" "${outcome[@]}" "$TOOK"
}

# run_test_program [RUNNER], for run_tests
run_test_program() {
    step "Testing $group ($arch)" "$log" \
        timeout --foreground --kill-after=10 "$TEST_LIMIT" "$@" "$program" --gtest_color=no "--gtest_filter=$FILTER"
}

# tell_picked [RUNNER], for run_tests: how many of the group's tests the patterns picked.
tell_picked() {
    local picked all
    ((${#PATTERNS[@]})) || return 0
    picked=$(sed -nE 's/^\[==========\] Running ([0-9]+) tests? .*/\1/p' "$log")
    # One that did not come so far has said why.
    [[ -n $picked ]] || return 0
    launch timeout --foreground 60 "$@" "$program" --gtest_list_tests >"$log.list" 2>&1
    job_status || return 0
    all=$(awk '/^  / && !/^  DISABLED_/ { ++tests } END { print tests + 0 }' "$log.list")
    say "    $picked of $all tests picked"
}

# never_started LOG: whether Wine could not make the process, see twice. A program that has begun its tests is never
# started again.
never_started() {
    grep -q 'ShellExecuteEx failed' "$1" && ! grep -q '^\[==========\]' "$1"
}

# note_result GROUP ARCH PASSED FAILED SKIPPED SECONDS: a row of the table.
note_result() {
    local row colour=''
    ((PASSED += $3, FAILED += $4, SKIPPED += $5)) || true
    (($4 == 0)) || colour=$RED
    printf -v row '  %s%-9s %-5s %8d %8d %8d %9s%s' "$colour" "$@" "$PLAIN"
    TABLE+=$row$'\n'
}

sum_up() {
    local counts="$PASSED passed, $FAILED failed"
    ((SKIPPED == 0)) || counts+=", $SKIPPED skipped"
    put '\n  %s%-9s %-5s %8s %8s %8s %9s%s\n%s\n' "$BOLD" group arch passed failed skipped seconds "$PLAIN" "$TABLE"
    if ((PASSED + FAILED + SKIPPED == 0)); then
        note "no test ran: nothing matches ${PATTERNS[*]@Q}."
        FAILED=1 counts="0 passed, 0 failed"
    fi
    say "$counts"
    ((FAILED == 0))
}
