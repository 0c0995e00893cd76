# shellcheck shell=bash
# Which packages the commands need, and how a bare Debian 12 gets them.

# Purpose, Debian package, the command or file that is used from it. Without the extra ones some tests are skipped.
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
run   libodbc2:i386          /usr/lib/i386-linux-gnu/libodbc.so.2
run   libodbc2               /usr/lib/x86_64-linux-gnu/libodbc.so.2
run   libsqliteodbc:i386     /usr/lib/i386-linux-gnu/odbc/libsqlite3odbc.so
run   libsqliteodbc          /usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so
run   sqlite3                sqlite3
extra odbc-postgresql:i386   /usr/lib/i386-linux-gnu/odbc/psqlodbcw.so
extra odbc-postgresql        /usr/lib/x86_64-linux-gnu/odbc/psqlodbcw.so
extra postgresql             psql
check clang-format-14        clang-format-14
check shellcheck             shellcheck
package nsis                 makensis
package zip                  zip
package unzip                unzip
fuzz  clang                  clang++
fuzz  libclang-rt-14-dev     /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-x86_64.a"

RELEASE_FILE=/etc/os-release
SETUP_LOG=build/setup.log

# Set where a package of this machine may be taken back to an older version for the sake of ours.
DOWNGRADE=''
LISTS_FETCHED=''

cmd_setup() {
    if [[ ${1:-} == --downgrade ]]; then
        DOWNGRADE=yes
        shift
    fi
    no_arguments setup "$@"
    ensure build run check fuzz package
    if on_debian_12; then install_extra; fi
    say "All that kiv needs is installed."
}

on_debian_12() { [[ $(release_value ID) == debian && $(release_value VERSION_ID) == 12 ]]; }

# ensure PURPOSE ...: fast and silent when nothing is missing for these purposes. If something is, everything that
# is missing gets installed, and at once: where a mirror offers older versions for one architecture than for the other,
# what was installed earlier for the one may rule out what the other needs.
ensure() {
    local missing
    if ! on_debian_12; then
        ensure_elsewhere "$@"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]} == 0)) && return
    mapfile -t missing < <(missing_packages build run check fuzz package)
    install "${missing[@]}"
    install_extra
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
    local wanted own
    mapfile -t wanted < <(rows_for "$@" | cut -d' ' -f1)
    ((${#wanted[@]})) || return 0
    # A name without an architecture means this machine's own, or none.
    own=$(dpkg --print-architecture)
    comm -23 <(printf '%s\n' "${wanted[@]}" | LC_ALL=C sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}:${Architecture}\n' "${wanted[@]}" 2>/dev/null |
            sed -En "s/:($own|all)\$//; s/^installed //p" | LC_ALL=C sort -u)
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
    local missing
    fetch "$SETUP_LOG" "$@"
    mapfile -t missing < <(missing_packages build run check fuzz package)
    ((${#missing[@]} == 0)) && return
    tail -n 15 "$SETUP_LOG" >&2
    die "these packages could not be installed: ${missing[*]}" \
        "The messages above are apt's ($SETUP_LOG* has all of them). See that the network and the package" \
        "mirror work, then run ./kiv setup again." \
        "Where the mirror's lists for amd64 and i386 are out of step, it helps to wait until it has caught up, or" \
        "to let newer packages of this machine go back to $(release_value VERSION_CODENAME)'s versions:" \
        "./kiv setup --downgrade"
}

# By itself, so that what can be done without stands in the way of nothing; not tried again by every command.
install_extra() {
    local missing
    mapfile -t missing < <(missing_packages extra)
    ((${#missing[@]} == 0)) && return
    fetch "$SETUP_LOG.extra" "${missing[@]}"
    mapfile -t missing < <(missing_packages extra)
    ((${#missing[@]} == 0)) ||
        note "could not be installed: ${missing[*]} ($SETUP_LOG.extra says why). Tests that need them are skipped."
}

# fetch LOG PACKAGE ...: as far as they can be had.
fetch() {
    local log=$1
    shift
    must_be_writable
    say "Installing what is missing: $*"
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        die "installing packages needs root, and there is no sudo here." \
            "As root: dpkg --add-architecture i386; apt-get update; apt-get install -y $*"
    fi
    # Asked for here, because the steps have no terminal to ask on.
    ((EUID == 0)) || sudo -v
    if [[ " $* " == *:i386\ * ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
        as_root dpkg --add-architecture i386
        LISTS_FETCHED=''
    fi
    if [[ -z $LISTS_FETCHED ]]; then
        # One index that cannot be had need not matter: the packages may well come from the others.
        step "Package lists" "$log.lists" apt update ||
            note "some package lists could not be had; going on with the others."
        LISTS_FETCHED=yes
    fi
    step "Packages" "$log" apt install "$@" || install_older "$log" "$@" || true
}

# Where the lists of two architectures are out of step, only the versions of the release itself fit together.
# install_older LOG PACKAGE ...
install_older() {
    local log=$1 codename pin status=0
    codename=$(release_value VERSION_CODENAME)
    shift
    say "The newest versions do not fit together here; trying those of $codename itself."
    step "Packages of $codename" "$log.$codename" apt -t "$codename" install "$@" && return
    [[ -n $DOWNGRADE ]] || return
    # Installed packages go back as well, but only those that have to. The mirror is the reason, not the machine.
    pin=$(mktemp)
    printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$codename" >"$pin"
    step "Packages, taking others back" "$log.older" \
        apt --allow-downgrades -o Dir::Etc::Preferences="$pin" install "$@" || status=$?
    rm "$pin"
    return "$status"
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@"
}

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}
