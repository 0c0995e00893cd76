# shellcheck shell=bash
# What all commands share: messages, long steps, options, the lock of the build tree, and leaving nothing behind.

if [[ -t 1 && -z ${NO_COLOR:-} && ${TERM:-dumb} != dumb ]]; then
    LIVE=yes BOLD=$'\e[1m' RED=$'\e[31m' YELLOW=$'\e[33m' PLAIN=$'\e[0m'
else
    LIVE='' BOLD='' RED='' YELLOW='' PLAIN=''
fi

say() { printf '%s\n' "$*"; }

note() { printf '%s\n' "${YELLOW}kiv: $*${PLAIN}" >&2; }

# die WHAT-WENT-WRONG [WHAT-TO-DO ...]
die() {
    printf '%s\n' "${RED}${BOLD}kiv: $1${PLAIN}" >&2
    shift
    (($# == 0)) || printf '     %s\n' "$@" >&2
    exit 1
}

# As die, for a command line that cannot be meant.
misused() {
    (die "$@") || exit 2
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
    mkdir -p build
    exec 9>>build/.lock
    if ! flock -n 9; then
        say "Waiting for $(cat build/.lock) to finish in this tree ..."
        flock 9
    fi
    printf 'kiv %s (process %s)\n' "$*" $$ >build/.lock
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
    local title=$1 log=$2 begin=$EPOCHREALTIME status=0
    shift 2
    printf '  %-42s' "$title"
    mkdir -p "${log%/*}"
    launch "$@" >"$log" 2>&1
    if [[ -n $LIVE ]]; then
        while kill -0 "$JOB" 2>/dev/null; do
            printf '\r  %-42s %6s s' "$title" "$(seconds_since "$begin")"
            sleep 0.1
        done
        printf '\r  %-42s' "$title"
    fi
    job_status || status=$?
    TOOK=$(seconds_since "$begin")
    if ((status == 0)); then
        printf ' %6s s\n' "$TOOK"
    else
        printf ' %6s s  %s\n' "$TOOK" "${RED}failed${PLAIN}"
    fi
    return "$status"
}

# seconds_since EPOCHREALTIME-THEN, with one decimal. The locale may write that variable with a comma.
seconds_since() {
    local tenths=$(((${EPOCHREALTIME//[.,]/} - ${1//[.,]/}) / 100000))
    printf '%d.%d' $((tenths / 10)) $((tenths % 10))
}

# Runs before kiv ends, however it ends. Modules that start something redefine nothing: they add a function here.
AT_END=()
at_end() { AT_END+=("$1"); }

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
