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
export machine
PATH=$machine/bin:$PATH
failures=0

mkdir "$machine/bin"
fake() {
    printf '#!/bin/bash\n%s\n' "$2" >"$machine/bin/$1"
    chmod +x "$machine/bin/$1"
}
# shellcheck disable=SC2016 # these are the fakes' own variables
{
    fake sudo '[[ $1 == -v ]] || "$@"'
    fake dpkg 'case $1 in
        --print-foreign-architectures) cat "$machine/architectures" ;;
        --add-architecture) echo "$2" >>"$machine/architectures" ;;
        esac'
    fake dpkg-query 'for name in "${@:4}"; do
            grep -qx "$name" "$machine/installed" && printf "installed %s\n" "${name%:*}" "$name"
        done'
    fake apt-get 'while [[ $1 == -* ]]; do [[ $1 != -o ]] || shift; shift; done
        echo "$*" >>"$machine/asked"
        case "$1 $2" in
        update*) exit "$update" ;;
        "install -t") shift 3 && ((release == 0)) || exit 100 ;;
        install*) shift && ((newest == 0)) || exit 100 ;;
        esac
        printf "%s\n" "$@" >>"$machine/installed"'
}

# on MACHINE: a fresh one, with this system and these packages; apt-get's statuses are update, newest, release.
on() {
    printf 'ID=%s\nVERSION_ID="%s"\nVERSION_CODENAME=bookworm\n' "$1" "$2" >"$RELEASE_FILE"
    shift 2
    printf '%s\n' "$@" >"$machine/installed"
    rm -f "$machine"/{architectures,asked}
    touch "$machine"/{architectures,asked}
    export update=0 newest=0 release=0
}

run() {
    status=0
    printed=$( (trap - EXIT; ensure "$@") 2>&1) || status=$?
    asked=$(<"$machine/asked")
}

# expect WHAT ACTUAL PATTERN
expect() {
    # shellcheck disable=SC2053 # a pattern
    [[ $2 == $3 ]] && return
    printf 'tools/kiv/test_setup.sh:%s: %s is "%s", expected "%s"\n' "${BASH_LINENO[0]}" "$1" "$2" "$3"
    failures=$((failures + 1))
}

mapfile -t build < <(rows_for build | cut -d' ' -f1 | sort)
mapfile -t run < <(rows_for run | cut -d' ' -f1 | sort)

on debian 12 "${build[@]}" "${run[@]}"
run build run
expect status $status 0
expect output "$printed" ''
expect calls "$asked" ''

on debian 12 "${build[@]}"
run build run
expect status $status 0
expect calls "$asked" "update"$'\n'"install ${run[*]}"
expect architectures "$(<"$machine/architectures")" i386

on debian 12 "${run[@]}"
run build
expect calls "$asked" "update"$'\n'"install ${build[*]}"
expect architectures "$(<"$machine/architectures")" ''

on debian 12 "${build[@]}"
update=100
run run
expect status $status 0
expect output "$printed" '*some package lists could not be had*'
expect calls "$asked" "update"$'\n'"install ${run[*]}"

on debian 12
newest=100
run run
expect status $status 0
expect calls "$asked" "update"$'\n'"install ${run[*]}"$'\n'"install -t bookworm ${run[*]}"

on debian 12 wine xvfb fonts-wine
newest=100 release=100
run run
expect status $status 1
expect output "$printed" '*could not be installed: wine32:i386 wine64*run ./kiv setup again.'

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
