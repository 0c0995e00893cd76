#include "tests/support/AutomationCalls.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <wrl/client.h>

#include <algorithm>

namespace kiv::test
{

CallOutcome Invoke(IDispatch* object, DISPID member, WORD flags, const std::vector<Variant>& arguments)
{
    // Borrowed contents, last argument first as the wire has it.
    std::vector<VARIANT> reversed;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(argument->Get());
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && !arguments.empty())
    {
        parameters.rgdispidNamedArgs = &putName;
        parameters.cNamedArgs = 1;
    }

    CallOutcome outcome;
    EXCEPINFO exception = {};
    outcome.Result = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                    outcome.Value.Receive(), &exception, &outcome.ArgumentInError);
    if (outcome.Result == DISP_E_EXCEPTION)
    {
        if (exception.pfnDeferredFillIn)
            exception.pfnDeferredFillIn(&exception);
        outcome.ErrorCode = exception.scode;
        outcome.ErrorSource = Bstr::ViewOf(exception.bstrSource);
        outcome.ErrorDescription = Bstr::ViewOf(exception.bstrDescription);
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

namespace
{

CallOutcome InvokeByName(IDispatch* object, const wchar_t* name, WORD flags,
                         const std::vector<Variant>& arguments = {})
{
    LPOLESTR names[] = {const_cast<wchar_t*>(name)};
    DISPID member = DISPID_UNKNOWN;
    CallOutcome unknown;
    unknown.Result = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member);
    return FAILED(unknown.Result) ? unknown : Invoke(object, member, flags, arguments);
}

} // namespace

CallOutcome GetByName(IDispatch* object, const wchar_t* name)
{
    return InvokeByName(object, name, DISPATCH_PROPERTYGET);
}

CallOutcome PutByName(IDispatch* object, const wchar_t* name, const Variant& value)
{
    return InvokeByName(object, name, DISPATCH_PROPERTYPUT, {value});
}

CallOutcome PutRefByName(IDispatch* object, const wchar_t* name, const Variant& value)
{
    return InvokeByName(object, name, DISPATCH_PROPERTYPUTREF, {value});
}

CallOutcome CallByName(IDispatch* object, const wchar_t* name, const std::vector<Variant>& arguments)
{
    return InvokeByName(object, name, DISPATCH_METHOD, arguments);
}

DISPID IdOfName(IDispatch* object, const wchar_t* name)
{
    LPOLESTR names[] = {const_cast<wchar_t*>(name)};
    DISPID member = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member);
    return member;
}

Variant Missing()
{
    VARIANT missing = {};
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    return Variant(missing);
}

Variant Of(VARTYPE type, double number)
{
    Variant converted;
    Check(VariantChangeType(converted.Receive(), Variant(number).Borrow(), 0, type));
    return converted;
}

void ExpectError(const CallOutcome& outcome, HRESULT code, const wchar_t* source)
{
    EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
    EXPECT_EQ(Hr(outcome.ErrorCode), Hr(code));
    EXPECT_EQ(outcome.ErrorSource, source);
    EXPECT_EQ(outcome.ErrorDescription, L"");
}

void ExpectErrorInfo(const wchar_t* source)
{
    Microsoft::WRL::ComPtr<IErrorInfo> information;
    ASSERT_EQ(Hr(GetErrorInfo(0, &information)), Hr(S_OK));
    Bstr told;
    EXPECT_EQ(Hr(information->GetSource(told.Receive())), Hr(S_OK));
    EXPECT_EQ(told.View(), source);
}

std::string Show(const Variant& value)
{
    std::string text = "VT " + std::to_string(value.Type());
    if (value.Type() == VT_BSTR)
        return text + " \"" + Narrow(value.Text()) + "\"";
    if (value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN)
        return text + (value.Object() ? " object" : " nothing");
    if (value.Type() == VT_BOOL)
        return text + (value.Bool() ? " True" : " False");
    if (const auto shown = value.As(VT_BSTR))
        text += " " + Narrow(shown->Text());
    return text;
}

} // namespace kiv::test
