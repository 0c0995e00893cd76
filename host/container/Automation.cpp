#include "host/container/Automation.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"

#include <algorithm>
#include <string>

namespace kiv::host
{

namespace
{

HRESULT FindMember(IDispatch* object, std::wstring_view name, DISPID& member)
{
    if (!object)
        return E_POINTER;
    std::wstring text(name);
    LPOLESTR names = text.data();
    return object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
}

Variant Invoke(IDispatch* object, DISPID member, WORD kind, DISPPARAMS& arguments)
{
    if (!object)
        throw ComError(E_POINTER);
    Variant result;
    EXCEPINFO exception = {};
    const HRESULT hr = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments,
                                      result.Receive(), &exception, nullptr);
    if (hr == DISP_E_EXCEPTION)
    {
        if (exception.pfnDeferredFillIn)
            exception.pfnDeferredFillIn(&exception);
        std::wstring description(Bstr::ViewOf(exception.bstrDescription));
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        throw RaisedError(FAILED(exception.scode) ? exception.scode : hr, std::move(description));
    }
    Check(hr);
    return result;
}

// The wire wants the last argument first; the values stay the caller's.
std::vector<VARIANT> Reversed(const std::vector<Variant>& arguments)
{
    std::vector<VARIANT> reversed;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                   [](const Variant& argument) { return argument.Get(); });
    return reversed;
}

} // namespace

DISPID MemberId(IDispatch* object, std::wstring_view name)
{
    DISPID member = DISPID_UNKNOWN;
    Check(FindMember(object, name, member));
    return member;
}

bool HasMember(IDispatch* object, std::wstring_view name)
{
    DISPID member = DISPID_UNKNOWN;
    return SUCCEEDED(FindMember(object, name, member));
}

Variant GetProperty(IDispatch* object, DISPID member)
{
    DISPPARAMS none = {};
    return Invoke(object, member, DISPATCH_PROPERTYGET, none);
}

Variant GetProperty(IDispatch* object, std::wstring_view name)
{
    return GetProperty(object, MemberId(object, name));
}

void PutProperty(IDispatch* object, DISPID member, const Variant& value, const std::vector<Variant>& index)
{
    DISPID put = DISPID_PROPERTYPUT;
    std::vector<VARIANT> passed = Reversed(index);
    passed.insert(passed.begin(), value.Get());
    DISPPARAMS arguments = {passed.data(), &put, static_cast<UINT>(passed.size()), 1};
    if (value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN)
    {
        try
        {
            Invoke(object, member, DISPATCH_PROPERTYPUTREF, arguments);
            return;
        }
        catch (const ComError& error)
        {
            if (error.Result() != DISP_E_MEMBERNOTFOUND)
                throw;
        }
    }
    Invoke(object, member, DISPATCH_PROPERTYPUT, arguments);
}

void PutProperty(IDispatch* object, std::wstring_view name, const Variant& value,
                 const std::vector<Variant>& index)
{
    PutProperty(object, MemberId(object, name), value, index);
}

Variant CallMethod(IDispatch* object, std::wstring_view name, const std::vector<Variant>& arguments)
{
    std::vector<VARIANT> reversed = Reversed(arguments);
    DISPPARAMS passed = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return Invoke(object, MemberId(object, name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, passed);
}

bool SameName(std::wstring_view one, std::wstring_view other)
{
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(),
                                static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

} // namespace kiv::host
