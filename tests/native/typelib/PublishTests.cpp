#include "tools/typelib/Publish.h"

#include "tests/native/typelib/TestLibraries.h"

#include <gtest/gtest.h>
#include <set>

namespace kiv::test
{
using namespace typelib;

namespace
{
class Publish : public testing::TestWithParam<const char*>
{
protected:
    // Written and read again, as a host sees it.
    static TypeLibrary Published()
    {
        TypeLibrary library = TypeLibrary::Read(CompiledLibrary(GetParam()));
        typelib::Publish(library, ContractNames());
        return TypeLibrary::Read(library.Write());
    }
};

std::vector<std::string> EnumerationMembers(const TypeLibrary& library)
{
    std::vector<std::string> names;
    for (const Type& type : library.Types())
    {
        for (const Member& member : type.Members)
        {
            if (type.IsEnumeration)
                names.push_back(NameAt(library, member.NameOffset));
        }
    }
    return names;
}

Type& FirstType(TypeLibrary& library, bool IsEnumeration)
{
    for (Type& type : library.Types())
    {
        if (type.IsEnumeration == IsEnumeration)
            return type;
    }
    throw std::runtime_error("the contract has no such type");
}

void ExpectUnpublishable(TypeLibrary& library, const PublishedNames& names, std::string_view message)
{
    ExpectRefused([&] { typelib::Publish(library, names); }, message);
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Contract, Publish, testing::Values("x86", "x64"),
                         [](const auto& test) { return std::string(test.param); });

TEST_P(Publish, GivesTheEnumerationsTheirPublishedMembers)
{
    const std::vector<std::string> expected{"Yes",         "No",
                                            "Neither",     "SSN",
                                            "Federal ID",  "Routing #",
                                            "Custom",      "Code",
                                            "Description", "Blank",
                                            "Partial",     "Complete",
                                            "Check Mark",  "Plus",
                                            "Minus",       "Note",
                                            "Graph",       "WebLink",
                                            "mm/yy",       "mm/dd/yy",
                                            "mm/dd/yyyy",  "mm/dd",
                                            "yy",          "yyyy",
                                            "mm/yyyy",     "mm/dd/yy Only Year Required"};
    EXPECT_EQ(EnumerationMembers(Published()), expected);
}

TEST_P(Publish, LeadsToEveryPublishedNameByItsHash)
{
    const TypeLibrary library = Published();
    ASSERT_EQ(ContractNames().size(), 9u);
    for (const auto& [placeholder, name] : ContractNames())
    {
        EXPECT_NE(FindByHash(library, name), NoOffset) << name;
        EXPECT_EQ(FindByHash(library, placeholder), NoOffset) << placeholder;
    }
    for (const char* untouched : {"YesNo", "_YesNo", "DrawFocusState", "TargetFocus", "Neither", "yyyy"})
        EXPECT_NE(FindByHash(library, untouched), NoOffset) << untouched;
}

TEST_P(Publish, GivesEveryMemberItsNameAsHelpString)
{
    const TypeLibrary library = Published();
    for (const Type& type : library.Types())
    {
        for (const Member& member : type.Members)
        {
            if (!type.IsEnumeration)
                continue;
            ASSERT_EQ(member.Record.size(), 28u);
            EXPECT_EQ(Read16(member.Record, 0), 28u);
            EXPECT_EQ(Read32(member.Record, 20), 0u) << "no help context";
            EXPECT_EQ(StringAt(library, Read32(member.Record, 24)), NameAt(library, member.NameOffset));
        }
    }
}

TEST_P(Publish, LeavesEverythingElseAlone)
{
    const TypeLibrary before = TypeLibrary::Read(CompiledLibrary(GetParam()));
    const TypeLibrary after = Published();
    for (std::size_t i = 0; i < TypeLibrary::SegmentCount; ++i)
    {
        const auto index = static_cast<TypeLibrary::SegmentIndex>(i);
        const std::set changed{TypeLibrary::TypeHeaders, TypeLibrary::Names, TypeLibrary::NameHash,
                               TypeLibrary::Strings};
        if (!changed.contains(index))
        {
            EXPECT_EQ(before.Segment(index), after.Segment(index)) << "segment " << i;
        }
    }
    const Bytes& strings = before.Segment(TypeLibrary::Strings);
    EXPECT_TRUE(std::equal(strings.begin(), strings.end(), after.Segment(TypeLibrary::Strings).begin()));
    ASSERT_EQ(before.Types().size(), after.Types().size());
    for (std::size_t i = 0; i < before.Types().size(); ++i)
    {
        const MemberBlock& old = before.Types()[i].Members;
        const MemberBlock& now = after.Types()[i].Members;
        ASSERT_EQ(old.size(), now.size());
        for (std::size_t k = 0; k < old.size(); ++k)
        {
            EXPECT_EQ(old[k].Id, now[k].Id);
            EXPECT_EQ(old[k].NameOffset, now[k].NameOffset);
            const ByteView from = Slice(old[k].Record, 2, old[k].Record.size() - 2);
            const ByteView to = Slice(now[k].Record, 2, from.size());
            EXPECT_TRUE(std::equal(from.begin(), from.end(), to.begin()));
        }
    }
}

TEST(PublishErrors, EveryRowMustBeUsed)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    PublishedNames names = ContractNames();
    names["Not_There"] = "Not There";
    ExpectUnpublishable(library, names, "no enumeration has a member 'Not_There'");
}

TEST(PublishErrors, APlaceholderElsewhereInTheLibraryDoesNotCount)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    ExpectUnpublishable(library, {{"WndProc", "Wnd.Prc"}}, "no enumeration has a member 'WndProc'");
}

TEST(PublishErrors, TwoMembersOfOnePlaceholder)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    FirstType(library, true).Members[0].NameOffset = FindByHash(library, "Federal_ID");
    ExpectUnpublishable(library, ContractNames(), "'Federal_ID' is used more than once");
}

TEST(PublishErrors, AMemberOfAnotherTypeUnderAPlaceholder)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    FirstType(library, false).Members[0].NameOffset = FindByHash(library, "mm_dd");
    ExpectUnpublishable(library, ContractNames(), "'mm_dd' is used more than once");
}

TEST(PublishErrors, AParameterUnderAPlaceholder)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    Bytes& wndProc = FirstType(library, false).Members[0].Record;
    ASSERT_EQ(NameAt(library, Read32(wndProc, wndProc.size() - 8)), "result");
    ASSERT_EQ(NameAt(library, Read32(wndProc, wndProc.size() - 5 * 12 + 4)), "hwnd");
    Write32(wndProc, wndProc.size() - 5 * 12 + 4, FindByHash(library, "Routing__"));
    ExpectUnpublishable(library, ContractNames(), "'Routing__' is used more than once");
}

TEST(PublishErrors, MoreParametersThanARecordHolds)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    Write16(FirstType(library, false).Members[0].Record, 20, 0x7FFF);
    ExpectUnpublishable(library, ContractNames(), "more parameters than its record holds");
}

TEST(PublishErrors, NamesOfAnotherLength)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    ExpectUnpublishable(library, {{"SSN", "Social #"}}, "'SSN' and 'Social #' differ in length");
}

TEST(PublishErrors, AMemberWithAHelpStringAlready)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    typelib::Publish(library, ContractNames());
    ExpectUnpublishable(library, {}, "the record of 'Yes' is not that of a plain member");
}

TEST(PublishErrors, AMemberWhoseNameIsNotThere)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    FirstType(library, true).Members[0].NameOffset += 4;
    ExpectUnpublishable(library, ContractNames(), "a name that is not there");
}
} // namespace kiv::test
