# Reads the contract's IDL files for a program that writes something of it. That has the functions
#   begin_type(kind, name, attributes)  kind is library, enum, interface, dispinterface or coclass
#   take_member(attributes, text)       a member of it, without the semicolon; the attributes stand in brackets
#   end_type(), finish()
# and is named after this one: awk -f tools/contract/idl.awk -f PROGRAM KivControls.idl PART.idl ...
# The parts are read where the first file includes them, whatever their order is there.

function trimmed(text) {
    gsub(/^[ \t\n]+|[ \t\n]+$/, "", text)
    return text
}

function uuid_of(attributes) {
    return match(attributes, /uuid\([^)]*\)/) ? substr(attributes, RSTART + 5, RLENGTH - 6) : ""
}

function help_of(attributes,    text) {
    if (!match(attributes, /helpstring\("[^"]*"\)/))
        return ""
    text = substr(attributes, RSTART + 12, RLENGTH - 14)
    gsub(/\001/, ";", text)
    gsub(/\002/, "{", text)
    gsub(/\003/, "}", text)
    return text
}

function number_of(attributes,    id) {
    if (!match(attributes, /[\[ ,]id\([^)]*\)/))
        return ""
    id = substr(attributes, RSTART + 4, RLENGTH - 5)
    return id in defined ? defined[id] : id
}

# The text with what separates statements, where that stands in a quoted text, exchanged for what stands nowhere.
function protected(line,    parts, count, i, result) {
    count = split(line, parts, "\"")
    result = parts[1]
    for (i = 2; i <= count; ++i) {
        if (i % 2 == 0) {
            gsub(/;/, "\001", parts[i])
            gsub(/{/, "\002", parts[i])
            gsub(/}/, "\003", parts[i])
        }
        result = result "\"" parts[i]
    }
    return result
}

# Leading attributes, in brackets, of a statement: ATTRIBUTES, and in STATEMENT what is left.
function take_attributes(text,    depth, i, letter) {
    ATTRIBUTES = ""
    STATEMENT = text = trimmed(text)
    if (substr(text, 1, 1) != "[")
        return
    for (i = 1; i <= length(text); ++i) {
        letter = substr(text, i, 1)
        depth += (letter == "[") - (letter == "]")
        if (depth == 0)
            break
    }
    ATTRIBUTES = substr(text, 1, i)
    STATEMENT = trimmed(substr(text, i + 1))
}

function open_type(text,    words) {
    sub(/^[ \t\n]*typedef[ \t\n]+/, "", text)
    take_attributes(text)
    split(STATEMENT, words, /[ \t\n:]+/)
    kind = words[1]
    begin_type(kind, words[2], ATTRIBUTES)
}

function close_enumeration(text,    members, count, i) {
    count = split(text, members, ",")
    for (i = 1; i <= count; ++i)
        take_member("", trimmed(members[i]))
}

# One statement and what ends it.
function take(text, ending) {
    if (ending == "{") {
        open_type(text)
    } else if (ending == "}") {
        if (kind == "enum")
            close_enumeration(text)
        if (kind != "")
            end_type()
        kind = ""
    } else if (kind != "" && kind != "library") {
        sub(/^[ \t\n]*properties:/, "", text)
        sub(/^[ \t\n]*methods:/, "", text)
        take_attributes(text)
        take_member(ATTRIBUTES, STATEMENT)
    }
}

/^#define STOCK_/ { defined[$2] = $3 }

{
    sub(/\/\/.*/, "")
    if ($0 !~ /^[ \t]*#/)
        content = content " " protected($0)
}

END {
    gsub(/[ \t]+/, " ", content)
    while (at = match(content, /[;{}]/)) {
        take(substr(content, 1, at - 1), substr(content, at, 1))
        content = substr(content, at + 1)
    }
    finish()
}
