# Makes the reference of the documentation: from the contract's sources (*.idl) what each member is for, from the
# contract as hosts read it (*.contract) what it is, from tests/com/state (*.state) what hosts have come to rely on.

# --- The sources: the help text of each member ---

FILENAME ~ /\.idl$/ {
    text = text " " $0
    if ($0 !~ /[;{]$/) next
    if (match(text, /helpstring\("([^"\\]|\\.)*"\)/)) help = substr(text, RSTART + 12, RLENGTH - 14)
    if (match(text, /(interface|dispinterface|coclass|enum) [A-Za-z_]+/)) {
        owner = substr(text, RSTART, RLENGTH)
        sub(/.* /, "", owner)
        if (text ~ /coclass/) about[owner] = help
    } else if (match(text, /[A-Za-z_0-9]+\(\[|[A-Za-z_0-9]+\(\)/)) {
        member = substr(text, RSTART, RLENGTH)
        sub(/\(.*/, "", member)
        if (help != "" && !((owner, member) in purpose)) purpose[owner, member] = help
    }
    text = help = ""
    next
}

# --- The contract ---

FILENAME ~ /\.contract$/ {
    sub(/\r$/, "")
    if ($1 == "enum") {
        enumeration = $2
        enumerations[++enumerationCount] = $2
    } else if ($1 == "dispinterface" || $1 == "interface") {
        owner = $2
        id[owner] = $3
        enumeration = ""
    } else if ($1 == "coclass") {
        classes[++classCount] = $2
        id[$2] = $3
        enumeration = owner = ""
    } else if (enumeration != "" && / = -?[0-9]+$/) {
        value = $NF
        name = $0
        sub(/^ +/, "", name)
        sub(/ = -?[0-9]+$/, "", name)
        values[enumeration] = values[enumeration] (values[enumeration] == "" ? "" : ", ") "`" name "` " value
        named[enumeration, value] = name
    } else if (owner != "" && $1 ~ /^(get|put|putref|method)$/)
        Member($1, $2, $0)
    next
}

function Member(kind, number, line,    name, arguments, result, flags, key) {
    sub(/^ *[a-z]+ -?[0-9]+ /, "", line)
    name = arguments = line
    sub(/\(.*/, "", name)
    sub(/^[^(]*\(/, "", arguments)
    flags = arguments
    sub(/\)[^)]*$/, "", arguments)
    sub(/^.*\) /, "", flags)
    result = flags
    sub(/ .*/, "", result)
    key = owner SUBSEP name
    if (!(key in number_)) {
        members[owner] = members[owner] (members[owner] == "" ? "" : " ") name
        number_[key] = number
    }
    if (kind == "get") {
        type[key] = result
        taking[key] = arguments
        reads[key] = 1
    } else if (kind == "method") {
        isMethod[key] = 1
        type[key] = result
        taking[key] = arguments
    } else
        sets[key] = kind
    if (flags ~ / defaultbind/) bound[key] = ", the default bound property"
    else if (flags ~ / bindable/) bound[key] = ", bindable"
}

# --- What hosts rely on ---

FILENAME ~ /\.state$/ {
    class = FILENAME
    sub(/.*\//, "", class)
    sub(/\.state$/, "", class)
    if ($1 == "reads") kept[class, $2] = 1
    else if ($1 == "new") {
        shown = $0
        sub(/^new [^ ]+ = /, "", shown)
        fresh[class, $2] = shown
    } else if ($1 == "put") {
        name = $2
        sub(/:$/, "", name)
        shown = $0
        sub(/^put [^:]+: /, "", shown)
        heard[class, name] = shown
    }
}

# --- The page ---

function Plain(type) {
    gsub(/VARIANT_BOOL/, "Boolean", type)
    gsub(/BSTR/, "String", type)
    gsub(/short/, "Integer", type)
    gsub(/long/, "Long", type)
    gsub(/IFontDisp\*/, "font object", type)
    gsub(/IPictureDisp\*/, "picture object", type)
    gsub(/IDispatch\*/, "object", type)
    gsub(/VARIANT/, "Variant", type)
    gsub(/CURRENCY/, "Currency", type)
    gsub(/DATE/, "Date", type)
    gsub(/float/, "Single", type)
    gsub(/double/, "Double", type)
    gsub(/SCODE/, "Error", type)
    return type
}

# "in out Boolean* Cancel" as "Cancel As Boolean, by reference".
function Arguments(list,    parts, count, at, one, words, name, type, text, value) {
    count = split(list, parts, ", ")
    text = ""
    for (at = 1; at <= count; at++) {
        one = parts[at]
        if (one == "") continue
        value = ""
        if (match(one, / =[^ ]+/)) {
            value = " = " substr(one, RSTART + 2, RLENGTH - 2)
            sub(/ =[^ ]+/, "", one)
        }
        name = one
        sub(/.* /, "", name)
        type = one
        sub(/^((in|out|optional|retval) )+/, "", type)
        sub(/ ?[^ ]+$/, "", type)
        if (type == "") {
            type = name
            name = "value"
        }
        text = text (text == "" ? "" : ", ") (one ~ /optional/ ? "[" : "") "`" name "`" (one ~ /out / ? " by reference" : "") \
            " As " Plain(Pointed(type)) value (one ~ /optional/ ? "]" : "")
    }
    return text
}

# What an argument by reference points to.
function Pointed(type) {
    if (type !~ /Disp/) sub(/\*$/, "", type)
    return type
}

function Day(number,    era, rest, year, day, month) {
    number += 693899
    era = int(number / 146097)
    rest = number % 146097
    year = int((rest - int(rest / 1460) + int(rest / 36524) - int(rest / 146096)) / 365)
    day = rest - (365 * year + int(year / 4) - int(year / 100))
    month = int((5 * day + 2) / 153)
    day = day - int((153 * month + 2) / 5) + 1
    month = month < 10 ? month + 3 : month - 9
    return sprintf("%04d-%02d-%02d", year + era * 400 + (month <= 2 ? 1 : 0), month, day)
}

function Fresh(text, type,    number) {
    if (text == "") return ""
    if (text ~ /^font/) return "the container's"
    if (text == "VT 1") return "Null"
    if (text ~ /^VT 9|^VT 13|^nothing|^Nothing|^none/) return "Nothing"
    sub(/^VT [0-9]+ ?/, "", text)
    if (type == "OLE_COLOR" && text < 0) return sprintf("&H%08X", text + 4294967296)
    if (type == "DATE") return Day(text)
    if ((type, text) in named) return "`" named[type, text] "`"
    return text
}

function Heard(class, text,    events, count, parts, at, event) {
    if (text == "nothing" || text == "") return text
    if (text ~ /^error/) return "may raise an error"
    sub(/, error.*/, "", text)
    count = split(text, parts, ", ")
    text = ""
    for (at = 1; at <= count; at++) {
        event = parts[at]
        if (sub(/^event /, "", event)) parts[at] = "event " eventName["__" class, event]
        text = text (text == "" ? "" : ", ") parts[at]
    }
    return text
}

function Rows(owner, wanted,    list, count, at, key) {
    count = split(members[owner], list, " ")
    for (at = 1; at <= count; at++) {
        key = owner SUBSEP list[at]
        if ((key in isMethod) == wanted) rows[++rowCount] = list[at]
    }
}

END {
    print "# Reference"
    print "Every member of every control, as hosts read it out of the library. `./kiv docs` makes this page from the contract, and"
    print "`./kiv check` holds it to that. What the members do, and when they raise which error, is on the controls' own pages."
    print ""
    print "- DISPID: the number for late-bound calls, of events for their handlers."
    print "- New: what a new control shows. Kept: whether a form file keeps it, under the same name."
    print "- Set: what a host hears, in this order, when the property is given another value: which properties are reported as"
    print "  changed (IPropertyNotifySink), and which events are raised."
    for (event in number_) {
        split(event, place, SUBSEP)
        eventName[place[1], number_[event]] = place[2]
    }
    for (class = 1; class <= classCount; class++) {
        name = classes[class]
        properties = "_" name
        events = "__" name
        print ""
        print "## [" name "](controls/" name ".md)"
        print about[name] ". ProgID `KivControls." name "`, class `" id[name] "`, interface `" properties "` `" id[properties] \
            "`, events `" events "` `" id[events] "`."
        print ""
        print "| DISPID | Property | Type | New | Kept | Set | |"
        print "|---|---|---|---|---|---|---|"
        rowCount = 0
        Rows(properties, 0)
        for (row = 1; row <= rowCount; row++) {
            key = properties SUBSEP rows[row]
            access = !(key in sets) ? ", read-only" : sets[key] == "putref" ? ", by reference" : ""
            arguments = Arguments(taking[key])
            print "| " number_[key] " | `" rows[row] "`" (arguments == "" ? "" : "(" arguments ")") " | " Plain(type[key]) access bound[key] " | " \
                Fresh(fresh[name, rows[row]], type[key]) " | " ((name, rows[row]) in kept ? "yes" : "") " | " \
                Heard(name, heard[name, rows[row]]) " | " purpose[properties, rows[row]] " |"
        }
        rowCount = 0
        Rows(properties, 1)
        if (rowCount > 0) {
            print ""
            print "| DISPID | Method | Returns | |"
            print "|---|---|---|---|"
        }
        for (row = 1; row <= rowCount; row++) {
            key = properties SUBSEP rows[row]
            print "| " number_[key] " | `" rows[row] "`(" Arguments(taking[key]) ") | " (type[key] == "void" ? "" : Plain(type[key])) " | " \
                purpose[properties, rows[row]] " |"
        }
        rowCount = 0
        Rows(events, 1)
        if (rowCount > 0) {
            print ""
            print "| DISPID | Event | |"
            print "|---|---|---|"
        }
        for (row = 1; row <= rowCount; row++) {
            key = events SUBSEP rows[row]
            print "| " number_[key] " | `" rows[row] "`(" Arguments(taking[key]) ") | " purpose[events, rows[row]] " |"
        }
    }
    print ""
    print "## Enumerations"
    print "| Name | Values |"
    print "|---|---|"
    for (at = 1; at <= enumerationCount; at++) print "| `" enumerations[at] "` | " values[enumerations[at]] " |"
}
