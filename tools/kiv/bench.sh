# shellcheck shell=bash
# Measures the library against the bare Windows calls that the same job needs at least.

GROUPS_OF_MEASUREMENTS=(YesNo ChkCombo PicCommand PicLite NumberBox Amounts EnumList Life Typing Form Loaded Rules Numbers)

cmd_bench() {
    local arch word
    take_arch "$@"
    for word in "${REST[@]}"; do
        one_of "$word" "${GROUPS_OF_MEASUREMENTS[@]}" ||
            misused "there are no measurements '$word'" "There are: ${GROUPS_OF_MEASUREMENTS[*]}."
    done
    ensure build run
    lock_tree bench
    build_tree native kiv-tools
    for arch in "${ARCHES[@]}"; do build_tree "$arch" KivCtls kiv-bench; done
    stay_on_one_processor
    start_display
    for arch in "${ARCHES[@]}"; do
        open_registered_prefix "$arch"
        say "Measurements ($arch):"
        attend wine "build/$arch/bench/kiv-bench.exe" "${REST[@]}" || die "the measurements ended early ($arch)."
    done
}
