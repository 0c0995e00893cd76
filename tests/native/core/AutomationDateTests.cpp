#include "runtime/core/AutomationDate.h"
#include "runtime/core/TwoDigitYear.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

using std::chrono::year;

struct Count
{
    double Date;
    CalendarDay Day;
};

class AutomationDateTest : public testing::TestWithParam<Count>
{
};

TEST_P(AutomationDateTest, CountsDays)
{
    EXPECT_EQ(DayOf(GetParam().Date), GetParam().Day);
    EXPECT_EQ(DayOf(ToAutomationDate(GetParam().Day)), GetParam().Day);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AutomationDateTest,
    testing::Values(Count{0, year(1899) / 12 / 30}, Count{1, year(1899) / 12 / 31},
                    Count{2, year(1900) / 1 / 1}, Count{61, year(1900) / 3 / 1},
                    Count{1828, year(1905) / 1 / 1}, Count{36526, year(2000) / 1 / 1},
                    Count{36585, year(2000) / 2 / 29}, Count{38352, year(2004) / 12 / 31},
                    Count{38352.99999, year(2004) / 12 / 31},
                    // Fractions count forward on both sides of 0, so that 0.25 and -0.25 are the same time.
                    Count{0.25, year(1899) / 12 / 30}, Count{-0.25, year(1899) / 12 / 30},
                    Count{-1, year(1899) / 12 / 29}, Count{-1.25, year(1899) / 12 / 29},
                    Count{-1.99, year(1899) / 12 / 29}, Count{-2, year(1899) / 12 / 28},
                    Count{-657434, year(100) / 1 / 1}, Count{-657434.75, year(100) / 1 / 1},
                    Count{2958465, year(9999) / 12 / 31}, Count{2958465.75, year(9999) / 12 / 31}));

TEST(AutomationDateRangeTest, EndsWithTheYears100And9999)
{
    EXPECT_FALSE(DayOf(-657435));
    EXPECT_FALSE(DayOf(2958466));
    EXPECT_FALSE(DayOf(1e300));
    EXPECT_FALSE(DayOf(-std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(DayOf(std::numeric_limits<double>::quiet_NaN()));
}

TEST(AutomationDateRangeTest, TakesEveryDayThereAndBack)
{
    for (double date = -657434; date <= 2958465; ++date)
        ASSERT_EQ(ToAutomationDate(*DayOf(date)), date);
}

TEST(MakeDayTest, KnowsTheCalendar)
{
    EXPECT_TRUE(MakeDay(2004, 2, 29));
    EXPECT_TRUE(MakeDay(2000, 2, 29));
    EXPECT_TRUE(MakeDay(2001, 12, 31));
    EXPECT_TRUE(MakeDay(100, 1, 1));
    EXPECT_TRUE(MakeDay(9999, 12, 31));
    EXPECT_FALSE(MakeDay(2001, 2, 29));
    EXPECT_FALSE(MakeDay(1900, 2, 29));
    EXPECT_FALSE(MakeDay(2001, 4, 31));
    EXPECT_FALSE(MakeDay(2001, 1, 0));
    EXPECT_FALSE(MakeDay(2001, 1, 32));
    EXPECT_FALSE(MakeDay(2001, 0, 1));
    EXPECT_FALSE(MakeDay(2001, 13, 1));
    EXPECT_FALSE(MakeDay(99, 1, 1));
    EXPECT_FALSE(MakeDay(10000, 1, 1));
    // Numbers that a smaller type of the calendar would take for others.
    EXPECT_FALSE(MakeDay(2001, 257, 1));
    EXPECT_FALSE(MakeDay(2001, 1, 257));
    EXPECT_FALSE(MakeDay(65536 + 2001, 1, 1));
    EXPECT_FALSE(MakeDay(-2001, -1, -1));
}

TEST(TwoDigitYearTest, Has2029AsItsLastYear)
{
    EXPECT_EQ(FullYear(0), 2000);
    EXPECT_EQ(FullYear(4), 2004);
    EXPECT_EQ(FullYear(29), 2029);
    EXPECT_EQ(FullYear(30), 1930);
    EXPECT_EQ(FullYear(99), 1999);
}

} // namespace

} // namespace kiv::test
