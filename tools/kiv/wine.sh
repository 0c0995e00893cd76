# shellcheck shell=bash
# Runs Windows programs: a display of kiv's own, and a Wine prefix for each build tree.

# The prompts for .NET and browser packages, and menu entries in the user's desktop, are left out.
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'

# What runs unwatched gets a display of its own, since its input must reach its own windows only, and one locale.
# start_display [SIZE]
start_display() {
    local number
    export LC_ALL=C.UTF-8 XENVIRONMENT=$ROOT/tools/kiv/display.resources
    # It dies with kiv, even where kiv is killed without a chance to clean up, but not of the interrupt that ends kiv:
    # what it shows would complain.
    exec {XVFB_OUTPUT}< <(exec setsid setpriv --pdeathsig TERM Xvfb -displayfd 1 -screen 0 "${1:-1280x1024}x24" \
        -nolisten tcp -noreset 2>build/xvfb.log 9>&-)
    XVFB=$!
    at_end stop_display
    if ! read -r -t 30 -u "$XVFB_OUTPUT" number; then
        tail -n 5 build/xvfb.log >&2
        die "Xvfb did not start." "Its messages are in build/xvfb.log."
    fi
    export DISPLAY=:$number
}

stop_display() {
    kill "$XVFB" 2>/dev/null || true
    wait "$XVFB" 2>/dev/null || true
}

