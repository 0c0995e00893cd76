# shellcheck shell=bash
# Attacks the library: hosts that do their worst inside every call, and random input for all that a host or another
# program can reach. Two processes at a time, for as long as it is told.

# What there is, and the test suite of each.
ATTACKS="\
reentry|Reentry|every call that a control makes, answered by every blow
streams|FuzzStreams|saved controls that came to harm
storages|FuzzStorages|storages that fail or hold harmed streams
bags|FuzzBags|property bags with odd answers
invoke|FuzzInvoke|late-bound calls with odd arguments
messages|FuzzMessages|messages to every window
accessible|FuzzAccessible|clients of accessible objects"
# Each process takes one of them for a share of the time.
PROCESSES=2
# About what half of the classes take for all cases of re-entrant hosts, in seconds.
WHOLE_REENTRY=3000
# So many findings of one kind are enough for one time.
MOST_FINDINGS=10

cmd_attack() {
    take_arch "$@"
    sort_out_attacks "${REST[@]}"
    ensure build run
    lock_tree attack
    build_tree native kiv-tools
    local arch
    for arch in "${ARCHES[@]}"; do build_tree "$arch" KivCtls kiv-hostile-tests; done
    start_display
    FINDINGS=0 SUMMARY=''
    mkdir -p build/attack
    attack_all
    put '\n  %s%-10s %-5s %13s %8s %9s%s\n%s\n' "$BOLD" attack arch tried seconds findings "$PLAIN" "$SUMMARY"
    ((FINDINGS == 0)) || die "$FINDINGS findings, above." \
        "Each says how to do it again: the settings in front of the program of build/<arch>/tests/hostile/." \
        "Once mended, it belongs into the rows in tests/hostile/fuzz/, so that it stays mended."
    say "Nothing found. The seed was $SEED."
}

