#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <string>
#include <vector>

namespace kiv
{

// A member of an enumeration, by its published name.
struct EnumerationMember
{
    std::wstring Name;
    long Value = 0;
};

// A property as the property window of a designer has it: one that is read without an argument.
struct PropertyDescription
{
    std::wstring Name;
    VARTYPE Type = VT_EMPTY;                // VT_USERDEFINED for what the type library gives a name
    std::vector<EnumerationMember> Members; // in declared order; empty unless its type is an enumeration
};

// That of a dual interface; none when the interface has no such property. Throws ComError.
std::optional<PropertyDescription> DescribeProperty(ITypeInfo* typeInfo, DISPID property);

} // namespace kiv
