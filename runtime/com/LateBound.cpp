#include "runtime/com/LateBound.h"

#include <dispex.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// What an object says of an error that it raises; the texts are freed with it.
class RaisedError
{
public:
    RaisedError() = default;
    RaisedError(const RaisedError&) = delete;
    RaisedError& operator=(const RaisedError&) = delete;
    ~RaisedError()
    {
        SysFreeString(exception_.bstrSource);
        SysFreeString(exception_.bstrDescription);
        SysFreeString(exception_.bstrHelpFile);
    }

    EXCEPINFO* Receive() { return &exception_; }

    [[noreturn]] void Throw()
    {
        if (exception_.pfnDeferredFillIn)
            exception_.pfnDeferredFillIn(&exception_);
        HRESULT result = FAILED(exception_.scode) ? exception_.scode : DISP_E_EXCEPTION;
        if (exception_.wCode != 0)
            result = RunTimeError(exception_.wCode);
        if (!exception_.bstrSource && !exception_.bstrDescription)
            throw ComError(result);
        ComPtr<ICreateErrorInfo> report;
        ComPtr<IErrorInfo> info;
        Check(CreateErrorInfo(&report));
        report->SetSource(exception_.bstrSource);
        report->SetDescription(exception_.bstrDescription);
        report->SetHelpFile(exception_.bstrHelpFile);
        report->SetHelpContext(exception_.dwHelpContext);
        Check(report.As(&info));
        throw ComError(result, info);
    }

private:
    EXCEPINFO exception_ = {};
};

void CheckAutomation(HRESULT outcome)
{
    switch (outcome)
    {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        throw ComError(ObjectLacksMember);
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_PARAMNOTOPTIONAL:
        throw ComError(WrongNumberOfArguments);
    case DISP_E_TYPEMISMATCH:
        throw ComError(TypeMismatch);
    case DISP_E_OVERFLOW:
        throw ComError(Overflow);
    default:
        Check(outcome);
    }
}

// reversed: the arguments, the last one first.
Variant Call(IDispatch* object, DISPID member, WORD flags, std::span<VARIANT> reversed)
{
    DISPPARAMS passed = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Variant result;
    RaisedError raised;
    const HRESULT outcome = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed,
                                           result.Receive(), raised.Receive(), nullptr);
    if (outcome == DISP_E_EXCEPTION)
        raised.Throw();
    CheckAutomation(outcome);
    return (result.Type() & VT_BYREF) != 0 ? Variant(result.Get()) : result;
}

Variant CallMember(IDispatch* object, DISPID member, WORD flags, std::initializer_list<Variant> arguments)
{
    std::vector<VARIANT> reversed;
    std::transform(std::rbegin(arguments), std::rend(arguments), std::back_inserter(reversed),
                   [](const Variant& argument) { return argument.Get(); });
    return Call(object, member, flags, reversed);
}

constexpr WORD MethodOrProperty = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// A property if it is one: as a method, the default member of a script's function is the function's call.
Variant DefaultOf(IDispatch* object)
{
    try
    {
        return CallMember(object, DISPID_VALUE, DISPATCH_PROPERTYGET, {});
    }
    catch (const ComError& error)
    {
        if (error.Result() != ObjectLacksMember || error.Report())
            throw;
    }
    return CallMember(object, DISPID_VALUE, DISPATCH_METHOD, {});
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
    CheckAutomation(outcome == E_NOTIMPL ? FindAroundWine(object, name, member) : outcome);
    return member;
}

Variant CallMember(IDispatch* object, DISPID member, std::initializer_list<Variant> arguments)
{
    return CallMember(object, member, MethodOrProperty, arguments);
}

Variant CallMemberWith(IDispatch* object, DISPID member, const Variant& argument)
{
    VARIANT passed = argument.Get();
    return Call(object, member, MethodOrProperty, {&passed, 1});
}

Variant PlainValue(const Variant& value)
{
    // A default member may be an object in its turn, but not without end.
    constexpr int Deepest = 16;
    Variant plain = value;
    for (int depth = 0; depth < Deepest; ++depth)
    {
        if (!plain.Object())
            return plain;
        const ComPtr<IDispatch> object = ObjectOf(plain);
        if (!object)
            break;
        plain = DefaultOf(object.Get());
    }
    throw ComError(ObjectLacksMember);
}

ComPtr<IDispatch> ObjectOf(const Variant& value)
{
    ComPtr<IDispatch> object;
    if (IUnknown* const reference = value.Object())
        reference->QueryInterface(IID_PPV_ARGS(&object));
    return object;
}

} // namespace kiv
