#pragma once

#include "runtime/com/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <string>
#include <vector>

namespace kiv::test
{

// A property of a control as the type library describes it.
struct ControlProperty
{
    std::wstring Name;
    DISPID Id = DISPID_UNKNOWN;
    // As a late-bound host reads it and a form keeps it: a colour and an enumeration are VT_I4, any object is
    // VT_DISPATCH.
    VARTYPE Type = VT_EMPTY;
    bool IsFont = false;
    bool IsEnumeration = false;
    bool CanBeRead = false;
    bool CanBePut = false; // as a value, or, of an object, as a reference
};

// Those without an index, in the order of the type library.
std::vector<ControlProperty> PropertiesOf(IDispatch* control);
ControlProperty PropertyOf(IDispatch* control, const std::wstring& name);

// All that a control shows of itself: each property that can be read, with its type and value for people. The
// window is left out, being another for each control; of a font its attributes are shown, of a picture its
// size.
using ControlState = std::map<std::wstring, std::string>;
ControlState StateOf(IDispatch* control);
// One value as StateOf shows it: with all its digits, unlike Show.
std::string ShowExactly(const Variant& value);

// Any other value of the property than the one it has.
Variant OtherThan(const Variant& value, const ControlProperty& property);

} // namespace kiv::test
