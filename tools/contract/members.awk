# Writes the C++ side of the contract, KivMembers.h, from its IDL files:
#   <Control>Members  for each dual interface _<Control>: its properties, each handed on to the control's table
#   <Control>Events   for each source interface __<Control>: the events' dispatch numbers
# Methods that answer yes or no are handed on as well; other members with arguments are left to the control.
#
# usage: awk -f tools/contract/members.awk KivControls.idl contract/*.idl

function trimmed(text) {
    gsub(/^[ \t\n]+|[ \t\n]+$/, "", text)
    return text
}

# The text between the first opening bracket and the last closing one.
function inside(text, opening, closing,    end) {
    text = substr(text, index(text, opening) + 1)
    for (end = length(text); end > 0 && substr(text, end, 1) != closing; --end)
        ;
    return substr(text, 1, end - 1)
}

function number_of(attributes,    id) {
    if (!match(attributes, /[\[ ,]id\([^)]*\)/))
        return ""
    id = substr(attributes, RSTART + 4, RLENGTH - 5)
    return id in defined ? defined[id] : id
}

function cpp_type(type) {
    sub(/^long/, "LONG", type)
    return type
}

# One argument, "[in] short newCount": its attributes, type and name.
function take_argument(text,    words, count) {
    argument_attributes = substr(text, 1, index(text, "]"))
    text = trimmed(substr(text, index(text, "]") + 1))
    count = split(text, words, " ")
    argument_name = words[count]
    argument_type = cpp_type(trimmed(substr(text, 1, length(text) - length(argument_name))))
}

function begin_class(name) {
    print "\n// The properties of " name " in the types of C++."
    print "template<class Control, class Base>"
    print "class " name "Members : public DualControl<_" name ", Base>"
    print "{\npublic:"
}

function end_class(name) {
    print "\nprotected:"
    print "    using DualControl<_" name ", Base>::DualControl;"
    print "    PropertyCategory CategoryOf(std::wstring_view property) const override"
    print "    {"
    print "        return Control::Properties::Table.template CategoryOf<Control>(property);"
    print "    }"
    print "\nprivate:"
    print "    Control& Self() { return static_cast<Control&>(*this); }"
    print "};"
}

function write_getter(name) {
    sub(/\*$/, "", argument_type)
    print "    HRESULT STDMETHODCALLTYPE get_" name "(" argument_type "* result) noexcept override"
    print "    {"
    print "        return this->template GetProperty<L\"" name "\">(Self(), result);"
    print "    }"
}

# A value may come by reference, which is never written to.
function write_putter(name, way,    isReference, call) {
    isReference = argument_attributes ~ /in, *out/
    call = "this->template LetProperty<L\"" name "\">(Self(), " (isReference ? "*value" : "value") ")"
    print "    HRESULT STDMETHODCALLTYPE " way "_" name "(" argument_type " value) noexcept override"
    print "    {"
    print "        return " (isReference ? "value ? " call " : E_POINTER" : call) ";"
    print "    }"
}

# A method that answers yes or no, and may be told a flag; without one it is not set.
function write_question(name) {
    print "    HRESULT STDMETHODCALLTYPE " name "(VARIANT_BOOL* flag, VARIANT_BOOL* result) noexcept override"
    print "    {"
    print "        Base& control = *this;"
    print "        const bool isSet = flag && *flag != VARIANT_FALSE;"
    print "        return this->Get(result, [&] { return ToAutomation(control." name "(isSet), result); });"
    print "    }"
}

function write_member(statement,    attributes, name, arguments) {
    attributes = substr(statement, 1, index(statement, "HRESULT") - 1)
    statement = trimmed(substr(statement, index(statement, "HRESULT") + 7))
    name = trimmed(substr(statement, 1, index(statement, "(") - 1))
    arguments = inside(statement, "(", ")")
    if (arguments ~ /^\[in, out[^]]*\] VARIANT_BOOL\* [A-Za-z]+, \[out, retval\] VARIANT_BOOL\* result$/)
        write_question(name)
    if (attributes !~ /prop(get|put)/ || gsub(/\]/, "]", arguments) != 1)
        return
    take_argument(arguments)
    if (attributes ~ /propget/)
        write_getter(name)
    else
        write_putter(name, attributes ~ /propputref/ ? "putref" : "put")
}

function write_statement(statement) {
    if (statement ~ /^}/) {
        if (class != "")
            end_class(class)
        else if (events != "")
            print "};"
        class = events = ""
    }
    if (match(statement, /dispinterface __[A-Za-z]+ {/)) {
        events = substr(statement, RSTART + 16, RLENGTH - 18)
        print "\nstruct " events "Events\n{"
    } else if (match(statement, /interface _[A-Za-z]+ : IDispatch/)) {
        class = substr(statement, RSTART + 11, RLENGTH - 23)
        begin_class(class)
    }
    if (class != "" && statement ~ /HRESULT/)
        write_member(statement)
    else if (events != "" && match(statement, /void [A-Za-z]+/))
        printf "    static constexpr DISPID %s = %s;\n", substr(statement, RSTART + 5, RLENGTH - 5), number_of(statement)
}

/^#define STOCK_/ { defined[$2] = $3 }

{
    sub(/\/\/.*/, "")
    gsub(/"[^"]*"/, "")
    if ($0 !~ /^#/)
        content = content " " $0
}

END {
    print "// Made from the contract. Do not edit."
    print "#pragma once\n"
    print "#include \"runtime/control/DualControl.h\"\n"
    print "#include <KivControls.h>\n"
    print "namespace kiv\n{"
    gsub(/[ \t]+/, " ", content)
    count = split(content, statements, ";")
    for (number = 1; number <= count; ++number)
        write_statement(trimmed(statements[number]))
    print "\n} // namespace kiv"
}
