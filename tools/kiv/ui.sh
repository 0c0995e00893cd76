# shellcheck shell=bash
# What all commands share: messages, long steps, options, the lock of the build tree, and leaving nothing behind.

# A stream that the caller has closed is one that nobody listens to.
{ : 8>&1; } 2>/dev/null || exec >/dev/null
: 8>&2 || exec 2>/dev/null

# What the caller says of COLUMNS is not to be overwritten by the size of a terminal.
shopt -u checkwinsize

if [[ -t 1 && -z ${NO_COLOR:-} && ${TERM:-dumb} != dumb ]]; then
    LIVE=yes BOLD=$'\e[1m' RED=$'\e[31m' YELLOW=$'\e[33m' PLAIN=$'\e[0m'
else
    LIVE='' BOLD='' RED='' YELLOW='' PLAIN=''
fi

# find_width: WIDTH is how long a line may be. What is no terminal has room for any, unless COLUMNS says otherwise.
find_width() {
    WIDTH=${COLUMNS:-}
    if [[ -z $WIDTH && -t 1 ]]; then
        { WIDTH=$(stty size); } <&1 2>/dev/null || true
        WIDTH=${WIDTH#* }
    fi
    [[ $WIDTH =~ ^[1-9][0-9]{0,3}$ ]] || WIDTH=1000
    ((WIDTH >= 40)) || WIDTH=40
}

# put FORMAT [ARGUMENT ...]: as printf, to whoever reads what kiv says; when nobody does so any more, it ends.
put() {
    # shellcheck disable=SC2059 # the caller's
    printf "$@" 2>/dev/null || die "its output cannot be written any more."
}

say() { put '%s\n' "$*"; }

note() { printf '%s\n' "${YELLOW}kiv: $*${PLAIN}" >&2; }

# die WHAT-WENT-WRONG [WHAT-TO-DO ...]
die() {
    printf '%s\n' "${RED}${BOLD}kiv: $1${PLAIN}" >&2
    shift
    (($# == 0)) || printf '     %s\n' "$@" >&2
    exit 1
}

# As die, for a command line that cannot be meant. What it quotes may hold line breaks and worse.
misused() {
    (die "${1//[[:cntrl:]]/ }" "${@:2}") || exit 2
}

# one_of WORD [KNOWN ...]
one_of() {
    local known
    for known in "${@:2}"; do
        [[ $known != "$1" ]] || return 0
    done
    return 1
}

# must_be_number_of UNIT WORD
must_be_number_of() {
    [[ $2 =~ ^[1-9][0-9]{0,4}$ ]] || misused "'$2' is no number of $1 to go by" "It takes 1 to 99999."
}

no_arguments() {
    local command=$1
    shift
    (($# == 0)) || misused "$command does not know: $*" "./kiv help tells what it takes."
}

# Takes --arch out of the arguments: ARCHES holds what was asked for, REST everything else.
take_arch() {
    ARCHES=(x86) REST=()
    while (($#)); do
        case $1 in
        --arch)
            (($# > 1)) || misused "--arch needs a value" "x86, x64 or all."
            set_arches "$2"
            shift
            ;;
        --arch=*) set_arches "${1#--arch=}" ;;
        *) REST+=("$1") ;;
        esac
        shift
    done
}

set_arches() {
    case $1 in
    x86 | x64) ARCHES=("$1") ;;
    all) ARCHES=(x86 x64) ;;
    *) misused "'$1' is no architecture" "--arch takes x86, x64 or all." ;;
    esac
}

# Descriptor 9 holds the lock as long as this kiv lives. Whatever outlives one call (a wineserver) is started
# with 9>&-, or it would go on holding it.
lock_tree() {
    must_be_writable
    exec 9>>build/.lock
    if ! flock -n 9; then
        say "Waiting for $(cat build/.lock) to finish in this tree ..."
        flock 9
    fi
    printf 'kiv %s (process %s)\n' "$*" $$ >build/.lock
}

# What another user has built here is not ours to change.
must_be_writable() {
    local locked
    mkdir -p build 2>/dev/null || die "$(id -un) cannot make the folder build/ here." "Run kiv in a tree of your own."
    locked=$(find build/ -maxdepth 2 \( -type d -o -name .lock \) ! -writable -print -quit 2>/dev/null)
    [[ -z $locked ]] || die "$(id -un) cannot write to $locked, which is $(stat -c %U "$locked")'s." \
        "Run kiv as that user, or in a tree of your own."
}

# launch COMMAND ...: starts it in a process group of its own, so that stopping kiv stops all of it.
JOB=''
launch() {
    set -m
    "$@" </dev/null 9>&- &
    JOB=$!
    set +m
}

# Waits for what was launched, and has its exit status.
job_status() {
    local status=0
    wait "$JOB" || status=$?
    JOB=''
    return "$status"
}

# attend COMMAND ...: its output goes where kiv's own goes.
attend() {
    launch "$@"
    job_status
}

stop_job() {
    [[ -n $JOB ]] || return 0
    kill -TERM -- "-$JOB" 2>/dev/null || true
    wait "$JOB" 2>/dev/null || true
    JOB=''
}

# step TITLE LOG COMMAND ...: one line with the title and the seconds it took; the output goes to LOG.
step() {
    local title log=$2 begin=$EPOCHREALTIME status=0
    find_width
    title=$(fit_title "$1")
    shift 2
    put '  %s' "$title"
    mkdir -p "${log%/*}"
    launch "$@" >"$log" 2>&1
    if [[ -n $LIVE ]]; then
        while kill -0 "$JOB" 2>/dev/null; do
            put '\r  %s %6s s' "$title" "$(seconds_since "$begin")"
            sleep 0.1
        done
        put '\r  %s' "$title"
    fi
    job_status || status=$?
    TOOK=$(seconds_since "$begin")
    put ' %6s s%s\n' "$TOOK" "$( ((status == 0)) || printf '%s' "  ${RED}failed${PLAIN}")"
    return "$status"
}

# fit_title TITLE: in a column of its own, shorter where the line has no room for the seconds and an outcome after it.
fit_title() {
    local title=$1 room=$((WIDTH - 20))
    ((${#title} <= room)) || title=${title:0:room-3}...
    printf '%-*s' $((room < 42 ? room : 42)) "$title"
}

# seconds_since EPOCHREALTIME-THEN, with one decimal. The locale may write that variable with a comma.
seconds_since() {
    local tenths=$(((${EPOCHREALTIME//[.,]/} - ${1//[.,]/}) / 100000))
    printf '%d.%d' $((tenths / 10)) $((tenths % 10))
}

# Runs before kiv ends, however it ends: what was started last, on what was there before, is stopped first. Modules that
# start something redefine nothing: they add a function here.
AT_END=()
at_end() { AT_END=("$1" "${AT_END[@]}"); }

clean_up() {
    local status=$? action
    trap - EXIT INT TERM HUP
    stop_job
    for action in "${AT_END[@]}"; do "$action" || true; done
    exit "$status"
}
trap clean_up EXIT
trap 'say; exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP
