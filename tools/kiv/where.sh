# shellcheck shell=bash
# Turns what a crash says of the library into lines of its source.

cmd_where() {
    local arch debug base offset addresses=()
    take_arch "$@"
    ((${#ARCHES[@]} == 1)) || misused "an offset is one of one architecture" "Say --arch x86 or --arch x64."
    ((${#REST[@]})) || misused "where needs an offset" "A crash report says KivCtls.ocx+0x1234, or fault offset 00001234."
    arch=${ARCHES[0]}
    for offset in "${REST[@]}"; do
        offset=${offset#KivCtls.ocx+}
        offset=${offset#KivCtls+}
        offset=${offset#0x}
        [[ $offset =~ ^[0-9a-fA-F]{1,8}$ ]] || misused "'$offset' is no offset into the library" "It is a hexadecimal number."
        addresses+=("$offset")
    done
    ensure build
    # That of the packages, where they have been made.
    debug=$PACKAGES_DIR/stage/debug/$arch/KivCtls.ocx.debug
    [[ -e $debug ]] || debug=$(library "$arch").debug
    [[ -e $debug ]] || die "there is no $debug." "./kiv build --arch $arch makes it."
    base=$("$(triplet_of "$arch")-objdump" -p "$debug" | sed -nE 's/^ImageBase[[:space:]]+([0-9a-f]+)$/\1/p')
    for offset in "${addresses[@]}"; do printf '%x\n' $((16#$base + 16#$offset)); done |
        "$(triplet_of "$arch")-addr2line" -fpie "$debug" |
        # Names lack the underscore that 32-bit symbols have in front; the tree's own files are named from its root.
        sed -E -e 's/\bZ([NSLKT])/_Z\1/g' -e 's#\./build/[a-z0-9]+/(\./)?##' | "$(triplet_of "$arch")-c++filt" -n
}
