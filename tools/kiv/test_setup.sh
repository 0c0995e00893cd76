#!/usr/bin/env bash
# Lets the set-up loose on pretended machines: a package manager of our own stands first on the path, writes down
# what it is asked for, and fails where a case says so.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/kiv/ui.sh
source tools/kiv/setup.sh

machine=$(mktemp -d)
remove_machine() { rm -rf "$machine"; }
at_end remove_machine
SETUP_LOG=$machine/log RELEASE_FILE=$machine/os-release
# Nothing is kept in build/.
must_be_writable() { :; }
export machine
PATH=$machine/bin:$PATH
failures=0

mkdir "$machine/bin" "$machine/temporary"
export TMPDIR=$machine/temporary
fake() {
    printf '#!/bin/bash\n%s\n' "$2" >"$machine/bin/$1"
    chmod +x "$machine/bin/$1"
}
# shellcheck disable=SC2016 # these are the fakes' own variables
{
    fake sudo '[[ $1 == -v ]] || "$@"'
    fake dpkg 'case $1 in
        --print-architecture) echo amd64 ;;
        --print-foreign-architectures) cat "$machine/architectures" ;;
        --add-architecture) echo "$2" >>"$machine/architectures" ;;
        esac'
    fake dpkg-query 'for name in "${@:4}"; do
            # A name alone means every architecture of the package.
            for known in "$name" "$name:i386" "$name:all"; do
                grep -qx "$known" "$machine/installed" || continue
                [[ $known == *:* ]] || known+=:amd64
                printf "installed %s\n" "$known"
            done
        done'
    # Options first, as kiv calls it. What was asked for is kept without those that say nothing about versions.
    fake apt-get 'versions=newest
        while [[ $1 == -* ]]; do
            case $1 in
            -t) versions=release ;;
            --allow-downgrades) versions=older ;;
            esac
            [[ $1 != -[ot] ]] || shift
            shift
        done
        if [[ $1 == update ]]; then
            echo update >>"$machine/asked"
            exit "$update"
        fi
        shift
        echo "$versions: $*" >>"$machine/asked"
        ((${!versions} == 0)) || exit 100
        printf "%s\n" "$@" >>"$machine/installed"'
}

# on MACHINE: a fresh one, with this system and these packages; apt-get's statuses are update, newest, release, older.
on() {
    printf 'ID=%s\nVERSION_ID="%s"\nVERSION_CODENAME=bookworm\n' "$1" "$2" >"$RELEASE_FILE"
    shift 2
    printf '%s\n' "$@" >"$machine/installed"
    rm -f "$machine"/{architectures,asked}
    touch "$machine"/{architectures,asked}
    export update=0 newest=0 release=0 older=0
}

run() { hear ensure "$@"; }

hear() {
    status=0
    printed=$( (trap - EXIT; "$@") 2>&1) || status=$?
    asked=$(<"$machine/asked")
}

# expect WHAT ACTUAL PATTERN
expect() {
    # shellcheck disable=SC2053 # a pattern
    [[ $2 == $3 ]] && return
    printf 'tools/kiv/test_setup.sh:%s: %s is "%s", expected "%s"\n' "${BASH_LINENO[0]}" "$1" "$2" "$3"
    failures=$((failures + 1))
}

PACKAGES='build g++ bash
build cmake bash
run wine32:i386 bash
fuzz clang bash'

# Nothing is missing for the purpose, although something is for another.
on debian 12 g++ cmake wine32:i386
run build run
expect status $status 0
expect output "$printed" ''
expect calls "$asked" ''

# Something is missing: then everything comes at once.
on debian 12 g++
run build
expect status $status 0
expect calls "$asked" $'update\nnewest: clang cmake wine32:i386'
expect architectures "$(<"$machine/architectures")" i386

on debian 12 g++ cmake wine32:i386
run fuzz
expect calls "$asked" $'update\nnewest: clang'
expect architectures "$(<"$machine/architectures")" ''

on debian 12 g++ cmake clang
update=100
run run
expect status $status 0
expect output "$printed" '*some package lists could not be had*'
expect calls "$asked" $'update\nnewest: wine32:i386'

on debian 12 g++ clang
newest=100
run run
expect status $status 0
expect calls "$asked" $'update\nnewest: cmake wine32:i386\nrelease: cmake wine32:i386'

# Other packages are taken back only where that was asked for.
on debian 12 g++ clang
newest=100 release=100
run run
expect status $status 1
expect output "$printed" '*could not be installed: cmake wine32:i386*'
expect calls "$asked" $'update\nnewest: cmake wine32:i386\nrelease: cmake wine32:i386'

on debian 12 g++ clang
newest=100 release=100
DOWNGRADE=yes
run run
expect status $status 0
expect calls "$asked" $'update\nnewest: cmake wine32:i386\nrelease: cmake wine32:i386\nolder: cmake wine32:i386'

on debian 12 g++ clang
newest=100 release=100 older=100
run run
expect status $status 1
expect output "$printed" '*could not be installed: cmake wine32:i386*'
expect 'what is left of it' "$(ls "$TMPDIR")" ''
DOWNGRADE=''

# One architecture of a package is not the other; one of no architecture is any.
PACKAGES='run libodbc2 bash
run libodbc2:i386 bash
run fonts bash'
on debian 12 libodbc2:i386 fonts:all
run run
expect calls "$asked" $'update\nnewest: libodbc2'

# What only some tests need comes by itself, and need not come.
PACKAGES='run wine bash
extra postgresql bash
extra odbc-postgresql bash'
on debian 12 wine
run run
expect output "$printed" ''
expect calls "$asked" ''

on debian 12
run run
expect status $status 0
expect calls "$asked" $'update\nnewest: wine\nnewest: odbc-postgresql postgresql'

on debian 12 wine postgresql
hear cmd_setup
expect status $status 0
expect calls "$asked" $'update\nnewest: odbc-postgresql'

on debian 12 wine
newest=100 release=100
hear cmd_setup
expect status $status 0
expect output "$printed" '*could not be installed: odbc-postgresql postgresql (*Tests that need them are skipped.*'
expect calls "$asked" $'update\nnewest: odbc-postgresql postgresql\nrelease: odbc-postgresql postgresql'

on fedora 40
hear cmd_setup
expect calls "$asked" ''

# Elsewhere nothing is installed, only looked for.
PACKAGES='build g++ bash'
on fedora 40
run build
expect status $status 0
expect output "$printed" '*not Debian 12; going on*'
expect calls "$asked" ''

PACKAGES='build g++ no-such-compiler'
on debian 13
run build
expect status $status 1
expect output "$printed" '*not Debian 12*no-such-compiler (Debian: g++)*'
expect calls "$asked" ''

((failures == 0))
