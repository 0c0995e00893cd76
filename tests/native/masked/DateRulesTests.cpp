#include "controls/masked/DateRules.h"

#include "tests/native/masked/DateBoxEntryRows.h"
#include "tests/native/masked/RowName.h"

#include <cmath>
#include <limits>

namespace kiv::test
{

namespace
{

constexpr std::wstring_view DefaultPeriodMessage =
    L"Please enter a date within the period 01/01/1905 - 12/31/2004.";

template<class Row>
DateRules RulesOf(const Row& row)
{
    DateRules rules;
    rules.SetStyle(static_cast<DateFormat>(row.Style));
    rules.SetAllowVarious(row.AllowVarious);
    return rules;
}

class DateEntryTest : public testing::TestWithParam<DateEntryRow>
{
protected:
    DateEntryTest()
    {
        EXPECT_TRUE(Rules.StoreMinDate(GetParam().MinDate));
        EXPECT_TRUE(Rules.StoreMaxDate(GetParam().MaxDate));
    }

    DateRules Rules = RulesOf(GetParam());
};

TEST_P(DateEntryTest, IsJudgedAsTheRowSays)
{
    const DateEntryRow& row = GetParam();
    const DateVerdict verdict = Rules.Judge(row.BoxText);
    const bool valid = row.Judged == Judgement::Valid || row.Judged == Judgement::Blank;
    EXPECT_EQ(verdict.Valid, valid);
    EXPECT_EQ(verdict.Text, valid ? row.After : row.BoxText);
    EXPECT_EQ(verdict.SelectsSilently, row.Judged == Judgement::OutsidePeriod);
    if (valid)
        EXPECT_EQ(verdict.Message, L"");
    else if (row.Judged == Judgement::NoDate)
        EXPECT_EQ(verdict.Message, L"'" + row.BoxText + L"' is not a valid date.");
    else
        EXPECT_TRUE(verdict.Message.starts_with(L"Please enter a date within the period ")) << row.Name;
}

TEST_P(DateEntryTest, ReadsAsTheRowSays)
{
    const DateEntryRow& row = GetParam();
    const bool null = row.Judged == Judgement::Blank || row.Judged == Judgement::NoDate;
    EXPECT_EQ(Rules.Value(row.BoxText), null ? std::nullopt : std::optional(row.After));
}

TEST_P(DateEntryTest, ReadsTheSameOnceItIsTidy)
{
    const DateEntryRow& row = GetParam();
    const std::optional<DateEntry> entry = Rules.Read(row.BoxText);
    ASSERT_EQ(entry.has_value(), row.Judged != Judgement::NoDate);
    if (!entry)
        return;
    EXPECT_EQ(entry->Text.size(), Rules.Mask().size());
    EXPECT_EQ(Rules.Read(entry->Text), entry);
}

INSTANTIATE_TEST_SUITE_P(Rows, DateEntryTest, testing::ValuesIn(DateEntryRows), NameOfRow);

class DateAssignmentTest : public testing::TestWithParam<DateAssignmentRow>
{
};

// As a control assigns: the text goes into the box, and stays unless the entry proves invalid.
TEST_P(DateAssignmentTest, EndsAsTheRowSays)
{
    const DateRules rules = RulesOf(GetParam());
    const AssignedDate assigned = rules.Assigned(GetParam().Assigned);
    const DateVerdict verdict = rules.Judge(assigned.Text);
    EXPECT_EQ(!verdict.Valid && !assigned.IsDate, GetParam().Refused);
    EXPECT_EQ(!verdict.Valid && assigned.IsDate ? std::wstring(rules.Mask()) : verdict.Text,
              GetParam().After);
}

INSTANTIATE_TEST_SUITE_P(Rows, DateAssignmentTest, testing::ValuesIn(DateAssignmentRows), NameOfRow);

class DatePasteTest : public testing::TestWithParam<DatePasteRow>
{
};

TEST_P(DatePasteTest, IsTakenWholeOrNotAtAll)
{
    const DateRules rules = RulesOf(GetParam());
    EXPECT_EQ(rules.Pasted(GetParam().Clipboard), GetParam().After);
    EXPECT_TRUE(!GetParam().After || rules.Read(*GetParam().After));
}

INSTANTIATE_TEST_SUITE_P(Rows, DatePasteTest, testing::ValuesIn(DatePasteRows), NameOfRow);

struct LayoutRow
{
    const char* Name;
    int Style;
    std::wstring Mask;
    std::wstring Format;
    // What is left of 02/03/1955 and of 11/30/2012 as bounds.
    CalendarDay Bound1955;
    CalendarDay Bound2012;
};

class DateLayoutTest : public testing::TestWithParam<LayoutRow>
{
protected:
    DateLayoutTest() { Rules.SetStyle(static_cast<DateFormat>(GetParam().Style)); }

