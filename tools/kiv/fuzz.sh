# shellcheck shell=bash
# Feeds random input to the portable code. The seeds of a target lie in fuzz/corpus/<target>.

cmd_fuzz() {
    local seconds=30 argument known targets=() target
    mapfile -t known < <(find fuzz/corpus -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | LC_ALL=C sort)
    for argument in "$@"; do
        if [[ $argument =~ ^[1-9][0-9]*$ ]]; then
            seconds=$argument
        elif [[ " ${known[*]} " == *" $argument "* ]]; then
            targets+=("$argument")
        else
            misused "there is nothing to fuzz called '$argument'" "There is: ${known[*]}"
        fi
    done
    ((${#targets[@]})) || targets=("${known[@]}")

    ensure build fuzz
    lock_tree fuzz
    build_tree fuzz "${targets[@]}"
    mkdir -p build/fuzz/artifacts
    for target in "${targets[@]}"; do
        fuzz_target "$target" "$seconds"
    done
}

# New inputs that reach further gather under build/, beside the seeds of the tree.
fuzz_target() {
    local target=$1 seconds=$2 log=build/fuzz/$1.log
    mkdir -p "build/fuzz/corpus/$target"
    if step "Fuzzing $target for $seconds s" "$log" "build/fuzz/fuzz/$target" "-max_total_time=$seconds" \
        "-artifact_prefix=build/fuzz/artifacts/$target-" "build/fuzz/corpus/$target" "fuzz/corpus/$target"; then
        # Its last line: "Done 123 runs in 30 second(s)".
        sed -nE 's/^Done ([0-9]+) runs.*/    \1 inputs, nothing found/p' "$log"
        return
    fi
    grep -nE -m1 '^==[0-9]+==|runtime error:|Uncaught|^SUMMARY' "$log" | cut -d: -f1 |
        { read -r first && tail -n "+$first" "$log" | head -n 40 >&2; } || tail -n 25 "$log" >&2
    die "$target fails on an input: $(sed -nE 's/.*Test unit written to //p' "$log")" \
        "Try it alone: build/fuzz/fuzz/$target THAT-FILE" \
        "Once mended, it belongs into fuzz/corpus/$target/, so that it stays mended."
}
