// The type library that hosts read from the library's file.

#include "tests/com/PublishedClasses.h"
#include "tests/com/TypeLibraryTest.h"
#include "tests/support/Text.h"

#include <oleauto.h>

#include <algorithm>
#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

TEST_F(TypeLibraryTest, IsTheOneThatFormsReferTo)
{
    TLIBATTR* attributes = nullptr;
    ASSERT_HRESULT_SUCCEEDED(library_->GetLibAttr(&attributes));
    EXPECT_EQ(GuidText(attributes->guid), L"{3E649255-873E-11D3-BB17-00105A16D8EF}");
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 0U);
    EXPECT_EQ(attributes->wLibFlags & (LIBFLAG_FRESTRICTED | LIBFLAG_FHIDDEN), 0);
    EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    library_->ReleaseTLibAttr(attributes);

    const Documentation documentation = DocumentationOf(library_.Get(), MEMBERID_NIL);
    EXPECT_EQ(documentation.Name, L"KivControls");
    EXPECT_EQ(documentation.Help, L"Form Folio Custom Controls");
}

TEST_F(TypeLibraryTest, IsFoundInTheRegistry)
{
    ComPtr<ITypeLib> registered;
    ASSERT_HRESULT_SUCCEEDED(LoadRegTypeLib(Id(0x3E649255), 1, 0, LOCALE_NEUTRAL, &registered));
    EXPECT_EQ(registered->GetTypeInfoCount(), library_->GetTypeInfoCount());
    EXPECT_EQ(DocumentationOf(registered.Get(), MEMBERID_NIL).Help, L"Form Folio Custom Controls");
}

struct PublishedType
{
    std::wstring Name;
    TYPEKIND Kind;
    unsigned long Id;
};

// Nothing else is in it: no class without a control behind it, and nothing internal.
TEST_F(TypeLibraryTest, HoldsThePublishedTypesAndNoOthers)
{
    std::vector<PublishedType> types = {
        {L"AnswerEnums", TKIND_ENUM, 0x3E649238},
        {L"NumberFormatEnums", TKIND_ENUM, 0x3E64924E},
        {L"DisplayStyleEnums", TKIND_ENUM, 0x3E649234},
        {L"DetailStatusEnums", TKIND_ENUM, 0x3E649240},
        {L"ButtonPictureTypeEnums", TKIND_ENUM, 0x3E649241},
        {L"DateFormatEnums", TKIND_ENUM, 0x3E64923C},
        {L"ISubClass", TKIND_DISPATCH, 0x3E649230},
    };
    for (const PublishedClass& each : ClassesIn(library_.Get()))
    {
        const std::wstring name = each.Name;
        types.push_back({name, TKIND_COCLASS, each.Class});
        types.push_back({L"_" + name, TKIND_DISPATCH, each.Properties});
        types.push_back({L"__" + name, TKIND_DISPATCH, each.Events});
    }
    std::map<std::wstring, PublishedType> expected;
    for (const PublishedType& type : types)
        expected.emplace(type.Name, type);

    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i)
    {
        ComPtr<ITypeInfo> info;
        ASSERT_HRESULT_SUCCEEDED(library_->GetTypeInfo(i, &info));
        const std::wstring name = DocumentationOf(info.Get(), MEMBERID_NIL).Name;
        const TypeAttributes attributes(info.Get());
        const auto found = expected.find(name);
        // Aliases of standard types that members refer to come along.
        if (found == expected.end())
        {
            EXPECT_EQ(attributes->typekind, TKIND_ALIAS) << Narrow(name);
            continue;
        }
        EXPECT_EQ(attributes->typekind, found->second.Kind) << Narrow(name);
        EXPECT_EQ(GuidText(attributes->guid), GuidText(Id(found->second.Id))) << Narrow(name);
        EXPECT_NE(DocumentationOf(info.Get(), MEMBERID_NIL).Help, L"") << Narrow(name);
        expected.erase(found);
    }
    for (const auto& [name, type] : expected)
        ADD_FAILURE() << Narrow(name) << " is missing";
}

TEST_F(TypeLibraryTest, HoldsExactlyTheClassesThatCanBeMade)
{
    const auto classes = ClassesIn(library_.Get());
    EXPECT_FALSE(classes.empty());
    for (const PublishedClass& each : PublishedClasses())
    {
        ComPtr<IClassFactory> factory;
        const HRESULT made = TheLibrary().GetClassObject(Id(each.Class), IID_PPV_ARGS(&factory));
        const bool published = std::ranges::any_of(
            classes, [&each](const PublishedClass& other) { return other.Class == each.Class; });
        EXPECT_EQ(Hr(made), Hr(published ? S_OK : CLASS_E_CLASSNOTAVAILABLE)) << Narrow(each.Name);
    }
}

TEST_F(TypeLibraryTest, OffersTheWindowProcedureInTheFirstSlotBehindIDispatch)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(0x3E649230));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    const ComPtr<ITypeInfo> vtable = VtableSide(info.Get());
    const TypeAttributes vtableAttributes(vtable.Get());
    EXPECT_EQ(vtableAttributes->typekind, TKIND_INTERFACE);
    EXPECT_EQ(GuidText(vtableAttributes->guid), L"{3E649230-873E-11D3-BB17-00105A16D8EF}");
    ASSERT_EQ(vtableAttributes->cFuncs, 1);
    const FunctionDescription function(vtable.Get(), 0);
    EXPECT_EQ(function->oVft, static_cast<SHORT>(7 * sizeof(void*)));
    EXPECT_EQ(function->callconv, CC_STDCALL);
    const std::wstring word = sizeof(void*) == 8 ? L"hyper" : L"long";
    EXPECT_EQ(MemberText(vtable.Get(), 0), L"method 1610809344 WndProc(in long hwnd, in long msg, in " +
                                               word + L" wParam, in " + word + L" lParam, out retval " +
                                               word + L"* result) HRESULT");
}

} // namespace

} // namespace kiv::test