# Minutes and attacks stand in any order: MINUTES and CHOSEN_ATTACKS come of them.
sort_out_attacks() {
    local word known
    mapfile -t known < <(cut -d '|' -f 1 <<<"$ATTACKS")
    MINUTES=10 CHOSEN_ATTACKS=()
    for word in "$@"; do
        if [[ $word =~ ^[0-9]+$ ]]; then
            must_be_number_of minutes "$word"
            MINUTES=$word
        elif one_of "$word" "${known[@]}"; then
            CHOSEN_ATTACKS+=("$word")
        else
            misused "there is no attack called '$word'" "There is: ${known[*]}. A number says for how many minutes."
        fi
    done
    ((${#CHOSEN_ATTACKS[@]})) || CHOSEN_ATTACKS=("${known[@]}")
    SEED=${KIV_ATTACK_SEED:-$((EPOCHSECONDS % 1000000))}
    [[ $SEED =~ ^[0-9]{1,9}$ ]] || misused "KIV_ATTACK_SEED is '$SEED'" "It takes a number of up to nine digits."
}

# Two architectures at a time where there are two processors, else one after the other, with an equal share of the time.
attack_all() {
    local arch what all=$((MINUTES * 60))
    for arch in "${ARCHES[@]}"; do use_prefix "$arch" unseen; done
    if (($(nproc) > 1)); then
        attack_step "${ARCHES[*]}" "$all" "${ARCHES[@]}"
    else
        for arch in "${ARCHES[@]}"; do attack_step "$arch" $((all / ${#ARCHES[@]})) "$arch"; done
    fi
    for arch in "${ARCHES[@]}"; do
        for what in "${CHOSEN_ATTACKS[@]}"; do sum_up_attack "$arch" "$what"; done
    done
}

# attack_step TITLE SECONDS ARCH ...: each attack in its turn, two at a time, with an equal share of the time.
attack_step() {
    local title=$1 all=$2 share what jobs=()
    shift 2
    for what in "${CHOSEN_ATTACKS[@]}"; do
        jobs+=("$what 1 1")
        # By far the longest: two processes have half of the classes each.
        [[ $what != reentry ]] || jobs[-1]="$what 2 1" jobs+=("$what 2 2")
    done
    share=$((all * PROCESSES / ${#jobs[@]}))
    ((share <= all)) || share=$all
    step "Attacking ($title), $share s each" build/attack/all.log attack_each "$share" "$@" || true
}

# attack_each SECONDS ARCH ...: the jobs of attack_step, each architecture on a processor of its own.
attack_each() {
    local seconds=$1 number=0 arch
    shift
    for arch in "$@"; do
        attack_apart "$arch" "$number" "$seconds" &
        ((number += 1))
    done
    wait
}

# attack_apart ARCH PROCESSOR SECONDS
attack_apart() {
    stay_on_one_processor "$2"
    use_library "$1" unseen
    rm -rf "build/attack/$1"
    mkdir -p "build/attack/$1"
    attack_in_turns "$1" "$3" "${jobs[@]}"
}

# attack_in_turns ARCH SECONDS JOB ...: two at a time; the next one begins when one has ended.
attack_in_turns() {
    local arch=$1 seconds=$2 job words running=0
    shift 2
    for job in "$@"; do
        if ((running >= PROCESSES)); then
            wait -n || true
            ((running -= 1))
        fi
        read -r -a words <<<"$job"
        attack_once "$arch" "$seconds" "${words[@]}" &
        ((running += 1))
    done
    wait
}

suite_of() { sed -n "s/^$1|\([^|]*\)|.*/\1/p" <<<"$ATTACKS"; }

# attack_once ARCH SECONDS WHAT PARTS PART: what an input ends is started again, with the next seed, for the time that
# is left.
attack_once() {
    local arch=$1 seconds=$2 what=$3 suite log=build/attack/$1/$3-$5.log status ended=$((EPOCHSECONDS + $2)) left findings=0
    suite=$(suite_of "$what")
    export GTEST_TOTAL_SHARDS=$4 GTEST_SHARD_INDEX=$(($5 - 1)) KIV_ATTACK_SEED=$SEED KIV_HOSTILE_STRIDE
    # So that all of a class has its turn in the time that there is.
    KIV_HOSTILE_STRIDE=$(((WHOLE_REENTRY + seconds - 1) / seconds))
    while left=$((ended - EPOCHSECONDS)) && ((left > 0 && findings < MOST_FINDINGS)); do
        status=0
        # A class has its share of what all of them have, and here there are only those of a part.
        KIV_ATTACK_SECONDS=$left KIV_HOSTILE_SECONDS=$((left * $4)) timeout --foreground --kill-after=10 $((left + 120)) \
            wine "build/$arch/tests/hostile/kiv-hostile-tests.exe" --gtest_color=no \
            "--gtest_filter=$suite.*:*/$suite.*" >>"$log" 2>&1 || status=$?
        printf '\nended with status %s\n' "$status" >>"$log"
        ((status != 0)) || break
        # The cases of this one are always the same.
        [[ $what != reentry ]] || break
        ((KIV_ATTACK_SEED += 1, findings += 1))
    done
}

# sum_up_attack ARCH WHAT: a row of the table, and what was found.
sum_up_attack() {
    local arch=$1 what=$2 row found colour='' counts
    counts=$(cat "build/attack/$arch/$what"-*.log | awk -v file="build/attack/$arch/$what-*.log" -f tools/kiv/attack.awk)
    read -r -a row <<<"${counts%%$'\n'*}"
    found=${counts#*$'\n'}
    ((row[2] == 0)) || colour=$RED
    ((FINDINGS += row[2])) || true
    [[ $found == "$counts" ]] || say "$found"
    printf -v row '  %s%-10s %-5s %13s %8s %9s%s' "$colour" "$what" "$arch" "${row[@]}" "$PLAIN"
    SUMMARY+=$row$'\n'
}
