# shellcheck shell=bash
# Feeds random input to the portable code. The seeds of a target lie in fuzz/corpus/<target>.

cmd_fuzz() {
    local seconds=30 argument known targets=() target failed=()
    mapfile -t known < <(find fuzz/corpus -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | LC_ALL=C sort)
    for argument in "$@"; do
        if [[ $argument =~ ^[0-9]+$ ]]; then
            must_be_number_of seconds "$argument"
            seconds=$argument
        elif one_of "$argument" "${known[@]}"; then
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
        fuzz_target "$target" "$seconds" || failed+=("$target")
    done
    ((${#failed[@]} == 0)) || die "an input broke: ${failed[*]}" \
        "Try it alone: build/fuzz/fuzz/<target> <the file named above>" \
        "Once mended, it belongs into fuzz/corpus/<target>/, so that it stays mended."
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
    # From the first report on; the fuzzer names the input that it kept at the end.
    awk '/^==[0-9]+==|runtime error:/ { told = 1 } told && ++lines <= 40' "$log" | cut -c1-200 >&2
    sed -nE 's/.*Test unit written to (.*)/    The input is in \1/p' "$log" >&2
    return 1
}
