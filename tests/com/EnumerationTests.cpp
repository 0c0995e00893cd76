// The enumerations that hosts offer for the controls' properties. Some members' names hold blanks and
// punctuation; all must be found by name.

#include "tests/com/PublishedClasses.h"
#include "tests/com/TypeLibraryTest.h"
#include "tests/support/Text.h"

#include <oleauto.h>

#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct Enumeration
{
    const char* Name;
    unsigned long Id;

    friend std::ostream& operator<<(std::ostream& out, const Enumeration& row) { return out << row.Name; }
};

class EnumerationTest : public TypeLibraryTest, public testing::WithParamInterface<Enumeration>
{
protected:
    struct Member
    {
        std::wstring Name;
        long Value;
    };

    void SetUp() override
    {
        TypeLibraryTest::SetUp();
        info_ = InfoOf(Id(GetParam().Id));
        const TypeAttributes attributes(info_.Get());
        for (UINT i = 0; i < attributes->cVars; ++i)
        {
            const VariableDescription variable(info_.Get(), i);
            const Documentation documentation = DocumentationOf(info_.Get(), variable->memid);
            EXPECT_EQ(documentation.Help, documentation.Name);
            EXPECT_EQ(variable->varkind, VAR_CONST);
            EXPECT_EQ(V_VT(variable->lpvarValue), VT_I4) << Narrow(documentation.Name);
            members_.push_back({documentation.Name, V_I4(variable->lpvarValue)});
        }
        EXPECT_FALSE(members_.empty());
    }
    void TearDown() override
    {
        info_.Reset();
        TypeLibraryTest::TearDown();
    }

    ComPtr<ITypeInfo> info_;
    std::vector<Member> members_;
};

TEST_P(EnumerationTest, FindsItsMembersByName)
{
    ComPtr<ITypeComp> compiler;
    ASSERT_HRESULT_SUCCEEDED(info_->GetTypeComp(&compiler));
    for (Member& each : members_)
    {
        LPOLESTR names[] = {each.Name.data()};
        MEMBERID member = MEMBERID_NIL;
        EXPECT_HRESULT_SUCCEEDED(info_->GetIDsOfNames(names, 1, &member)) << Narrow(each.Name);
        EXPECT_EQ(DocumentationOf(info_.Get(), member).Name, each.Name);

        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, each.Name.data());
        ComPtr<ITypeInfo> owner;
        DESCKIND kind = DESCKIND_NONE;
        BINDPTR binding = {};
        EXPECT_HRESULT_SUCCEEDED(
            compiler->Bind(each.Name.data(), hash, INVOKE_PROPERTYGET, &owner, &kind, &binding));
        ASSERT_EQ(kind, DESCKIND_VARDESC) << Narrow(each.Name);
        EXPECT_EQ(V_I4(binding.lpvardesc->lpvarValue), each.Value) << Narrow(each.Name);
        owner->ReleaseVarDesc(binding.lpvardesc);
    }
}

TEST_P(EnumerationTest, IsFoundThroughTheWholeLibrary)
{
    for (Member& each : members_)
    {
        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, each.Name.data());
        BOOL known = FALSE;
        EXPECT_HRESULT_SUCCEEDED(library_->IsName(each.Name.data(), hash, &known));
        EXPECT_TRUE(known) << Narrow(each.Name);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EnumerationTest,
                         testing::Values(Enumeration{"AnswerEnums", 0x3E649238},
                                         Enumeration{"NumberFormatEnums", 0x3E64924E},
                                         Enumeration{"DisplayStyleEnums", 0x3E649234},
                                         Enumeration{"DetailStatusEnums", 0x3E649240},
                                         Enumeration{"ButtonPictureTypeEnums", 0x3E649241},
                                         Enumeration{"DateFormatEnums", 0x3E64923C}),
                         [](const auto& row) { return std::string(row.param.Name); });

} // namespace

} // namespace kiv::test
