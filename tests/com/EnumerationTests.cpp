// The enumerations that hosts offer for the controls' properties. Some members' names hold blanks and
// punctuation; all must be found by name.

#include "tests/com/PublishedClasses.h"
#include "tests/com/TypeLibraryTest.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include <oleauto.h>

#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct Member
{
    const wchar_t* Name;
    long Value;
};

struct Enumeration
{
    const char* Name;
    unsigned long Id;
    std::vector<Member> Members;

    friend std::ostream& operator<<(std::ostream& out, const Enumeration& row) { return out << row.Name; }
};

class EnumerationTest : public TypeLibraryTest, public testing::WithParamInterface<Enumeration>
{
};

TEST_P(EnumerationTest, ListsItsMembersInOrder)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(GetParam().Id));
    EXPECT_EQ(DocumentationOf(info.Get(), MEMBERID_NIL).Name, Widen(GetParam().Name));
    const TypeAttributes attributes(info.Get());
    ASSERT_EQ(attributes->cVars, GetParam().Members.size());
    for (UINT i = 0; i < attributes->cVars; ++i)
    {
        VARDESC* variable = nullptr;
        ASSERT_HRESULT_SUCCEEDED(info->GetVarDesc(i, &variable));
        const Documentation documentation = DocumentationOf(info.Get(), variable->memid);
        const Member& expected = GetParam().Members[i];
        EXPECT_EQ(documentation.Name, expected.Name);
        EXPECT_EQ(documentation.Help, expected.Name);
        EXPECT_EQ(variable->varkind, VAR_CONST);
        EXPECT_EQ(variable->wVarFlags, 0);
        EXPECT_EQ(Show(Variant(*variable->lpvarValue)), Show(Variant(expected.Value)))
            << Narrow(expected.Name);
        info->ReleaseVarDesc(variable);
    }
}

TEST_P(EnumerationTest, FindsItsMembersByName)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(GetParam().Id));
    ComPtr<ITypeComp> compiler;
    ASSERT_HRESULT_SUCCEEDED(info->GetTypeComp(&compiler));
    for (const Member& expected : GetParam().Members)
    {
        std::wstring name = expected.Name;
        LPOLESTR names[] = {name.data()};
        MEMBERID member = MEMBERID_NIL;
        EXPECT_HRESULT_SUCCEEDED(info->GetIDsOfNames(names, 1, &member)) << Narrow(name);
        EXPECT_EQ(DocumentationOf(info.Get(), member).Name, expected.Name);

        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, name.data());
        ComPtr<ITypeInfo> owner;
        DESCKIND kind = DESCKIND_NONE;
        BINDPTR binding = {};
        EXPECT_HRESULT_SUCCEEDED(
            compiler->Bind(name.data(), hash, INVOKE_PROPERTYGET, &owner, &kind, &binding));
        ASSERT_EQ(kind, DESCKIND_VARDESC) << Narrow(name);
        EXPECT_EQ(V_I4(binding.lpvardesc->lpvarValue), expected.Value) << Narrow(name);
        owner->ReleaseVarDesc(binding.lpvardesc);
    }
}

TEST_P(EnumerationTest, IsFoundThroughTheWholeLibrary)
{
    for (const Member& expected : GetParam().Members)
    {
        std::wstring name = expected.Name;
        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, name.data());
        BOOL known = FALSE;
        EXPECT_HRESULT_SUCCEEDED(library_->IsName(name.data(), hash, &known));
        EXPECT_TRUE(known) << Narrow(name);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EnumerationTest,
    testing::Values(
        // In this order, which is not that of the values.
        Enumeration{"AnswerEnums", 0x3E649238, {{L"Yes", 1}, {L"No", 2}, {L"Neither", 0}}},
        Enumeration{"NumberFormatEnums",
                    0x3E64924E,
                    {{L"SSN", 0}, {L"Federal ID", 1}, {L"Routing #", 2}, {L"Custom", 3}}},
        Enumeration{"DisplayStyleEnums", 0x3E649234, {{L"Code", 0}, {L"Description", 1}}},
        Enumeration{"DetailStatusEnums", 0x3E649240, {{L"Blank", 0}, {L"Partial", 1}, {L"Complete", 2}}},
        Enumeration{
            "ButtonPictureTypeEnums",
            0x3E649241,
            {{L"Check Mark", 0}, {L"Plus", 1}, {L"Minus", 2}, {L"Note", 3}, {L"Graph", 4}, {L"WebLink", 5}}},
        Enumeration{"DateFormatEnums",
                    0x3E64923C,
                    {{L"mm/yy", 0},
                     {L"mm/dd/yy", 1},
                     {L"mm/dd/yyyy", 2},
                     {L"mm/dd", 3},
                     {L"yy", 4},
                     {L"yyyy", 5},
                     {L"mm/yyyy", 6},
                     {L"mm/dd/yy Only Year Required", 7}}}),
    [](const auto& row) { return std::string(row.param.Name); });

} // namespace

} // namespace kiv::test
