# shellcheck shell=bash
# Puts one fault at a time into the portable code, and runs the native tests that reach it: what do they not notice?
# kiv-mutate writes the faults into copies of the sources, kiv-mutants runs the tests on those that wait behind a switch.

MUTANTS=build/mutants

cmd_mutate() {
    local known file
    mapfile -t known < <(mutable_files)
    MUTATED=("$@")
    (($#)) || MUTATED=("${known[@]}")
    for file in "${MUTATED[@]}"; do
        one_of "$file" "${known[@]}" ||
            misused "'$file' is no portable source of the library" "There is: ${known[*]}"
    done

    ensure build
    lock_tree mutate
    build_tree mutants kiv-mutate
    build_switched
    step "Testing mutants behind a switch" "$MUTANTS/switched.log" \
        "$MUTANTS/tests/mutants/kiv-mutants" "$MUTANTS/list.txt" "$MUTANTS/switched.txt" ||
        die "the tests do not pass on the sources as they are." "$MUTANTS/switched.log says which."
    step "Testing the others, one by one" "$MUTANTS/plain.log" test_plain
    tell_survivors
}

mutable_files() { portable_files | grep -E '^(runtime/core|controls)/'; }

# Where a switch does not compile, all mutants of its line are left to be tested one by one.
build_switched() {
    local log=$MUTANTS/build.log errors attempt
    WITHOUT=()
    rm -rf "$MUTANTS/mutated"
    mkdir -p "$MUTANTS/mutated"
    mutable_files | xargs -d '\n' cp --parents -t "$MUTANTS/mutated"
    for attempt in 1 2 3 4 5; do
        write_switched
        step "Building with all mutants" "$log" build_mutants && return
        mapfile -t errors < <(sed -nE 's/^mutated\/([^:]*:[0-9]+):[0-9]+:( error:|   required from).*/-\1/p' "$log" | sort -u)
        ((${#errors[@]})) || break
        note "attempt $attempt: ${#errors[@]} lines do not compile with switches."
        WITHOUT+=("${errors[@]}")
    done
    build_failed "$log" "the mutated sources do not compile."
}

write_switched() {
    "$MUTANTS/tools/kiv-mutate" switched "$MUTANTS/mutated" "$MUTANTS/list.txt" "${WITHOUT[@]}" "${MUTATED[@]}"
}

build_mutants() { cmake --build "$MUTANTS" -j "$(nproc)" --target kiv-mutants -- -k 0; }

# What no test reaches at run time: it matters to the compiler only, or to nobody.
test_plain() {
    local number status outcome
    : >"$MUTANTS/plain.txt"
    while read -r number; do
        status=0
        "$MUTANTS/tools/kiv-mutate" plain "$MUTANTS/mutated" "$number" "${MUTATED[@]}" || status=$?
        outcome=found
        if ((status != 0)) || ! build_mutants; then
            outcome=impossible
        elif timeout --foreground 60 "$MUTANTS/tests/mutants/kiv-mutants" --gtest_fail_fast --gtest_brief=1; then
            outcome=survived
        fi
        printf '%s\t%s\n' "$number" "$outcome" >>"$MUTANTS/plain.txt"
        write_switched
    done < <(awk '$2 == "unreached" { print $1 }' "$MUTANTS/switched.txt")
}

tell_survivors() {
    awk -F'\t' '
        FILENAME == ARGV[3] { where[$1] = $2 ":" $3 ": " $4; next }
        { result[$1] = $2 }
        END {
            for (number in result) if (result[number] != "impossible") ++count[result[number]]
            for (number = 1; number in where; ++number) if (result[number] == "survived") print where[number]
            printf "%d mutants: %d found, %d survived\n", count["found"] + count["survived"], count["found"], count["survived"]
        }' "$MUTANTS/switched.txt" "$MUTANTS/plain.txt" "$MUTANTS/list.txt"
}
