#include "runtime/com/LateBound.h"

#include <dispex.h>

#include <algorithm>
#include <iterator>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// The error in an exception's description, whose texts are freed.
HRESULT ErrorIn(EXCEPINFO& exception)
{
    if (exception.pfnDeferredFillIn)
        exception.pfnDeferredFillIn(&exception);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (exception.wCode != 0)
        return RunTimeError(exception.wCode);
    return FAILED(exception.scode) ? exception.scode : DISP_E_EXCEPTION;
}

// For Wine's VBScript, which finds the members of a script's classes by the newer interface only.
HRESULT FindAroundWine(IDispatch* object, const wchar_t* name, DISPID& member)
{
    ComPtr<IDispatchEx> extended;
    return SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&extended)))
               ? extended->GetDispID(Bstr(name).Get(), fdexNameCaseInsensitive, &member)
               : E_NOTIMPL;
}

} // namespace

DISPID MemberOf(IDispatch* object, const wchar_t* name)
{
    auto* names = const_cast<wchar_t*>(name); // not written to
    DISPID member = DISPID_UNKNOWN;
    const HRESULT outcome = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    Check(outcome == E_NOTIMPL ? FindAroundWine(object, name, member) : outcome);
    return member;
}

Variant CallMember(IDispatch* object, DISPID member, std::initializer_list<Variant> arguments)
{
    std::vector<VARIANT> reversed;
    std::transform(std::rbegin(arguments), std::rend(arguments), std::back_inserter(reversed),
                   [](const Variant& argument) { return argument.Get(); });
    DISPPARAMS passed = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Variant result;
    EXCEPINFO exception = {};
    const HRESULT outcome =
        object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &passed,
                       result.Receive(), &exception, nullptr);
    Check(outcome == DISP_E_EXCEPTION ? ErrorIn(exception) : outcome);
    return (result.Type() & VT_BYREF) != 0 ? Variant(result.Get()) : result;
}

ComPtr<IDispatch> ObjectOf(const Variant& value)
{
    ComPtr<IDispatch> object;
    if (IUnknown* const reference = value.Object())
        reference->QueryInterface(IID_PPV_ARGS(&object));
    return object;
}

} // namespace kiv
