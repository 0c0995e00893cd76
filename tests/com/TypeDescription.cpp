#include "tests/com/TypeDescription.h"

#include "runtime/com/Variant.h"

#include <map>
#include <utility>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A type as an interface definition would name it.
std::wstring TypeName(ITypeInfo* info, const TYPEDESC& type)
{
    switch (type.vt)
    {
    case VT_I2:
        return L"short";
    case VT_I4:
        return L"long";
    case VT_I8:
        return L"hyper";
    case VT_R4:
        return L"float";
    case VT_DATE:
        return L"DATE";
    case VT_CY:
        return L"CURRENCY";
    case VT_UI4:
        return L"unsigned long";
    case VT_BOOL:
        return L"VARIANT_BOOL";
    case VT_BSTR:
        return L"BSTR";
    case VT_VARIANT:
        return L"VARIANT";
    case VT_VOID:
        return L"void";
    case VT_HRESULT:
        return L"HRESULT";
    case VT_DISPATCH:
        return L"IDispatch*";
    case VT_PTR:
        return TypeName(info, *type.lptdesc) + L"*";
    case VT_USERDEFINED: {
        ComPtr<ITypeInfo> named;
        Check(info->GetRefTypeInfo(type.hreftype, &named));
        return DocumentationOf(named.Get(), MEMBERID_NIL).Name;
    }
    default:
        return L"VT " + std::to_wstring(type.vt);
    }
}

std::wstring ParameterText(ITypeInfo* info, const ELEMDESC& element, const std::wstring& name)
{
    const USHORT flags = element.paramdesc.wParamFlags;
    std::wstring text;
    const std::pair<USHORT, const wchar_t*> words[] = {{PARAMFLAG_FIN, L"in "},
                                                       {PARAMFLAG_FOUT, L"out "},
                                                       {PARAMFLAG_FRETVAL, L"retval "},
                                                       {PARAMFLAG_FOPT, L"optional "}};
    for (const auto& [flag, word] : words)
        text += (flags & flag) != 0 ? word : L"";
    if ((flags & PARAMFLAG_FHASDEFAULT) != 0)
        text += L"=" + Variant(element.paramdesc.pparamdescex->varDefaultValue).Text() + L" ";
    text += TypeName(info, element.tdesc);
    return name.empty() ? text : text + L" " + name;
}

// Where an interface's own members begin: a dispinterface view of a dual one lists IDispatch's seven first.
constexpr MEMBERID FirstOfIDispatch = 0x60000000;
constexpr MEMBERID LastOfIDispatch = 0x60010003;

} // namespace

std::wstring MemberText(ITypeInfo* info, UINT index)
{
    const FunctionDescription function(info, index);
    const std::map<INVOKEKIND, std::wstring> kinds = {{INVOKE_FUNC, L"method"},
                                                      {INVOKE_PROPERTYGET, L"get"},
                                                      {INVOKE_PROPERTYPUT, L"put"},
                                                      {INVOKE_PROPERTYPUTREF, L"putref"}};
    BSTR names[8] = {};
    UINT count = 0;
    Check(info->GetNames(function->memid, names, ARRAYSIZE(names), &count));
    std::vector<std::wstring> parameterNames;
    for (UINT i = 0; i < count; ++i)
    {
        parameterNames.emplace_back(Bstr::ViewOf(names[i]));
        SysFreeString(names[i]);
    }
    parameterNames.resize(1 + static_cast<std::size_t>(function->cParams));

    std::wstring text = kinds.at(function->invkind) + L" " + std::to_wstring(function->memid) + L" " +
                        parameterNames[0] + L"(";
    for (SHORT i = 0; i < function->cParams; ++i)
    {
        // A type library is asked for names by number, and a property's are those of its get.
        const bool named = function->invkind == INVOKE_FUNC || function->invkind == INVOKE_PROPERTYGET;
        const std::size_t number = static_cast<std::size_t>(i) + 1;
        text += (i == 0 ? L"" : L", ") + ParameterText(info, function->lprgelemdescParam[i],
                                                       named ? parameterNames[number] : std::wstring());
    }
    text += L") " + TypeName(info, function->elemdescFunc.tdesc);
    return text + WordsOf(function->wFuncFlags, {{FUNCFLAG_FBINDABLE, L"bindable"},
                                                 {FUNCFLAG_FREQUESTEDIT, L"requestedit"},
                                                 {FUNCFLAG_FDISPLAYBIND, L"displaybind"},
                                                 {FUNCFLAG_FDEFAULTBIND, L"defaultbind"},
                                                 {FUNCFLAG_FHIDDEN, L"hidden"},
                                                 {FUNCFLAG_FNONBROWSABLE, L"nonbrowsable"},
                                                 {FUNCFLAG_FRESTRICTED, L"restricted"},
                                                 {FUNCFLAG_FUIDEFAULT, L"uidefault"}});
}

std::wstring WordsOf(UINT flags, std::initializer_list<std::pair<UINT, const wchar_t*>> words)
{
    std::wstring text;
    for (const auto& [flag, word] : words)
    {
        if ((flags & flag) != 0)
            text += std::wstring(L" ") + word;
    }
    return text;
}

std::vector<std::wstring> OwnMembers(ITypeInfo* info)
{
    const TypeAttributes attributes(info);
    std::vector<std::wstring> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
    {
        const FunctionDescription function(info, i);
        if (function->memid < FirstOfIDispatch || function->memid > LastOfIDispatch)
            members.push_back(MemberText(info, i));
    }
    return members;
}

ComPtr<ITypeInfo> VtableSide(ITypeInfo* info)
{
    HREFTYPE reference = 0;
    Check(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ComPtr<ITypeInfo> vtable;
    Check(info->GetRefTypeInfo(reference, &vtable));
    return vtable;
}

} // namespace kiv::test
