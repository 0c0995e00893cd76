// What the masks ask for, in words for those who cannot see them.

#include "controls/masked/DateRules.h"
#include "controls/masked/NumberRules.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(MaskedMeaning, SaysWhatANumberIs)
{
    NumberRules rules;
    EXPECT_EQ(rules.Meaning(), L"Social Security number, nine digits");
    rules.SetStyle(NumberFormat::FederalId);
    EXPECT_EQ(rules.Meaning(), L"Federal identification number, nine digits");
    rules.SetStyle(NumberFormat::Routing);
    EXPECT_EQ(rules.Meaning(), L"Routing number, nine digits");
    rules.SetStyle(NumberFormat::Custom);
    EXPECT_EQ(rules.Meaning(), L"Number, at most 9 digits") << "the length of the style before";
    rules.SetMaxLength(5);
    EXPECT_EQ(rules.Meaning(), L"Number, at most 5 digits");
    rules.SetMaxLength(0);
    EXPECT_EQ(rules.Meaning(), L"Number");
    rules.SetStyle(static_cast<NumberFormat>(7));
    EXPECT_EQ(rules.Meaning(), L"Number") << "no style";
}

TEST(MaskedMeaning, SaysWhichPartsADateHas)
{
    const wchar_t* const meanings[] = {
        L"Month and year, two digits each",
        L"Month, day and year, two digits each",
        L"Month and day, two digits each, and year, four digits",
        L"Month and day, two digits each",
        L"Year, two digits",
        L"Year, four digits",
        L"Month, two digits, and year, four digits",
        L"Month, day and year, two digits each; only the year is required",
    };
    DateRules rules;
    for (std::int32_t style = 0; style < 8; ++style)
    {
        rules.SetStyle(static_cast<DateFormat>(style));
        EXPECT_EQ(rules.Meaning(), meanings[style]) << style;
    }
    rules.SetStyle(static_cast<DateFormat>(8));
    EXPECT_EQ(rules.Meaning(), meanings[7]) << "of the layout before";
}

} // namespace

} // namespace kiv::test
