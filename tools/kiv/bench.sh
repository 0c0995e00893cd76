# shellcheck shell=bash
# Measures the library against the bare Windows calls that the same job needs at least.

cmd_bench() {
    local arch
    take_arch "$@"
    no_arguments bench "${REST[@]}"
    ensure build run
    lock_tree bench
    build_tree native kiv-tools
    for arch in "${ARCHES[@]}"; do build_tree "$arch" KivCtls kiv-bench; done
    start_display
    for arch in "${ARCHES[@]}"; do
        open_registered_prefix "$arch"
        say "Measurements ($arch):"
        attend wine "build/$arch/bench/kiv-bench.exe" || die "the measurements ended early ($arch)."
    done
}
