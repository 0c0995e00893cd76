# shellcheck shell=bash
# Configures and builds the trees under build/, one for each preset.

# Without these two the library cannot be shown; the rest of a tree is there to prove it.
PRODUCT_TARGETS=(KivCtls FolioHost)

cmd_build() {
    local arch
    take_arch "$@"
    no_arguments build "${REST[@]}"
    ensure build
    lock_tree build
    build_product "${ARCHES[@]}"
    for arch in "${ARCHES[@]}"; do
        say "Built: $(library "$arch") and $(host_program "$arch")"
    done
}

library() { printf 'build/%s/KivCtls.ocx' "$1"; }
host_program() { printf 'build/%s/FolioHost.exe' "$1"; }

# build_product ARCH ...: the tools that the build itself runs, then the Windows trees.
build_product() {
    local arch
    build_tree native kiv-tools
    for arch in "$@"; do build_tree "$arch" "${PRODUCT_TARGETS[@]}"; done
}

# build_tree PRESET TARGET ...
build_tree() {
    local preset=$1 tree=build/$1
    shift
    discard_stale "$tree"
    if [[ ! -f $tree/build.ninja || CMakePresets.json -nt $tree/build.ninja ]]; then
        step "Configuring $preset" "$tree/configure.log" cmake --preset "$preset" ||
            build_failed "$tree/configure.log" "configuring $preset failed"
    fi
    step "Building $preset ($*)" "$tree/build.log" cmake --build "$tree" -j "$(nproc)" --target "$@" ||
        build_failed "$tree/build.log" "building $preset failed"
}

# discard_stale TREE: one that came along when the sources were copied or moved here would go on to build those of its
# old place, and its Wine prefix to use the library there; half a configuration may hold anything.
discard_stale() {
    local cache=$1/CMakeCache.txt sources place
    [[ -e $cache ]] || return 0
    sources=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
    place=$(sed -n 's/^CMAKE_CACHEFILE_DIR:INTERNAL=//p' "$cache")
    if [[ -z $sources || -z $place || ! -f $1/build.ninja ]]; then
        note "$1 was left half configured; making it anew."
    elif [[ ! $sources -ef $ROOT || ! $place -ef $1 ]]; then
        note "$1 was made for the sources in $sources; making it anew."
    else
        return 0
    fi
    # What fuzzing found stays.
    find "$1/" -mindepth 1 -maxdepth 1 ! -name corpus ! -name artifacts -exec rm -rf {} +
}

# Shows what went wrong rather than all that was said: from the first failure on, or else the end.
build_failed() {
    local log=$1 excerpt
    excerpt=$(grep -nE -m1 '^FAILED: |error:|CMake Error|undefined reference' "$log" | cut -d: -f1)
    if [[ -n $excerpt ]]; then
        # Without the command lines that ninja repeats, and the steps that went on beside it.
        tail -n "+$excerpt" "$log" | sed '/^FAILED: /{n;d};/^\[/d' | cut -c1-300 | head -n 40 >&2
    else
        tail -n 25 "$log" >&2
    fi
    die "$2" "The messages above start at the first error; all of them are in $log." \
        "Mend that, or if the tree itself seems stale: ./kiv clean, then the same command again."
}