# use_prefix ARCH [unseen]: the prefix of this build tree is the current one from here on; an unseen one has windows that
# are shown nowhere, which are there to a program like any other and take Wine two thirds of the time. It is made when it
# is not there, or another user's, whom alone Wine would serve, or when what it is made by has changed since.
use_prefix() {
    local name=wine${2:+-$2} driver=x11 twin=''
    [[ ${2-} != unseen ]] || { driver=null && twin=$ROOT/build/$1/wine; }
    export WINEPREFIX=$ROOT/build/$1/$name
    if [[ $1 == x86 ]]; then export WINEARCH=win32; else export WINEARCH=win64; fi
    if ((${#WINE_PREFIXES[@]} == 0)); then at_end stop_wine; fi
    WINE_PREFIXES+=("$WINEPREFIX")
    is_made "$WINEPREFIX" && return
    rm -rf "$WINEPREFIX"
    step "Making the Wine prefix $1${2:+, $2} (about 15 s)" "build/$1/$name.log" twice make_prefix $driver "$twin" || {
        tail -n 10 "build/$1/$name.log" >&2
        die "the Wine prefix build/$1/$name could not be made." "All of Wine's messages: build/$1/$name.log"
    }
}
WINE_PREFIXES=()

is_made() { [[ -O $1 && $1/made-by-kiv -nt tools/kiv/wine.sh ]]; }

# use_resolution ARCH PIXELS: the unseen prefix once more, of a system that is set to so many pixels to the inch.
use_resolution() {
    local twin
    use_prefix "$1" unseen
    twin=$WINEPREFIX
    export WINEPREFIX=$twin-$2
    WINE_PREFIXES+=("$WINEPREFIX")
    [[ -O $WINEPREFIX && $WINEPREFIX/made-by-kiv -nt $twin/made-by-kiv ]] && return
    rm -rf "$WINEPREFIX"
    cp -a "$twin/." "$WINEPREFIX" && set_resolution "$2" && touch "$WINEPREFIX/made-by-kiv"
}

# set_resolution PIXELS: of the current prefix, which Wine has not started in: it looks at that as it starts.
set_resolution() {
    local setting
    printf -v setting '"LogPixels"=dword:%08x' "$1"
    sed -i -e "s/^\"LogPixels\"=.*/$setting/" -e "/^\[Control Panel\\\\\\\\Desktop\]/a $setting" "$WINEPREFIX/user.reg"
}

# make_prefix DRIVER TWIN: where windows are shown, and a prefix that may be there already and differs in nothing else.
make_prefix() {
    if [[ -n $2 ]] && is_made "$2"; then
        cp -a "$2/." "$WINEPREFIX" && show_windows "$1" && wineserver -w
        return
    fi
    # A crash is to end a test, not to wait in a dialog for somebody to read it.
    wineboot -i &&
        wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
        manage_windows N kiv-com-tests kiv-gui-tests kiv-clients-tests kiv-hostile-tests kiv-bench cscript FolioHost &&
        check_heap kiv-com-tests kiv-gui-tests kiv-clients-tests &&
        show_windows "$1" && wineserver -w && detach_home && add_fonts && touch "$WINEPREFIX/made-by-kiv"
}

# show_windows DRIVER
show_windows() { wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "$1" /f; }

# Debian's Wine does not look where Debian's package puts Tahoma and MS Sans Serif, without which dialogs are
# drawn in whatever font the machine has.
add_fonts() {
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts" &&
        cp /usr/share/wine/fonts/*.[tf]* "$WINEPREFIX/drive_c/windows/Fonts/"
}

# twice COMMAND ...: very seldom Wine cannot make a process, and says no more than that; at the next attempt it can.
# For what does no harm when it is done again.
twice() { "$@" || "$@"; }

# manage_windows Y|N PROGRAM ...: whether a window manager is asked to frame the program's windows. Where none
# answers, as on kiv's own display, Wine waits two seconds for one whenever a captioned window goes away; without
# one it draws captions itself.
manage_windows() {
    local program managed=$1
    for program in "${@:2}"; do
        wine reg add "HKCU\\Software\\Wine\\AppDefaults\\$program.exe\\X11 Driver" \
            /v Managed /t REG_SZ /d "$managed" /f 9>&- || return
    done >/dev/null
}

# Has the programs' heaps checked, so that the use of something freed ends in a crash instead of going unnoticed.
check_heap() {
    local program
    for program in "$@"; do
        wine reg add "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\$program.exe" \
            /v GlobalFlag /t REG_DWORD /d 0x70 /f 9>&- || return
    done >/dev/null
}

# Wine links the shell folders to those of the user; what runs here must not reach them.
detach_home() {
    local link
    find "$WINEPREFIX/drive_c/users" -type l | while read -r link; do
        rm "$link" && mkdir "$link" || return
    done
}

# Wine asks its server at almost every step, and each waits for the other: on one processor that takes less than half
# of the time that waking up another one does. For this shell and all that it starts from now on: one of the
# processors that it may use, the first for no NUMBER.
stay_on_one_processor() {
    local usable
    command -v taskset >/dev/null || return 0
    mapfile -t usable < <(usable_processors)
    taskset -cp "${usable[${1:-0}]:-0}" $BASHPID >/dev/null || return 0
}

usable_processors() {
    local first last
    taskset -cp $BASHPID | sed 's/.*: //' | tr , '\n' | while IFS=- read -r first last; do
        seq "$first" "${last:-$first}"
    done
}

stop_wine() {
    local prefix
    for prefix in "${WINE_PREFIXES[@]}"; do
        WINEPREFIX=$prefix wineserver -k 2>/dev/null || true
    done
}

windows_path() { wine winepath -w "$1" 2>/dev/null 9>&- | tr -d '\r'; }

# register ARCH: as any Windows machine would do it, with the system's own program.
register() {
    step "Registering the library ($1)" "build/$1/regsvr32.log" \
        twice wine regsvr32 /s "$(windows_path "$ROOT/$(library "$1")")"
}

# use_library ARCH [unseen]: in the prefix of its build tree, told to the test programs.
use_library() {
    use_prefix "$@"
    KIVCTLS_OCX=$(windows_path "$ROOT/$(library "$1")")
    KIV_SOURCE=$(windows_path "$ROOT")
    export KIVCTLS_OCX KIV_SOURCE
}

# open_registered_prefix ARCH: where a host finds the library.
open_registered_prefix() {
    use_prefix "$1"
    register "$1" && return
    tail -n 10 "build/$1/regsvr32.log" >&2
    die "regsvr32 could not register $(library "$1")." "build/$1/regsvr32.log has its messages, if it gave any."
}
