#include "runtime/core/DateText.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

using std::chrono::year;

const CalendarDay January5 = year(2001) / 1 / 5;

struct DateInText
{
    std::wstring Text;
    std::optional<CalendarDay> Day;
};

class ParseDateTest : public testing::TestWithParam<DateInText>
{
};

TEST_P(ParseDateTest, ReadsMonthFirst)
{
    EXPECT_EQ(ParseDate(GetParam().Text), GetParam().Day);
}

INSTANTIATE_TEST_SUITE_P(
    Dates, ParseDateTest,
    testing::Values(
        DateInText{L"1/5/2001", January5}, DateInText{L"01/05/2001", January5},
        DateInText{L"1/5/01", January5}, DateInText{L"1/5/1", January5}, DateInText{L"1-5-2001", January5},
        DateInText{L"1 5 2001", January5}, DateInText{L" 1 / 5 / 2001 ", January5},
        DateInText{L"2001-01-05", January5}, DateInText{L"2001/1/5", January5},
        DateInText{L"January 5, 2001", January5}, DateInText{L"jan 5 2001", January5},
        DateInText{L"5 JANUARY 2001", January5}, DateInText{L"5-Jan-01", January5},
        DateInText{L"Sept 9, 1999", year(1999) / 9 / 9}, DateInText{L"May 1, 1999", year(1999) / 5 / 1},
        DateInText{L"Jun 1, 1999", year(1999) / 6 / 1}, DateInText{L"Jul 1, 1999", year(1999) / 7 / 1},
        DateInText{L"December 31, 9999", year(9999) / 12 / 31}, DateInText{L"2/29/2004", year(2004) / 2 / 29},
        // The window of two-digit years.
        DateInText{L"1/5/29", year(2029) / 1 / 5}, DateInText{L"1/5/30", year(1930) / 1 / 5},
        DateInText{L"1/5/00", year(2000) / 1 / 5}, DateInText{L"1/5/99", year(1999) / 1 / 5},
        DateInText{L"1/5/100", year(100) / 1 / 5}, DateInText{L"100/1/5", year(100) / 1 / 5}));

INSTANTIATE_TEST_SUITE_P(
    Others, ParseDateTest,
    testing::Values(DateInText{L"", {}}, DateInText{L" ", {}}, DateInText{L"1/5", {}},
                    DateInText{L"1/5/", {}}, DateInText{L"2001", {}}, DateInText{L"1/2001", {}},
                    DateInText{L"January 2001", {}}, DateInText{L"1//5/2001", {}},
                    DateInText{L"1/5/2001/1", {}}, DateInText{L"1/5/2001 12:00", {}},
                    DateInText{L"/1/5/2001", {}}, DateInText{L"1.5.2001", {}}, DateInText{L"13/1/2001", {}},
                    DateInText{L"31/12/2004", {}}, DateInText{L"2/29/2001", {}}, DateInText{L"0/5/2001", {}},
                    DateInText{L"1/0/2001", {}}, DateInText{L"1/5/099", {}}, DateInText{L"1/5/10000", {}},
                    DateInText{L"2001-13-01", {}}, DateInText{L"Ja 5, 2001", {}},
                    DateInText{L"Januaryx 5, 2001", {}}, DateInText{L"Foo 5, 2001", {}},
                    DateInText{L"Jan Jan 2001", {}}, DateInText{L"1 5 Jan", {}}, DateInText{L"5Jan2001", {}},
                    DateInText{L"99/99/99", {}}, DateInText{L"__/__/__", {}}, DateInText{L"1/5/2001\n", {}},
                    DateInText{L"-1/5/2001", {}}, DateInText{L"１/５/２００１", {}},
                    DateInText{std::wstring(5000, L'1'), {}}));

TEST(ReadYearTest, CompletesOneOrTwoDigits)
{
    EXPECT_EQ(ReadYear(L"5"), 2005);
    EXPECT_EQ(ReadYear(L"05"), 2005);
    EXPECT_EQ(ReadYear(L"005"), 5);
    EXPECT_EQ(ReadYear(L"30"), 1930);
    EXPECT_EQ(ReadYear(L"2004"), 2004);
    EXPECT_EQ(ReadYear(L""), std::nullopt);
    EXPECT_EQ(ReadYear(L"2k"), std::nullopt);
}

TEST(FormatDateTest, WritesEveryPartAtItsWidth)
{
    EXPECT_EQ(FormatDate(January5, L"mm/dd/yyyy"), L"01/05/2001");
    EXPECT_EQ(FormatDate(January5, L"mm/dd/yy"), L"01/05/01");
    EXPECT_EQ(FormatDate(January5, L"mm/yyyy"), L"01/2001");
    EXPECT_EQ(FormatDate(January5, L"yy"), L"01");
    EXPECT_EQ(FormatDate(year(100) / 12 / 31, L"yyyy-mm-dd"), L"0100-12-31");
    EXPECT_EQ(FormatDate(year(1999) / 12 / 31, L""), L"");
}

TEST(FormatDateTest, IsReadBack)
{
    for (double date = -657434; date <= 2958465; date += 37)
    {
        const CalendarDay day = *DayOf(date);
        ASSERT_EQ(ParseDate(FormatDate(day, L"mm/dd/yyyy")), day);
        ASSERT_EQ(ParseDate(FormatDate(day, L"yyyy-mm-dd")), day);
    }
}

} // namespace

} // namespace kiv::test
