# Writes the header with which a C++ host uses the library: enumerations with names of their own, interfaces,
# identifiers, and the numbers of properties and events, all in the namespace KivControls.
#
# usage: awk -v names=KivControls.names -f tools/contract/idl.awk -f tools/contract/header.awk
#        KivControls.idl contract/*.idl

BEGIN {
    while ((getline line < names) > 0)
        if (line !~ /^#/ && (at = index(line, "=")))
            published[trimmed(substr(line, 1, at - 1))] = trimmed(substr(line, at + 1))
}

function out(text) { body = body text "\n" }

function constant_of(uuid,    part, i, bytes) {
    split(tolower(uuid), part, "-")
    for (i = 1; i <= 4; i += 2)
        bytes = bytes (bytes == "" ? "" : ", ") "0x" substr(part[4], i, 2)
    for (i = 1; i <= 12; i += 2)
        bytes = bytes ", 0x" substr(part[5], i, 2)
    return "{0x" part[1] ", 0x" part[2] ", 0x" part[3] ", {" bytes "}}"
}

function identifier(name, uuid) {
    identifiers = identifiers "constexpr GUID " name " = " constant_of(uuid) ";\n"
}

# __uuidof, where the compiler takes it from a declaration after the class.
function declare_uuid(name, uuid,    arguments) {
    arguments = constant_of(uuid)
    gsub(/[{}]/, "", arguments)
    declarations = declarations "__CRT_UUID_DECL(KivControls::" name ", " arguments ")\n"
}

function note(text) { if (text != "") out("// " text ".") }

function begin_type(kind, name, attributes) {
    type_kind = kind
    type_name = name
    numbers = ""
    if (kind == "library") {
        identifier("LIBID_" name, uuid_of(attributes))
    } else if (kind == "coclass") {
        identifier("CLSID_" name, uuid_of(attributes))
    } else if (kind == "dispinterface") {
        identifier("DIID_" name, uuid_of(attributes))
    } else if (kind == "enum") {
        out("")
        note(help_of(attributes))
        out("enum class " name " : int\n{")
    } else if (kind == "interface" && attributes != "") {
        identifier("IID_" name, uuid_of(attributes))
        declare_uuid(name, uuid_of(attributes))
        out("")
        note(help_of(attributes))
        out("MIDL_INTERFACE(\"" uuid_of(attributes) "\")\n" name " : public IDispatch\n{")
    }
}

function cpp_type(type) {
    sub(/^long/, "LONG", type)
    sub(/^KIV_LONG_PTR/, "LONG_PTR", type)
    return type
}

# What is in brackets of an argument does not matter to C++.
function arguments_of(text,    count, part, i, result, words, word_count, name) {
    text = substr(text, index(text, "(") + 1)
    sub(/\)$/, "", text)
    gsub(/\[[^]]*\]/, "", text)
    count = split(text, part, ",")
    for (i = 1; i <= count; ++i) {
        word_count = split(trimmed(part[i]), words, " ")
        name = words[word_count]
        result = result (i > 1 ? ", " : "") cpp_type(trimmed(substr(trimmed(part[i]), 1, length(trimmed(part[i])) - length(name)))) " " name
    }
    return result
}

function name_of(text) {
    text = trimmed(substr(text, 1, index(text, "(") - 1))
    sub(/^.* /, "", text)
    return text
}

function take_member(attributes, text,    name, way) {
    if (type_kind == "enum") {
        if (text == "")
            return
        name = text
        sub(/ *=.*/, "", name)
        out("    " text "," (name in published ? " // \"" published[name] "\"" : ""))
    } else if (type_kind == "dispinterface" && text ~ /\(/) {
        numbers = numbers ("        " name_of(text) " = " number_of(attributes) ", // (" arguments_of(text) ") " help_of(attributes) "\n")
    } else if (type_kind == "interface" && text ~ /^HRESULT/) {
        name = name_of(text)
        way = attributes ~ /propget/ ? "get_" : attributes ~ /propputref/ ? "putref_" : attributes ~ /propput/ ? "put_" : ""
        if (help_of(attributes) != "")
            out("    // " help_of(attributes) ".")
        out("    virtual HRESULT STDMETHODCALLTYPE " way name "(" arguments_of(text) ") = 0;")
        if (number_of(attributes) != "" && !((type_name, name) in numbered)) {
            numbered[type_name, name] = 1
            numbers = numbers "        " name " = " number_of(attributes) ",\n"
        }
    }
}

function numbers_struct(help, name) {
    out("")
    note(help)
    out("struct " name "\n{\n    enum : DISPID\n    {\n" numbers "    };\n};")
}

function end_type() {
    if (type_kind == "enum")
        out("};")
    else if (type_kind == "dispinterface" && numbers != "")
        numbers_struct("The events of DIID_" type_name ", as IDispatch::Invoke of a sink is called with them", \
            substr(type_name, 3) "Events")
    else if (type_kind == "interface")
        out("};")
    if (type_kind == "interface" && type_name ~ /^_/ && numbers != "")
        numbers_struct("The numbers of its members, as IDispatch and notifications of changes have them", \
            substr(type_name, 2) "Members")
}

function finish() {
    print "// The contract of KivCtls for C++ hosts. Made from KivControls.idl."
    print "#pragma once\n"
    print "#include <windows.h>\n"
    print "#include <ole2.h>"
    print "#include <olectl.h>\n"
    print "namespace KivControls\n{\n"
    printf "%s", identifiers
    printf "%s", body
    print "\n} // namespace KivControls\n"
    print "#ifdef __CRT_UUID_DECL"
    printf "%s", declarations
    print "#endif"
}
