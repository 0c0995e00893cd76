# shellcheck shell=bash
# Makes the pictures of the documentation.

# Each form in docs/pictures/ has a script that brings it into the state to be shown. The README shows the demo's, and
# docs/accessibility.md shows that as people see it whose system is set differently.
cmd_docs() {
    no_arguments docs "$@"
    local base
    ensure build run
    lock_tree docs
    build_product x86
    # Room for a form of twice the size.
    start_display 2560x1440
    open_registered_prefix x86
    manage_windows N FolioHost
    make_codes "$DEMO_CODES" examples/codes.sql
    mkdir -p docs/pictures
    step docs/reference.md build/docs/reference.log make_reference
    while read -r base; do
        make_picture "${base##*/}" "$base"
    done < <(printf '%s\n' examples/interview && find docs/pictures -name '*.form' | sed 's/\.form$//' | LC_ALL=C sort)
    make_picture interview-themed examples/interview --themed
    make_picture interview-18-points examples/interview --points 18
    use_other_settings
    paint_in_high_contrast '0 0 0' '255 255 255'
    make_picture interview-black examples/interview
    paint_in_high_contrast '255 255 255' '0 0 0'
    make_picture interview-white examples/interview
    use_other_settings
    set_resolution 192
    make_picture interview-200-percent examples/interview
    rm -rf "$WINEPREFIX"
}

make_reference() { reference >docs/reference.md; }

# make_picture NAME BASE [OPTION ...]: BASE.form as BASE.script leaves it.
make_picture() {
    local picture=docs/pictures/$1.png
    step "$picture" "build/docs/$1.log" \
        play_script "$(host_program x86)" --database "$(windows_path "$ROOT/$DEMO_CODES")" "${@:3}" "$ROOT/$2" "$ROOT/$picture" || {
        tail -n 10 "build/docs/$1.log" >&2
        die "the host made no picture of $2.form." "Its messages are in build/docs/$1.log."
    }
}

# A copy of the prefix, for settings that are a person's, and not the tests'.
use_other_settings() {
    local usual=$ROOT/build/x86/wine
    stop_wine
    export WINEPREFIX=$usual-docs
    [[ " ${WINE_PREFIXES[*]} " == *" $WINEPREFIX "* ]] || WINE_PREFIXES+=("$WINEPREFIX")
    rm -rf "$WINEPREFIX"
    cp -a "$usual/." "$WINEPREFIX"
}

# paint_in_high_contrast GROUND TEXT: the colours of the schemes that Windows has for that.
paint_in_high_contrast() {
    local ground=$1 text=$2 name file=build/docs/colours.reg
    {
        printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Control Panel\\Colors]\n'
        for name in Window ButtonFace Menu InfoWindow Scrollbar AppWorkspace Background ActiveTitle InactiveTitle \
            GradientActiveTitle GradientInactiveTitle ActiveBorder InactiveBorder; do
            printf '"%s"="%s"\n' "$name" "$ground"
        done
        for name in WindowText ButtonText MenuText InfoText WindowFrame TitleText InactiveTitleText; do
            printf '"%s"="%s"\n' "$name" "$text"
        done
        printf '"GrayText"="0 %s 0"\n"Hilight"="128 0 128"\n"HilightText"="255 255 255"\n' \
            "$([[ $ground == 0* ]] && echo 255 || echo 128)"
        printf '"ButtonHilight"="192 192 192"\n"ButtonLight"="192 192 192"\n"ButtonShadow"="128 128 128"\n'
        printf '"ButtonDkShadow"="%s"\n' "$text"
    } >"$file"
    wine regedit /S "$(windows_path "$ROOT/$file")" 9>&-
}
