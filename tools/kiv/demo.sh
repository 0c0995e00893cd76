# shellcheck shell=bash
# Shows the library in its host: the sample interview.

# A script that has not answered the form by then hangs. In seconds.
DEMO_LIMIT=120

cmd_demo() {
    local headless='' argument arch host options status=0
    take_arch "$@"
    for argument in "${REST[@]}"; do
        [[ $argument == --headless ]] || misused "demo does not know $argument" "It takes --headless and --arch."
        headless=yes
    done
    ((${#ARCHES[@]} == 1)) || misused "demo shows one architecture at a time" "Say --arch x86 or --arch x64."
    arch=${ARCHES[0]}
    # Wine draws through X11; a Wayland desktop offers that as well, under the same variable.
    [[ -n ${DISPLAY:-} ]] || headless=yes

    ensure build run
    lock_tree demo
    build_product "$arch"
    [[ -z $headless ]] || start_display
    open_registered_prefix "$arch"
    mkdir -p build/demo
    host=(wine "$(host_program "$arch")")
    options=(--log "$(windows_path "$ROOT/build/demo/transcript.jsonl")")
    if [[ -n $headless ]]; then
        host=(timeout --kill-after=10 "$DEMO_LIMIT" "${host[@]}")
        options+=(--script "$(windows_path "$ROOT/examples/interview.script")"
            --shot "$(windows_path "$ROOT/build/demo/interview.png")")
        say "A script answers the interview:"
    else
        say "The interview is open; close its window to end. Its log:"
    fi
    attend "${host[@]}" "${options[@]}" "$(windows_path "$ROOT/examples/interview.form")" || status=$?
    conclude_demo "$status" "$headless"
}

# conclude_demo STATUS HEADLESS: the status of the host is that of the demo.
conclude_demo() {
    case $1 in
    0) say "The log is in build/demo/transcript.jsonl${2:+, the picture in build/demo/interview.png}." ;;
    124 | 137) die "the interview was not answered within $DEMO_LIMIT seconds." \
        "build/demo/transcript.jsonl shows how far it came." ;;
    *)
        note "the host ended with status $1; the log above says why, and build/demo/transcript.jsonl keeps it."
        exit "$1"
        ;;
    esac
}
