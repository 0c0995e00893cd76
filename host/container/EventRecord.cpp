#include "host/container/EventRecord.h"

#include "host/container/Automation.h"

#include <algorithm>
#include <cstring>

namespace kiv::host
{

namespace
{

// The argument that stands at a place of the declaration: named ones first in rgvarg, then the others last to
// first.
VARIANT* ArgumentAt(DISPPARAMS& raised, std::size_t place)
{
    for (UINT named = 0; named < raised.cNamedArgs; ++named)
        if (raised.rgdispidNamedArgs[named] == static_cast<DISPID>(place))
            return &raised.rgvarg[named];
    if (place >= raised.cArgs - raised.cNamedArgs)
        return nullptr;
    return &raised.rgvarg[raised.cArgs - 1 - place];
}

} // namespace

const Variant* EventRecord::Find(std::wstring_view name) const
{
    for (const EventArgument& argument : Arguments)
        if (SameName(argument.Name, name))
            return &argument.Value;
    return nullptr;
}

bool Return(const EventRecord& event, DISPPARAMS& raised, std::wstring_view argument, const Variant& value)
{
    const auto found = std::find_if(event.Arguments.begin(), event.Arguments.end(),
                                    [&](const EventArgument& each) { return SameName(each.Name, argument); });
    if (found == event.Arguments.end())
        return false;
    VARIANT* target = ArgumentAt(raised, static_cast<std::size_t>(found - event.Arguments.begin()));
    if (!target || !(V_VT(target) & VT_BYREF) || !V_BYREF(target))
        return false;

    const VARTYPE type = V_VT(target) & static_cast<VARTYPE>(~VT_BYREF);
    if (type == VT_VARIANT)
        return SUCCEEDED(VariantCopy(V_VARIANTREF(target), value.Borrow()));
    std::optional<Variant> converted = value.As(type);
    if (!converted)
        return false;
    VARIANT given = {};
    converted->DetachTo(&given);
    switch (type)
    {
    case VT_BSTR:
        SysFreeString(*V_BSTRREF(target));
        *V_BSTRREF(target) = V_BSTR(&given);
        return true;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (*V_UNKNOWNREF(target))
            (*V_UNKNOWNREF(target))->Release();
        *V_UNKNOWNREF(target) = V_UNKNOWN(&given);
        return true;
    default:
        std::memcpy(V_BYREF(target), &V_I8(&given), ScalarSize(type));
        return ScalarSize(type) != 0;
    }
}

} // namespace kiv::host
