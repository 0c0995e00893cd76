#include "controls/lists/EnumRules.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(EnumQueries, AreMadeOfTheValuesAsTheyAre)
{
    EXPECT_EQ(LabelQuery(L"MA", L"Towns", L"7"),
              L"SELECT * FROM [Enum Tables]  WHERE [State Code] = 'MA' AND [Table Name] = 'Towns' AND "
              L"[Enum Code] = '7'");
    EXPECT_EQ(ListQuery(L"MA", L"Towns", ByDescription),
              L"SELECT * FROM [Enum Tables]  WHERE [State Code] = 'MA' AND [Table Name] = 'Towns' ORDER BY "
              L"[Enum Text]");
    EXPECT_EQ(ListQuery(L"MA", L"Towns", ByCode),
              L"SELECT * FROM [Enum Tables]  WHERE [State Code] = 'MA' AND [Table Name] = 'Towns' ORDER BY "
              L"RIGHT('0000000000' & [Enum Code], 10)");
    EXPECT_EQ(ListQuery(L"", L"", 7),
              L"SELECT * FROM [Enum Tables]  WHERE [State Code] = '' AND [Table Name] = '' ORDER BY "
              L"RIGHT('0000000000' & [Enum Code], 10)");
    // By the numbers that a host sets.
    EXPECT_EQ(ListQuery(L"", L"", 0), ListQuery(L"", L"", ByCode));
    EXPECT_EQ(ListQuery(L"", L"", 1), ListQuery(L"", L"", ByDescription));
}

TEST(EnumQueries, LeaveQuotesBlanksAndCaseAlone)
{
    EXPECT_EQ(LabelQuery(L" ma", L"T'n", L"o'x "),
              L"SELECT * FROM [Enum Tables]  WHERE [State Code] = ' ma' AND [Table Name] = 'T'n' AND "
              L"[Enum Code] = 'o'x '");
}

using Lines = std::vector<std::wstring_view>;

Lines DescriptionLines(std::wstring_view text)
{
    Lines lines;
    do
        lines.push_back(TakeLine(text));
    while (!text.empty());
    return lines;
}

TEST(EnumDescriptions, AreSplitAtLineBreaks)
{
    EXPECT_EQ(DescriptionLines(L""), (Lines{L""}));
    EXPECT_EQ(DescriptionLines(L"one"), (Lines{L"one"}));
    EXPECT_EQ(DescriptionLines(L"one\r\ntwo\r\nthree"), (Lines{L"one", L"two", L"three"}));
    EXPECT_EQ(DescriptionLines(L"one\r\n"), (Lines{L"one"})) << "nothing follows";
    EXPECT_EQ(DescriptionLines(L"\r\n"), (Lines{L""}));
    EXPECT_EQ(DescriptionLines(L"\r\none"), (Lines{L"", L"one"}));
    EXPECT_EQ(DescriptionLines(L"one\r\n\r\ntwo"), (Lines{L"one", L"", L"two"}));
    EXPECT_EQ(DescriptionLines(L"one\r\ntwo\r\n"), (Lines{L"one", L"two"}));
    EXPECT_EQ(DescriptionLines(L"a\rb\nc\n\rd"), (Lines{L"a\rb\nc\n\rd"})) << "only both together break";
    EXPECT_EQ(DescriptionLines(L"one\r"), (Lines{L"one\r"}));
}

TEST(EnumItems, HoldTheCodeBesideTheTab)
{
    EXPECT_EQ(ItemText(true, L"7", L"Pears"), L"7\tPears");
    EXPECT_EQ(ItemText(false, L"7", L"Pears"), L"Pears\t7");
    EXPECT_EQ(ItemText(true, L"", L"more"), L"\tmore");
    EXPECT_EQ(ItemText(false, L"", L"more"), L"more\t");
    for (const bool showCodes : {true, false})
        EXPECT_EQ(ItemText(showCodes, L"", L""), L"\t");
}

TEST(EnumItems, GiveTheCodeBack)
{
    for (const bool showCodes : {true, false})
    {
        EXPECT_EQ(ItemCode(showCodes, ItemText(showCodes, L"7", L"Pears")), L"7");
        EXPECT_EQ(ItemCode(showCodes, ItemText(showCodes, L"", L"more")), L"");
        EXPECT_EQ(ItemCode(showCodes, ItemText(showCodes, L"o'x ", L"")), L"o'x ");
    }
    EXPECT_EQ(ItemCode(true, L"no tab"), L"no tab");
    EXPECT_EQ(ItemCode(false, L"no tab"), L"");
    EXPECT_EQ(ItemCode(true, L""), L"");
    EXPECT_EQ(ItemCode(false, L""), L"");
}

// Only the first tab counts, so that a tab in front of the parting one spoils the code.
TEST(EnumItems, PartAtTheirFirstTab)
{
    EXPECT_EQ(ItemCode(true, ItemText(true, L"7\t8", L"Pears")), L"7");
    EXPECT_EQ(ItemCode(true, ItemText(true, L"7", L"Pears\tand plums")), L"7");
    EXPECT_EQ(ItemCode(false, ItemText(false, L"7", L"Pears\tand plums")), L"and plums\t7");
    EXPECT_EQ(ItemCode(false, ItemText(false, L"7\t8", L"Pears")), L"7\t8");
}

TEST(EnumWidths, AreWholeNumbersOfSixteenBits)
{
    EXPECT_EQ(WidestLine(0, 0), 0);
    EXPECT_EQ(WidestLine(0, 100.5), 100) << "halves go to the even number";
    EXPECT_EQ(WidestLine(0, 101.5), 102);
    EXPECT_EQ(WidestLine(200, 100), 200);
    EXPECT_EQ(WidestLine(200, 201), 201);
    EXPECT_EQ(WidestLine(0, 32767), 32767);
    EXPECT_EQ(WidestLine(0, 1e9), 32767);
}

TEST(EnumItems, AreReadAsCodeAndDescription)
{
    EXPECT_EQ(SpokenItem(true, L"7\tPears"), L"7, Pears");
    EXPECT_EQ(SpokenItem(true, L"\tand more pears"), L"and more pears");
    EXPECT_EQ(SpokenItem(true, L"(none)\t"), L"(none)");
    EXPECT_EQ(SpokenItem(true, L"no tab"), L"no tab");
    EXPECT_EQ(SpokenItem(false, L"Pears\t7"), L"Pears");
    EXPECT_EQ(SpokenItem(false, L"(none)\t"), L"(none)");
    EXPECT_EQ(SpokenItem(false, L""), L"");
}

} // namespace

} // namespace kiv::test
