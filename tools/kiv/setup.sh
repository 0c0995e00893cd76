# shellcheck shell=bash
# Which packages the commands need, and how a bare Debian 12 gets them.

# Purpose, Debian package, the command or file that is used from it.
PACKAGES="\
build g++                    g++
build cmake                  cmake
build ninja-build            ninja
build g++-mingw-w64-i686     i686-w64-mingw32-g++
build g++-mingw-w64-x86-64   x86_64-w64-mingw32-g++
build wine64-tools           widl
build libwine-dev            /usr/include/wine/wine/windows/oaidl.idl
build googletest             /usr/src/googletest/CMakeLists.txt
run   wine                   wine
run   wine32:i386            /usr/lib/wine/wine
run   wine64                 /usr/lib/wine/wine64
run   xvfb                   Xvfb
run   fonts-wine             /usr/share/wine/fonts/tahoma.ttf
check clang-format-14        clang-format-14
check shellcheck             shellcheck
fuzz  clang                  clang++
fuzz  libclang-rt-14-dev     /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-x86_64.a"

RELEASE_FILE=/etc/os-release
SETUP_LOG=build/setup.log

# Set where a package of this machine may be taken back to an older version for the sake of ours.
DOWNGRADE=''

cmd_setup() {
    if [[ ${1:-} == --downgrade ]]; then
        DOWNGRADE=yes
        shift
    fi
    no_arguments setup "$@"
    ensure build run check fuzz
    say "All that kiv needs is installed."
}

# ensure PURPOSE ...: fast and silent when nothing is missing for these purposes. If something is, everything that
# is missing gets installed, and at once: where a mirror offers older versions for one architecture than for the other,
# what was installed earlier for the one may rule out what the other needs.
ensure() {
    local missing
    if [[ $(release_value ID) != debian || $(release_value VERSION_ID) != 12 ]]; then
        ensure_elsewhere "$@"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]} == 0)) && return
    mapfile -t missing < <(missing_packages build run check fuzz)
    install "${missing[@]}"
}

release_value() {
    sed -n "s/^$1=\"\{0,1\}\([^\"]*\)\"\{0,1\}\$/\1/p" "$RELEASE_FILE" 2>/dev/null
}

# rows_for PURPOSE ...: their lines of the table.
rows_for() {
    local purpose package used
    while read -r purpose package used; do
        [[ " $* " != *" $purpose "* ]] || printf '%s %s\n' "$package" "$used"
    done <<<"$PACKAGES"
}

missing_packages() {
    local wanted
    mapfile -t wanted < <(rows_for "$@" | cut -d' ' -f1)
    # A package of this machine's own architecture is listed both with and without it.
    comm -23 <(printf '%s\n' "${wanted[@]}" | LC_ALL=C sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n${db:Status-Status} ${Package}:${Architecture}\n' \
            "${wanted[@]}" 2>/dev/null | sed -n 's/^installed //p' | LC_ALL=C sort -u)
}

# Another system: its packages are its owner's business, so only look whether the tools are there.
ensure_elsewhere() {
    local package used absent=()
    while read -r package used; do
        [[ -e $used ]] || command -v "$used" >/dev/null || absent+=("$used (Debian: $package)")
    done < <(rows_for "$@")
    ((${#absent[@]} == 0)) || die "this is not Debian 12, and these tools are missing:" "${absent[@]}" \
        "Install them in this system's own way, then run the command again."
    note "this is not Debian 12; going on with the tools that are installed."
}

install() {
    local codename missing log=$SETUP_LOG
    codename=$(release_value VERSION_CODENAME)
    say "Installing what is missing: $*"
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        die "installing packages needs root, and there is no sudo here." \
            "As root: dpkg --add-architecture i386; apt-get update; apt-get install -y $*"
    fi
    # Asked for here, because the steps have no terminal to ask on.
    ((EUID == 0)) || sudo -v
    if [[ " $* " == *:i386\ * ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
        as_root dpkg --add-architecture i386
    fi
    # One index that cannot be had need not matter: the packages may well come from the others.
    step "Package lists" "$log.lists" apt update ||
        note "some package lists could not be had; going on with the others."
    step "Packages" "$log" apt install "$@" || install_older "$codename" "$@" || true
    mapfile -t missing < <(missing_packages build run check fuzz)
    ((${#missing[@]} == 0)) && return
    tail -n 15 "$log" >&2
    die "these packages could not be installed: ${missing[*]}" \
        "The messages above are apt's ($SETUP_LOG* has all of them). See that the network and the package" \
        "mirror work, then run ./kiv setup again." \
        "Where the mirror's lists for amd64 and i386 are out of step, it helps to wait until it has caught up, or" \
        "to let newer packages of this machine go back to $codename's versions: ./kiv setup --downgrade"
}

# Where the lists of two architectures are out of step, only the versions of the release itself fit together.
# install_older CODENAME PACKAGE ...
install_older() {
    local codename=$1 pin
    shift
    say "The newest versions do not fit together here; trying those of $codename itself."
    step "Packages of $codename" "$SETUP_LOG.$codename" apt -t "$codename" install "$@" && return
    [[ -n $DOWNGRADE ]] || return
    # Installed packages go back as well, but only those that have to. The mirror is the reason, not the machine.
    pin=$(mktemp)
    printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$codename" >"$pin"
    step "Packages, taking others back" "$SETUP_LOG.older" \
        apt --allow-downgrades -o Dir::Etc::Preferences="$pin" install "$@"
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@"
}

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}
