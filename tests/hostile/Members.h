#pragma once

#include "runtime/com/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace kiv::test
{

// A member of a control's interface as the type library describes it.
struct Member
{
    std::string Name; // "get BackColor", "put BackColor", "AddItem"
    DISPID Id = DISPID_UNKNOWN;
    INVOKEKIND Kind = INVOKE_FUNC;
    std::vector<VARTYPE>
        Takes; // VT_USERDEFINED for an enumeration, VT_PTR for an object, VT_BYREF for a reference
};

// Those of the control's own interface, IUnknown's and IDispatch's left out.
std::vector<Member> MembersOf(IDispatch* control);

// An argument of a type: one of a few that a host may well pass, by number.
Variant ArgumentOf(VARTYPE type, std::size_t number, IDispatch* font, IDispatch* database);

} // namespace kiv::test
