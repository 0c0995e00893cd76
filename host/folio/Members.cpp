#include "host/folio/Members.h"

#include "host/container/Automation.h"
#include "host/folio/Text.h"
#include "runtime/com/Bstr.h"
#include "runtime/com/TypeDescription.h"

#include <olectl.h>
#include <wrl/client.h>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

std::string NameOf(ITypeInfo* description, MEMBERID member)
{
    Bstr name;
    return SUCCEEDED(description->GetDocumentation(member, name.Receive(), nullptr, nullptr, nullptr))
               ? Utf8(name.String())
               : std::string();
}

// "one of 0 (Left), 1 (Right)"
std::string ValuesOf(ITypeInfo* enumeration, UINT count)
{
    std::string values;
    for (UINT at = 0; at < count; ++at)
    {
        const VariableDescription variable(enumeration, at);
        if (variable->varkind != VAR_CONST)
            continue;
        const Variant value(*variable->lpvarValue);
        values += (values.empty() ? "one of " : ", ") + std::to_string(value.Long()) + " (" +
                  NameOf(enumeration, variable->memid) + ")";
    }
    return values;
}

std::string WordsOf(ITypeInfo* description, const TYPEDESC& type);

std::string WordsOfObject(std::string_view name)
{
    if (name.find("Font") != std::string_view::npos)
        return "a font (BeginProperty Font)";
    if (name.find("Picture") != std::string_view::npos)
        return "a picture (BeginProperty Picture)";
    return "an object";
}

std::string WordsOfNamed(ITypeInfo* description, HREFTYPE reference)
{
    ComPtr<ITypeInfo> named;
    if (FAILED(description->GetRefTypeInfo(reference, &named)))
        return {};
    const TypeAttributes attributes(named.Get());
    if (attributes->typekind == TKIND_ENUM)
        return ValuesOf(named.Get(), attributes->cVars);
    if (attributes->typekind != TKIND_ALIAS)
        return WordsOfObject(NameOf(named.Get(), MEMBERID_NIL));
    if (NameOf(named.Get(), MEMBERID_NIL) == "OLE_COLOR")
        return "a colour such as &H0000FF (red)";
    return WordsOf(named.Get(), attributes->tdescAlias);
}

std::string WordsOf(ITypeInfo* description, const TYPEDESC& type)
{
    switch (type.vt)
    {
    case VT_BOOL:
        return "True or False";
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
        return "a whole number";
    case VT_R4:
    case VT_R8:
    case VT_CY:
        return "a number";
    case VT_DATE:
        return "a date in quotes";
    case VT_BSTR:
        return "a text in quotes";
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return "an object";
    case VT_PTR:
        return WordsOf(description, *type.lptdesc);
    case VT_USERDEFINED:
        return WordsOfNamed(description, type.hreftype);
    default:
        return {};
    }
}

std::string WordsOfMember(IDispatch* object, const std::wstring& property)
{
    ComPtr<ITypeInfo> description;
    if (!object || FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &description)) || !description)
        return {};
    const DISPID member = MemberId(object, property);
    const UINT count = TypeAttributes(description.Get())->cFuncs;
    for (UINT at = 0; at < count; ++at)
    {
        const FunctionDescription function(description.Get(), at);
        const bool isLet =
            function->invkind == INVOKE_PROPERTYPUT || function->invkind == INVOKE_PROPERTYPUTREF;
        if (function->memid == member && isLet && function->cParams > 0)
            return WordsOf(description.Get(), function->lprgelemdescParam[function->cParams - 1].tdesc);
    }
    return {};
}

} // namespace

std::optional<Variant> TryGet(const ControlSite& site, std::wstring_view property)
{
    try
    {
        if (site.HasMember(property))
            return site.Get(property);
    }
    catch (const ComError&)
    {
    }
    return std::nullopt;
}

std::string WhatPropertyTakes(IDispatch* object, const std::wstring& property)
{
    try
    {
        return WordsOfMember(object, property);
    }
    catch (const ComError&)
    {
        return {}; // an object that does not describe itself
    }
}

std::string WhyRefused(IDispatch* object, const std::wstring& member, const ComError& error)
{
    if (error.Result() == DISP_E_UNKNOWNNAME || error.Result() == DISP_E_MEMBERNOTFOUND)
        return "the control has no " + Utf8(member);
    const std::string taken = WhatPropertyTakes(object, member);
    const bool isAboutValue = error.Result() == DISP_E_TYPEMISMATCH || error.Result() == TypeMismatch ||
                              error.Result() == InvalidPropertyValue || error.Result() == DISP_E_OVERFLOW ||
                              error.Result() == Overflow;
    if (isAboutValue && !taken.empty())
        return taken + " is expected";
    return DescribeError(error);
}

} // namespace kiv::host
