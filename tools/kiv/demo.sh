# shellcheck shell=bash
# Shows the library in its host: the sample interview, and the pictures of the documentation.

# A script gives up by itself after 120 seconds; a host that takes longer hangs.
HOST_LIMIT=150
DEMO_CODES=build/demo/codes.db
DEMO_SPOKEN=build/demo/spoken.txt

cmd_demo() {
    local headless='' argument arch host status=0
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
    make_codes "$DEMO_CODES" examples/codes.sql
    host=("$(host_program "$arch")" --database "$(windows_path "$ROOT/$DEMO_CODES")" --log "$(windows_path "$ROOT/build/demo/transcript.jsonl")")
    if [[ -n $headless ]]; then
        manage_windows N FolioHost
        say "A script answers the interview:"
        attend play_script "${host[@]}" "$ROOT/examples/interview" "$ROOT/build/demo/interview.png" || status=$?
        ((status != 0)) || read_aloud "$arch" || status=$?
    else
        manage_windows Y FolioHost
        say "The interview is open; close its window to end. Its log:"
        attend wine "${host[@]}" --spoken "$(windows_path "$ROOT/$DEMO_SPOKEN")" \
            "$(windows_path "$ROOT/examples/interview.form")" || status=$?
    fi
    conclude_demo "$status" "$headless"
}

# play_script HOST [OPTION ...] BASE PICTURE: BASE.form, answered by BASE.script.
play_script() {
    local host=("${@:1:$#-2}") base=${*: -2:1} picture=${*: -1}
    timeout --foreground --kill-after=10 "$HOST_LIMIT" wine "${host[@]}" --script "$(windows_path "$base.script")" \
        --shot "$(windows_path "$picture")" "$(windows_path "$base.form")"
}

# read_aloud ARCH: once around the form with the Tab key.
read_aloud() {
    local host
    host=("$(host_program "$1")" --spoken "$(windows_path "$ROOT/$DEMO_SPOKEN")" --script "$(windows_path "$ROOT/examples/reading.script")")
    step "Reading the form aloud" build/demo/reading.log \
        timeout --foreground --kill-after=10 "$HOST_LIMIT" wine "${host[@]}" "$(windows_path "$ROOT/examples/interview.form")"
}

# conclude_demo STATUS HEADLESS: the status of the host is that of the demo.
conclude_demo() {
    case $1 in
    0)
        say "The log is in build/demo/transcript.jsonl${2:+, the picture in build/demo/interview.png}."
        say "What a screen reader says on the way is in $DEMO_SPOKEN."
        ;;
    124 | 137) die "the host did not end within $HOST_LIMIT seconds." \
        "build/demo/transcript.jsonl shows how far it came." ;;
    *)
        note "the host ended with status $1; the log above says why, and build/demo/transcript.jsonl keeps it."
        exit "$1"
        ;;
    esac
}
