#include "host/data/AutomationObject.h"

#include "host/container/Automation.h"
#include "host/data/DataError.h"
#include "runtime/com/Boundary.h"

#include <wrl/client.h>

#include <algorithm>

namespace kiv::host
{

namespace
{

// Read from the last one on, as they are passed. Those left out at the end count as not passed: some callers
// say so for every argument that such a member has elsewhere.
std::vector<Variant> ArgumentsOf(const DISPPARAMS& passed)
{
    std::vector<Variant> arguments;
    for (UINT at = passed.cArgs; at > 0; --at)
    {
        const VARIANT& argument = passed.rgvarg[at - 1];
        const bool missing = V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
        arguments.push_back(missing ? Variant() : Variant(argument));
    }
    while (!arguments.empty() && arguments.back().Type() == VT_EMPTY)
        arguments.pop_back();
    return arguments;
}

HRESULT Raise(const DataError& error, const wchar_t* source, EXCEPINFO* exception) noexcept
{
    if (exception)
    {
        *exception = {};
        exception->scode = error.Result();
        exception->bstrSource = SysAllocString(source);
        exception->bstrDescription = SysAllocString(error.Description().c_str());
    }
    return DISP_E_EXCEPTION;
}

} // namespace

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT AutomationObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept
{
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT AutomationObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* found) noexcept
{
    if (!names || !found || count == 0)
        return E_INVALIDARG;
    return Boundary([&]() -> HRESULT {
        // Arguments have no names.
        std::fill(found, found + count, DISPID_UNKNOWN);
        const auto member = std::find_if(members_.begin(), members_.end(), [&](const AutomationMember& each) {
            return SameName(each.Name, names[0]);
        });
        if (member == members_.end())
            return DISP_E_UNKNOWNNAME;
        found[0] = member->Id;
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

const AutomationMember& AutomationObject::MemberOf(DISPID id) const
{
    const auto member = std::find_if(members_.begin(), members_.end(),
                                     [id](const AutomationMember& each) { return each.Id == id; });
    if (member == members_.end())
        throw ComError(DISP_E_MEMBERNOTFOUND);
    return *member;
}

HRESULT AutomationObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* passed, VARIANT* result,
                                 EXCEPINFO* exception, UINT*) noexcept
{
    if (!passed)
        return E_INVALIDARG;
    return Boundary([&]() -> HRESULT {
        const AutomationMember& member = MemberOf(id);
        if (!(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)))
            return DISP_E_MEMBERNOTFOUND;
        if (passed->cNamedArgs != 0)
            return DISP_E_NONAMEDARGS;
        const std::vector<Variant> arguments = ArgumentsOf(*passed);
        if (arguments.size() > member.MostArguments || arguments.size() < member.FewestArguments)
            return DISP_E_BADPARAMCOUNT;
        // A caller may let go of the object in the middle of the call.
        const Microsoft::WRL::ComPtr<IDispatch> self(this);
        try
        {
            Variant value = Call(id, arguments);
            if (result)
                value.DetachTo(result);
            return S_OK;
        }
        catch (const DataError& error)
        {
            return Raise(error, name_, exception);
        }
    });
}

} // namespace kiv::host
