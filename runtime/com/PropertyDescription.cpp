#include "runtime/com/PropertyDescription.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/TypeDescription.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

std::wstring NameOf(ITypeInfo* typeInfo, MEMBERID member)
{
    Bstr name;
    Check(typeInfo->GetDocumentation(member, name.Receive(), nullptr, nullptr, nullptr));
    return name.String();
}

std::vector<EnumerationMember> MembersOf(ITypeInfo* typeInfo, const TYPEDESC& type)
{
    std::vector<EnumerationMember> members;
    if (type.vt != VT_USERDEFINED)
        return members;
    ComPtr<ITypeInfo> named;
    Check(typeInfo->GetRefTypeInfo(type.hreftype, &named));
    const TypeAttributes attributes(named.Get());
    if (attributes->typekind != TKIND_ENUM)
        return members;
    for (UINT i = 0; i < attributes->cVars; ++i)
    {
        const VariableDescription variable(named.Get(), i);
        members.push_back({NameOf(named.Get(), variable->memid), V_I4(variable->lpvarValue)});
    }
    return members;
}

} // namespace

std::optional<PropertyDescription> DescribeProperty(ITypeInfo* typeInfo, DISPID property)
{
    const UINT count = TypeAttributes(typeInfo)->cFuncs;
    for (UINT i = 0; i < count; ++i)
    {
        const FunctionDescription function(typeInfo, i);
        if (function->memid != property || function->invkind != INVOKE_PROPERTYGET || function->cParams != 0)
            continue;
        const TYPEDESC& type = function->elemdescFunc.tdesc;
        return PropertyDescription{NameOf(typeInfo, property), type.vt, MembersOf(typeInfo, type)};
    }
    return std::nullopt;
}

} // namespace kiv
