#include "tests/hostile/Members.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/TypeDescription.h"
#include "tests/support/Text.h"

#include <wrl/client.h>

#include <iterator>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// The members of IUnknown and IDispatch, which a dispatch interface lists as well.
constexpr DISPID FirstOfAutomation = 0x60000000;
constexpr DISPID LastOfAutomation = 0x60010003;

const char* PrefixOf(INVOKEKIND kind)
{
    switch (kind)
    {
    case INVOKE_PROPERTYGET:
        return "get ";
    case INVOKE_PROPERTYPUT:
        return "put ";
    case INVOKE_PROPERTYPUTREF:
        return "putref ";
    default:
        return "";
    }
}

VARTYPE TypeOf(const TYPEDESC& type)
{
    if (type.vt != VT_PTR)
        return type.vt;
    // A pointer to something declared is an object; one to a plain type is a value by reference.
    return type.lptdesc->vt == VT_USERDEFINED ? VARTYPE{VT_PTR}
                                              : static_cast<VARTYPE>(VT_BYREF | type.lptdesc->vt);
}

} // namespace

std::vector<Member> MembersOf(IDispatch* control)
{
    ComPtr<ITypeInfo> info;
    Check(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
    const UINT count = TypeAttributes(info.Get())->cFuncs;

    std::vector<Member> members;
    for (UINT index = 0; index < count; ++index)
    {
        const FunctionDescription description(info.Get(), index);
        const FUNCDESC& function = *description.operator->();
        if (function.memid >= FirstOfAutomation && function.memid <= LastOfAutomation)
            continue;
        Bstr name;
        UINT names = 0;
        Check(info->GetNames(function.memid, name.Receive(), 1, &names));
        Member member{
            PrefixOf(function.invkind) + Narrow(name.String()), function.memid, function.invkind, {}};
        for (SHORT each = 0; each < function.cParams; ++each)
        {
            if ((function.lprgelemdescParam[each].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0)
                member.Takes.push_back(TypeOf(function.lprgelemdescParam[each].tdesc));
        }
        members.push_back(std::move(member));
    }
    return members;
}

Variant ArgumentOf(VARTYPE type, std::size_t number, IDispatch* font, IDispatch* database)
{
    const bool first = number % 2 == 0;
    switch (type)
    {
    case VT_BSTR:
        return first ? Variant(L"12") : Variant(L"Another text");
    case VT_VARIANT:
        return first ? Variant(L"12") : Variant::Null();
    case VT_DISPATCH:
        return Variant(first ? database : nullptr);
    case VT_PTR:
        return Variant(first ? font : nullptr);
    case VT_BOOL:
    case VT_BOOL | VT_BYREF:
        return Variant(first);
    case VT_DATE: {
        VARIANT date = {};
        V_VT(&date) = VT_DATE;
        V_DATE(&date) = first ? 40000 : 0;
        return Variant(date);
    }
    default:
        return Variant(first ? 1L : 0L);
    }
}

} // namespace kiv::test
