#include "tests/com/ContractText.h"

#include "tests/com/TypeDescription.h"
#include "tests/support/Text.h"

#include "runtime/com/Variant.h"

#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr wchar_t Indent[] = L"    ";

std::wstring HeadingOf(ITypeInfo* info, const TypeAttributes& attributes)
{
    const std::map<TYPEKIND, std::wstring> kinds = {{TKIND_ENUM, L"enum"},
                                                    {TKIND_DISPATCH, L"dispinterface"},
                                                    {TKIND_INTERFACE, L"interface"},
                                                    {TKIND_COCLASS, L"coclass"},
                                                    {TKIND_ALIAS, L"alias"}};
    std::wstring text = kinds.at(attributes->typekind) + L" " + DocumentationOf(info, MEMBERID_NIL).Name;
    // An alias has no identifier that anybody would ask for.
    if (attributes->typekind != TKIND_ALIAS)
        text += L" " + GuidText(attributes->guid);
    return text + WordsOf(attributes->wTypeFlags, {{TYPEFLAG_FDUAL, L"dual"},
                                                   {TYPEFLAG_FOLEAUTOMATION, L"oleautomation"},
                                                   {TYPEFLAG_FDISPATCHABLE, L"dispatchable"},
                                                   {TYPEFLAG_FNONEXTENSIBLE, L"nonextensible"},
                                                   {TYPEFLAG_FHIDDEN, L"hidden"},
                                                   {TYPEFLAG_FRESTRICTED, L"restricted"},
                                                   {TYPEFLAG_FCANCREATE, L"creatable"},
                                                   {TYPEFLAG_FCONTROL, L"control"}});
}

std::wstring MembersOfEnumeration(ITypeInfo* info, const TypeAttributes& attributes)
{
    std::wstring text;
    for (UINT i = 0; i < attributes->cVars; ++i)
    {
        const VariableDescription member(info, i);
        text +=
            Indent + DocumentationOf(info, member->memid).Name + L" = " +
            Variant(*member->lpvarValue).Text() +
            WordsOf(member->wVarFlags, {{VARFLAG_FHIDDEN, L"hidden"}, {VARFLAG_FRESTRICTED, L"restricted"}}) +
            L"\n";
    }
    return text;
}

std::wstring InterfacesOfClass(ITypeInfo* info, const TypeAttributes& attributes)
{
    std::wstring text;
    for (UINT i = 0; i < attributes->cImplTypes; ++i)
    {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> implemented;
        Check(info->GetRefTypeOfImplType(i, &reference));
        Check(info->GetImplTypeFlags(i, &flags));
        Check(info->GetRefTypeInfo(reference, &implemented));
        text += Indent + DocumentationOf(implemented.Get(), MEMBERID_NIL).Name +
                WordsOf(static_cast<UINT>(flags), {{IMPLTYPEFLAG_FDEFAULT, L"default"},
                                                   {IMPLTYPEFLAG_FSOURCE, L"source"},
                                                   {IMPLTYPEFLAG_FRESTRICTED, L"restricted"},
                                                   {IMPLTYPEFLAG_FDEFAULTVTABLE, L"defaultvtable"}}) +
                L"\n";
    }
    return text;
}

// Early-bound hosts call by slot, and see the result as a last parameter.
std::wstring SlotsOf(ITypeInfo* vtable)
{
    const TypeAttributes attributes(vtable);
    std::wstring text;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
    {
        const FunctionDescription function(vtable, i);
        const auto slot = static_cast<std::size_t>(function->oVft) / sizeof(void*);
        text +=
            std::wstring(Indent) + L"slot " + std::to_wstring(slot) + L" " + MemberText(vtable, i) + L"\n";
    }
    return text;
}

std::wstring TextOf(ITypeInfo* info)
{
    const TypeAttributes attributes(info);
    std::wstring text = HeadingOf(info, attributes) + L"\n";
    if (attributes->typekind == TKIND_ENUM)
        text += MembersOfEnumeration(info, attributes);
    if (attributes->typekind == TKIND_COCLASS)
        text += InterfacesOfClass(info, attributes);
    for (const std::wstring& member : OwnMembers(info))
        text += Indent + member + L"\n";
    if ((attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0)
        text += SlotsOf(VtableSide(info).Get());
    return text;
}

// What a window message carries is pointer-sized, which hosts of 32 bits know as a Long. Nothing else in the
// library depends on the architecture.
std::wstring AsOn32Bits(std::wstring text)
{
    constexpr std::wstring_view Word = sizeof(void*) == 8 ? L"hyper" : L"long";
    for (std::size_t at = text.find(Word); at != std::wstring::npos; at = text.find(Word, at + 1))
        text.replace(at, Word.size(), L"long");
    return text;
}

} // namespace

std::string ContractText(ITypeLib* library)
{
    std::wstring text = L"library " + DocumentationOf(library, MEMBERID_NIL).Name + L"\n";
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i)
    {
        ComPtr<ITypeInfo> info;
        Check(library->GetTypeInfo(i, &info));
        text += L"\n" + TextOf(info.Get());
    }
    return Narrow(AsOn32Bits(text));
}

} // namespace kiv::test