    DateRules Rules;
};

TEST_P(DateLayoutTest, BringsItsMaskAndItsFormat)
{
    EXPECT_EQ(Rules.Mask(), GetParam().Mask);
    EXPECT_EQ(Rules.Format(), GetParam().Format);
    EXPECT_EQ(Rules.MaxLength(), static_cast<int>(GetParam().Mask.size()));
}

TEST_P(DateLayoutTest, KeepsOfABoundWhatItShows)
{
    const double day1955 = ToAutomationDate(std::chrono::year(1955) / 2 / 3);
    const double day2012 = ToAutomationDate(std::chrono::year(2012) / 11 / 30);
    EXPECT_EQ(Rules.AsShown(day1955), ToAutomationDate(GetParam().Bound1955));
    // Never the time of day.
    EXPECT_EQ(Rules.AsShown(day2012 + 0.75), ToAutomationDate(GetParam().Bound2012));
}

TEST_P(DateLayoutTest, KeepsABoundThatItHasKept)
{
    const std::optional<double> once = Rules.AsShown(ToAutomationDate(std::chrono::year(1876) / 5 / 4));
    ASSERT_TRUE(once);
    EXPECT_EQ(Rules.AsShown(*once), once);
}

using std::chrono::year;

INSTANTIATE_TEST_SUITE_P(
    Rows, DateLayoutTest,
    testing::Values(
        LayoutRow{"MonthYear", 0, L"__/__", L"mm/yy", year(1955) / 2 / 1, year(2012) / 11 / 1},
        LayoutRow{"MonthDayYear", 1, L"__/__/__", L"mm/dd/yy", year(1955) / 2 / 3, year(2012) / 11 / 30},
        LayoutRow{"MonthDayFullYear", 2, L"__/__/____", L"mm/dd/yyyy", year(1955) / 2 / 3,
                  year(2012) / 11 / 30},
        LayoutRow{"MonthDay", 3, L"__/__", L"mm/dd", year(2001) / 2 / 3, year(2001) / 11 / 30},
        LayoutRow{"Year", 4, L"__", L"yy", year(1955) / 1 / 1, year(2012) / 1 / 1},
        LayoutRow{"FullYear", 5, L"____", L"yyyy", year(1955) / 1 / 1, year(2012) / 1 / 1},
        LayoutRow{"MonthFullYear", 6, L"__/____", L"mm/yyyy", year(1955) / 2 / 1, year(2012) / 11 / 1},
        LayoutRow{"OnlyYearRequired", 7, L"__/__/__", L"mm/dd/yy", year(1955) / 2 / 3, year(2012) / 11 / 30}),
    NameOfRow);

TEST(DateRulesTest, StartsAsAShortDateOfItsPeriod)
{
    const DateRules rules;
    EXPECT_EQ(rules.Style(), DateFormat::MonthDayYear);
    EXPECT_FALSE(rules.AllowVarious());
    EXPECT_EQ(rules.MinDate(), 1828);
    EXPECT_EQ(rules.MaxDate(), 38352);
}

TEST(DateRulesTest, ANumberThatIsNoLayoutKeepsTheLayout)
{
    for (const int style : {8, -1, 1000})
    {
        DateRules rules;
        rules.SetStyle(DateFormat::FullYear);
        rules.SetStyle(DateFormat(style));
        EXPECT_EQ(rules.Style(), DateFormat(style));
        EXPECT_EQ(rules.Mask(), L"____");
        EXPECT_EQ(rules.Format(), L"yyyy");
    }
}

TEST(DateRulesTest, NamesThePeriod)
{
    DateRules rules;
    rules.SetStyle(DateFormat::MonthDayFullYear);
    EXPECT_EQ(rules.Judge(L"01/01/2005").Message, DefaultPeriodMessage);
    rules.StoreMinDate(-1.25);
    rules.StoreMaxDate(0.75);
    EXPECT_EQ(rules.Judge(L"01/01/2005").Message,
              L"Please enter a date within the period 12/29/1899 - 12/30/1899.");
    rules.StoreMinDate(-657434);
    EXPECT_EQ(rules.Judge(L"01/01/2005").Message,
              L"Please enter a date within the period 01/01/0100 - 12/30/1899.");
}

// A short layout keeps two digits of a bound's year: the bound that a box begins with, set again, is another.
TEST(DateRulesTest, ABoundThatIsSetAgainInAShortLayoutMaySwapCenturies)
{
    DateRules rules;
    EXPECT_EQ(rules.AsShown(rules.MaxDate()), rules.MaxDate());
    const std::optional<double> shown = rules.AsShown(rules.MinDate());
    EXPECT_EQ(shown, 38353) << "1/1/2005";
    ASSERT_TRUE(rules.StoreMinDate(*shown));
    EXPECT_FALSE(rules.Judge(L"12/31/04").Valid);
    EXPECT_FALSE(rules.Judge(L"01/01/05").Valid) << "typed, it is one of 1905";
}

TEST(DateRulesTest, QuotesTheBoxWithItsUnderscores)
{
    const DateRules rules;
    EXPECT_EQ(rules.Judge(L"02/29/01").Message, L"'02/29/01' is not a valid date.");
    EXPECT_EQ(rules.Judge(L"0_/__/__").Message, L"'0_/__/__' is not a valid date.");
}

TEST(DateRulesTest, RefusesABoundThatIsNoDate)
{
    DateRules rules;
    for (const double number : {-657435.0, 2958466.0, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()})
    {
        EXPECT_FALSE(rules.StoreMinDate(number));
        EXPECT_FALSE(rules.StoreMaxDate(number));
        EXPECT_FALSE(rules.AsShown(number));
        EXPECT_FALSE(rules.Assigned(number));
    }
    EXPECT_EQ(rules.MinDate(), 1828);
    EXPECT_EQ(rules.MaxDate(), 38352);
}

TEST(DateRulesTest, ABoundWithTwoDigitsOfTheYearIsReadByTheirWindow)
{
    const DateRules rules;
    EXPECT_EQ(rules.AsShown(ToAutomationDate(year(1905) / 1 / 1)), ToAutomationDate(year(2005) / 1 / 1));
    EXPECT_EQ(rules.AsShown(ToAutomationDate(year(2029) / 12 / 31)), ToAutomationDate(year(2029) / 12 / 31));
    EXPECT_EQ(rules.AsShown(ToAutomationDate(year(2030) / 1 / 1)), ToAutomationDate(year(1930) / 1 / 1));
}

TEST(DateRulesTest, KeepsTheCenturyOfABoundThatShowsIt)
{
    DateRules rules;
    rules.SetStyle(DateFormat::MonthDayFullYear);
    EXPECT_EQ(rules.AsShown(ToAutomationDate(year(1876) / 5 / 4)), ToAutomationDate(year(1876) / 5 / 4));
}

TEST(DateRulesTest, February29IsNoBoundWithoutAYear)
{
    DateRules rules;
    rules.SetStyle(DateFormat::MonthDay);
    EXPECT_FALSE(rules.AsShown(ToAutomationDate(year(2004) / 2 / 29)));
    EXPECT_TRUE(rules.AsShown(ToAutomationDate(year(2004) / 2 / 28)));
}

TEST(DateRulesTest, ShowsAnAssignedDateInTheLayout)
{
    DateRules rules;
    rules.SetStyle(DateFormat::MonthDayFullYear);
    EXPECT_EQ(rules.Assigned(38352.75), (AssignedDate{L"12/31/2004", true}));
    EXPECT_EQ(rules.Assigned(-1.25), (AssignedDate{L"12/29/1899", true}));
    rules.SetStyle(DateFormat::MonthFullYear);
    EXPECT_EQ(rules.Assigned(38352.0), (AssignedDate{L"12/2004", true}));
}

// Every day of the period can be typed, and reads as itself.
TEST(DateRulesTest, TakesEveryDayOfThePeriod)
{
    const DateRules shortRules;
    DateRules fullRules;
    fullRules.SetStyle(DateFormat::MonthDayFullYear);
    for (double day = shortRules.MinDate(); day <= shortRules.MaxDate(); ++day)
    {
        const std::wstring full = fullRules.Assigned(day)->Text;
        ASSERT_EQ(fullRules.Judge(full), (DateVerdict{true, full, L"", false}));
        ASSERT_EQ(fullRules.Read(full)->Day, DayOf(day));
        const std::wstring brief = shortRules.Assigned(day)->Text;
        ASSERT_EQ(shortRules.Judge(brief), (DateVerdict{true, brief, L"", false}));
        ASSERT_EQ(shortRules.Read(brief)->Day, DayOf(day));
    }
}

} // namespace

} // namespace kiv::test
