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
    static TypeLibrary published()
    {
        TypeLibrary library = TypeLibrary::read(compiledLibrary(GetParam()));
        publish(library, contractNames());
        return TypeLibrary::read(library.write());
    }
};

std::vector<std::string> enumerationMembers(const TypeLibrary& library)
{
    std::vector<std::string> names;
    for (const Type& type : library.types())
    {
        for (const Member& member : type.members)
        {
            if (type.isEnumeration)
                names.push_back(nameAt(library, member.nameOffset));
        }
    }
    return names;
}

Type& firstType(TypeLibrary& library, bool isEnumeration)
{
    for (Type& type : library.types())
    {
        if (type.isEnumeration == isEnumeration)
            return type;
    }
    throw std::runtime_error("the contract has no such type");
}

void expectUnpublishable(TypeLibrary& library, const PublishedNames& names, std::string_view message)
{
    expectRefused([&] { publish(library, names); }, message);
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
    EXPECT_EQ(enumerationMembers(published()), expected);
}

TEST_P(Publish, LeadsToEveryPublishedNameByItsHash)
{
    const TypeLibrary library = published();
    ASSERT_EQ(contractNames().size(), 9u);
    for (const auto& [placeholder, name] : contractNames())
    {
        EXPECT_NE(findByHash(library, name), noOffset) << name;
        EXPECT_EQ(findByHash(library, placeholder), noOffset) << placeholder;
    }
    for (const char* untouched : {"YesNo", "_YesNo", "DrawFocusState", "TargetFocus", "Neither", "yyyy"})
        EXPECT_NE(findByHash(library, untouched), noOffset) << untouched;
}

TEST_P(Publish, GivesEveryMemberItsNameAsHelpString)
{
    const TypeLibrary library = published();
    for (const Type& type : library.types())
    {
        for (const Member& member : type.members)
        {
            if (!type.isEnumeration)
                continue;
            ASSERT_EQ(member.record.size(), 28u);
            EXPECT_EQ(read16(member.record, 0), 28u);
            EXPECT_EQ(read32(member.record, 20), 0u) << "no help context";
            EXPECT_EQ(stringAt(library, read32(member.record, 24)), nameAt(library, member.nameOffset));
        }
    }
}

TEST_P(Publish, LeavesEverythingElseAlone)
{
    const TypeLibrary before = TypeLibrary::read(compiledLibrary(GetParam()));
    const TypeLibrary after = published();
    for (std::size_t i = 0; i < TypeLibrary::SegmentCount; ++i)
    {
        const auto index = static_cast<TypeLibrary::SegmentIndex>(i);
        const std::set changed{TypeLibrary::TypeHeaders, TypeLibrary::Names, TypeLibrary::NameHash,
                               TypeLibrary::Strings};
        if (!changed.contains(index))
        {
            EXPECT_EQ(before.segment(index), after.segment(index)) << "segment " << i;
        }
    }
    const Bytes& strings = before.segment(TypeLibrary::Strings);
    EXPECT_TRUE(std::equal(strings.begin(), strings.end(), after.segment(TypeLibrary::Strings).begin()));
    ASSERT_EQ(before.types().size(), after.types().size());
    for (std::size_t i = 0; i < before.types().size(); ++i)
    {
        const MemberBlock& old = before.types()[i].members;
        const MemberBlock& now = after.types()[i].members;
        ASSERT_EQ(old.size(), now.size());
        for (std::size_t k = 0; k < old.size(); ++k)
        {
            EXPECT_EQ(old[k].id, now[k].id);
            EXPECT_EQ(old[k].nameOffset, now[k].nameOffset);
            const ByteView from = slice(old[k].record, 2, old[k].record.size() - 2);
            const ByteView to = slice(now[k].record, 2, from.size());
            EXPECT_TRUE(std::equal(from.begin(), from.end(), to.begin()));
        }
    }
}

TEST(PublishErrors, EveryRowMustBeUsed)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    PublishedNames names = contractNames();
    names["Not_There"] = "Not There";
    expectUnpublishable(library, names, "no enumeration has a member 'Not_There'");
}

TEST(PublishErrors, APlaceholderElsewhereInTheLibraryDoesNotCount)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    expectUnpublishable(library, {{"WndProc", "Wnd.Prc"}}, "no enumeration has a member 'WndProc'");
}

TEST(PublishErrors, TwoMembersOfOnePlaceholder)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    firstType(library, true).members[0].nameOffset = findByHash(library, "Federal_ID");
    expectUnpublishable(library, contractNames(), "'Federal_ID' is used more than once");
}

TEST(PublishErrors, AMemberOfAnotherTypeUnderAPlaceholder)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    firstType(library, false).members[0].nameOffset = findByHash(library, "mm_dd");
    expectUnpublishable(library, contractNames(), "'mm_dd' is used more than once");
}

TEST(PublishErrors, AParameterUnderAPlaceholder)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    Bytes& wndProc = firstType(library, false).members[0].record;
    ASSERT_EQ(nameAt(library, read32(wndProc, wndProc.size() - 8)), "result");
    ASSERT_EQ(nameAt(library, read32(wndProc, wndProc.size() - 5 * 12 + 4)), "hwnd");
    write32(wndProc, wndProc.size() - 5 * 12 + 4, findByHash(library, "Routing__"));
    expectUnpublishable(library, contractNames(), "'Routing__' is used more than once");
}

TEST(PublishErrors, MoreParametersThanARecordHolds)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    write16(firstType(library, false).members[0].record, 20, 0x7FFF);
    expectUnpublishable(library, contractNames(), "more parameters than its record holds");
}

TEST(PublishErrors, NamesOfAnotherLength)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    expectUnpublishable(library, {{"SSN", "Social #"}}, "'SSN' and 'Social #' differ in length");
}

TEST(PublishErrors, AMemberWithAHelpStringAlready)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    publish(library, contractNames());
    expectUnpublishable(library, {}, "the record of 'Yes' is not that of a plain member");
}

TEST(PublishErrors, AMemberWhoseNameIsNotThere)
{
    TypeLibrary library = TypeLibrary::read(compiledLibrary());
    firstType(library, true).members[0].nameOffset += 4;
    expectUnpublishable(library, contractNames(), "a name that is not there");
}
} // namespace kiv::test
