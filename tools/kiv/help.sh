# shellcheck shell=bash
# Tells what the commands are, from their list in kiv.

cmd_help() {
    (($# < 2)) || misused "help tells of one command or of all, not of: $*" "./kiv help lists them."
    (($# == 0)) || must_be_command "$1"
    find_width
    put '%s\n' "$(if (($#)); then show_command "$(row_of "$1")"; else list_commands; fi)"
}

must_be_command() { row_of "$1" >/dev/null || misused "there is no command '$1'" "./kiv help lists them."; }

# row_of COMMAND: its line of the list.
row_of() {
    local row
    while read -r row; do
        [[ ${row%%|*} != "$1" ]] || { printf '%s' "$row" && return; }
    done <<<"$COMMANDS"
    return 1
}

list_commands() {
    local row
    printf '%s' "${BOLD}kiv$PLAIN"
    wrap 3 ": builds, shows and proves the KivCtls control library"
    printf '\n  ./kiv COMMAND\n\n'
    while read -r row; do show_command "$row"; done <<<"$COMMANDS"
    printf '\n'
    wrap 0 "A is x86 (the default), x64 or all. Each command first installs and builds what it needs."
    wrap 0 "A WHAT with a dot or a wildcard picks single tests; groups beside it limit where they are looked for."
}

# show_command ROW: in columns, or on a narrow terminal with the summary below.
show_command() {
    local name arguments summary
    IFS='|' read -r name arguments summary <<<"$1"
    if ((WIDTH < 72)); then
        printf '  %s\n          ' "$BOLD$name$PLAIN${arguments:+ $arguments}"
        wrap 10 "$summary"
    else
        printf '  %s%-7s%s %-27s ' "$BOLD" "$name" "$PLAIN" "$arguments"
        wrap 38 "$summary"
    fi
}

# wrap INDENT TEXT: where the first line already stands that far in.
wrap() { fold -s -w $((WIDTH - $1)) <<<"$2" | sed "s/ *\$//; 2,\$s/^/$(printf '%*s' "$1" '')/"; }
