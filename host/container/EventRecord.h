#pragma once

#include "runtime/com/Variant.h"

#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

struct EventArgument
{
    std::wstring Name;
    Variant Value; // as the control passed it; a by-reference argument is copied
};

// One event as a control raised it, with the names that its type information gives.
struct EventRecord
{
    DISPID Id = DISPID_UNKNOWN;
    std::wstring Name;
    std::vector<EventArgument> Arguments; // in the order of the declaration

    // The argument of that name (case ignored), or null.
    const Variant* Find(std::wstring_view name) const;
};

// Gives a by-reference argument back to the control that is raising the event, converted to the argument's
// type. False when there is no such by-reference argument or the value cannot be converted.
bool Return(const EventRecord& event, DISPPARAMS& raised, std::wstring_view argument, const Variant& value);

} // namespace kiv::host
