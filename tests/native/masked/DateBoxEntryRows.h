#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// Styles: 0 mm/yy, 1 mm/dd/yy, 2 mm/dd/yyyy, 3 mm/dd, 4 yy, 5 yyyy, 6 mm/yyyy, 7 mm/dd/yy with only the year
// required. Periods are automation dates: 1828 is 01/01/1905, 38352 is 12/31/2004.

enum class Judgement
{
    // Value reads After; IsValidInput puts it into the box and is True.
    Valid,
    // The same, but Value reads Null.
    Blank,
    // Value reads After; IsValidInput is False and names the period.
    OutsidePeriod,
    // Value reads Null; IsValidInput is False and quotes the box.
    NoDate
};

// What the box holds, and what becomes of it.
struct DateEntryRow
{
    const char* Name;
    int Style;
    bool AllowVarious;
    std::wstring BoxText;
    Judgement Judged;
    std::wstring After = {};
    double MinDate = 1828;
    double MaxDate = 38352;
};

inline const std::vector<DateEntryRow> DateEntryRows = {
    // mm/yy is the first of the month.
    {"MonthYearBlank", 0, false, L"__/__", Judgement::Blank, L"__/__"},
    {"MonthYear", 0, false, L"12/04", Judgement::Valid, L"12/04"},
    {"MonthYearPadded", 0, false, L"1_/_5", Judgement::Valid, L"01/05"},
    {"MonthYearWithoutYearIs2000", 0, false, L"03/__", Judgement::Valid, L"03/00"},
    {"MonthYearWithoutMonth", 0, false, L"__/03", Judgement::NoDate},
    {"MonthYearVarious", 0, true, L"99/99", Judgement::NoDate},
    {"MonthYearMonthThirteen", 0, false, L"13/01", Judgement::NoDate},
    {"MonthYearMonthZero", 0, false, L"00/01", Judgement::NoDate},
    {"MonthYearFirstOfThePeriod", 0, false, L"01/05", Judgement::Valid, L"01/05"},
    {"MonthYearBeforeThePeriod", 0, false, L"01/05", Judgement::OutsidePeriod, L"01/05", 1829},
    {"MonthYearAfterThePeriod", 0, false, L"12/04", Judgement::OutsidePeriod, L"12/04", 1828, 38321},
    {"MonthYearLastOfThePeriod", 0, false, L"12/04", Judgement::Valid, L"12/04", 1828, 38322},

    // mm/dd/yy: 00 to 04 are this century.
    {"DateBlank", 1, false, L"__/__/__", Judgement::Blank, L"__/__/__"},
    {"Date", 1, false, L"01/05/01", Judgement::Valid, L"01/05/01"},
    {"DatePadded", 1, false, L"1_/5_/1_", Judgement::Valid, L"01/05/01"},
    {"DatePaddedInFront", 1, false, L"_1/_5/_1", Judgement::Valid, L"01/05/01"},
    {"DateWithoutYearIs2001", 1, false, L"01/05/__", Judgement::Valid, L"01/05/01"},
    {"DateWithoutDay", 1, false, L"01/__/01", Judgement::NoDate},
    {"DateWithoutMonth", 1, false, L"__/05/01", Judgement::NoDate},
    {"DateYearAlone", 1, false, L"__/__/01", Judgement::NoDate},
    {"DateVarious", 1, true, L"99/99/99", Judgement::Valid, L"99/99/99"},
    {"DateVariousNotAllowed", 1, false, L"99/99/99", Judgement::NoDate},
    {"DatePartlyVarious", 1, true, L"99/99/98", Judgement::NoDate},
    {"DateFebruary29InACommonYear", 1, false, L"02/29/01", Judgement::NoDate},
    {"DateFebruary29InALeapYear", 1, false, L"02/29/04", Judgement::Valid, L"02/29/04"},
    {"DateFebruary29In2000", 1, false, L"02/29/00", Judgement::Valid, L"02/29/00"},
    {"DateFebruary29In1905", 1, false, L"02/29/05", Judgement::NoDate},
    {"DateFebruary29In1908", 1, false, L"02/29/08", Judgement::Valid, L"02/29/08"},
    {"DateFebruary30", 1, false, L"02/30/04", Judgement::NoDate},
    {"DateApril31", 1, false, L"04/31/01", Judgement::NoDate},
    {"DateApril30", 1, false, L"04/30/01", Judgement::Valid, L"04/30/01"},
    {"DateDayZero", 1, false, L"01/00/01", Judgement::NoDate},
    {"DateDay32", 1, false, L"01/32/01", Judgement::NoDate},
    {"DateMonthThirteen", 1, false, L"13/01/01", Judgement::NoDate},
    {"DateLastOfThePeriod", 1, false, L"12/31/04", Judgement::Valid, L"12/31/04"},
    {"DateFirstOfThePeriod", 1, false, L"01/01/05", Judgement::Valid, L"01/01/05"},
    {"DateBeforeThePeriod", 1, false, L"01/01/05", Judgement::OutsidePeriod, L"01/01/05", 1829},
    {"DateAfterThePeriod", 1, false, L"12/31/04", Judgement::OutsidePeriod, L"12/31/04", 1828, 38351},
    {"DateOutsideAndUntidyStaysUntidy", 1, false, L"1_/1_/5_", Judgement::OutsidePeriod, L"01/01/05", 1829},
    {"DateVariousIsInEveryPeriod", 1, true, L"99/99/99", Judgement::Valid, L"99/99/99", 1828, 1828},
    {"DateBlankIsInEveryPeriod", 1, false, L"__/__/__", Judgement::Blank, L"__/__/__", 1828, 1828},
    // The bounds' time of day does not count.
    {"DateOnAFirstDayFromNoon", 1, false, L"01/01/05", Judgement::Valid, L"01/01/05", 1828.5},
    {"DateOnALastDayTillNoon", 1, false, L"12/31/04", Judgement::Valid, L"12/31/04", 1828, 38352.5},
    {"DateEmptyBox", 1, false, L"", Judgement::NoDate},

    // mm/dd/yyyy completes years of one or two digits.
    {"FullDateBlank", 2, false, L"__/__/____", Judgement::Blank, L"__/__/____"},
    {"FullDate", 2, false, L"12/31/2004", Judgement::Valid, L"12/31/2004"},
    {"FullDatePadded", 2, false, L"1_/5_/2001", Judgement::Valid, L"01/05/2001"},
    {"FullDateWithYear04", 2, false, L"01/05/04__", Judgement::Valid, L"01/05/2004"},
    {"FullDateWithYear05", 2, false, L"01/05/__05", Judgement::Valid, L"01/05/1905"},
    {"FullDateWithYear3", 2, false, L"01/05/_3__", Judgement::Valid, L"01/05/2003"},
    {"FullDateWithoutYear", 2, false, L"01/05/____", Judgement::NoDate},
    {"FullDateWithAGapInTheYear", 2, false, L"01/05/2_01", Judgement::NoDate},
    {"FullDateWithYearOfThreeDigits", 2, false, L"01/05/200_", Judgement::OutsidePeriod, L"01/05/0200"},
    {"FullDateWithYearBeforeTheCalendar", 2, false, L"01/05/0099", Judgement::NoDate},
    {"FullDateVarious", 2, true, L"99/99/99__", Judgement::NoDate},
    {"FullDateAllNines", 2, true, L"99/99/9999", Judgement::NoDate},
    {"FullDateFebruary29In2001", 2, false, L"02/29/2001", Judgement::NoDate},
    {"FullDateFebruary29In2004", 2, false, L"02/29/2004", Judgement::Valid, L"02/29/2004"},
    {"FullDateFebruary29In1900", 2, false, L"02/29/1900", Judgement::NoDate},
    {"FullDateBeforeThePeriod", 2, false, L"12/31/1904", Judgement::OutsidePeriod, L"12/31/1904"},
    {"FullDateAfterThePeriod", 2, false, L"01/01/2005", Judgement::OutsidePeriod, L"01/01/2005"},
    // Bounds before 30 December 1899: -1.25 is the morning of the 29th.
    {"FullDateOnABoundOfThe1890s", 2, false, L"12/29/1899", Judgement::Valid, L"12/29/1899", -1.25},
    {"FullDateBeforeABoundOfThe1890s", 2, false, L"12/28/1899", Judgement::OutsidePeriod, L"12/28/1899",
     -1.25},
    {"FullDateOnALastDayOfThe1890s", 2, false, L"12/29/1899", Judgement::Valid, L"12/29/1899", -400, -1.75},
    {"FullDateAfterALastDayOfThe1890s", 2, false, L"12/30/1899", Judgement::OutsidePeriod, L"12/30/1899",
     -400, -1.75},
    {"FullDateOnDayZero", 2, false, L"12/30/1899", Judgement::Valid, L"12/30/1899", -0.5, 0.5},

    // mm/dd is checked in 2001.
    {"MonthDayBlank", 3, false, L"__/__", Judgement::Blank, L"__/__"},
    {"MonthDay", 3, false, L"12/31", Judgement::Valid, L"12/31"},
    {"MonthDayPadded", 3, false, L"1_/_5", Judgement::Valid, L"01/05"},
    {"MonthDayWithoutDay", 3, false, L"12/__", Judgement::NoDate},
    {"MonthDayWithoutMonth", 3, false, L"__/12", Judgement::NoDate},
    {"MonthDayVarious", 3, true, L"99/99", Judgement::NoDate},
    {"MonthDayFebruary29", 3, false, L"02/29", Judgement::NoDate},
    {"MonthDayFebruary29OfAYear", 3, false, L"02/29/2004", Judgement::NoDate},
    {"MonthDayFebruary28", 3, false, L"02/28", Judgement::Valid, L"02/28"},
    {"MonthDayBeforeThePeriod", 3, false, L"01/05", Judgement::OutsidePeriod, L"01/05", 36897},
    {"MonthDayAfterThePeriod", 3, false, L"01/05", Judgement::OutsidePeriod, L"01/05", 1828, 36895},

    // yy and yyyy are the first of January.
    {"YearBlank", 4, false, L"__", Judgement::Blank, L"__"},
    {"Year04", 4, false, L"04", Judgement::Valid, L"04"},
    {"Year05", 4, false, L"05", Judgement::Valid, L"05"},
    {"YearPadded", 4, false, L"3_", Judgement::Valid, L"03"},
    {"YearPaddedInFront", 4, false, L"_3", Judgement::Valid, L"03"},
    {"YearVarious", 4, true, L"99", Judgement::Valid, L"99"},
    {"YearOfNoDigits", 4, false, L"x1", Judgement::NoDate},
    {"YearBeforeThePeriod", 4, false, L"05", Judgement::OutsidePeriod, L"05", 1829},
    {"YearAfterThePeriod", 4, false, L"04", Judgement::OutsidePeriod, L"04", 1828, 37986},
    // Nothing at all is 2001 here, as a missing year is.
    {"YearEmptyBox", 4, false, L"", Judgement::Valid, L"01"},
    {"FullYearBlank", 5, false, L"____", Judgement::Blank, L"____"},
    {"FullYear", 5, false, L"2004", Judgement::Valid, L"2004"},
    {"FullYearOfTwoDigits", 5, false, L"20__", Judgement::Valid, L"1920"},
    {"FullYearOfOneDigit", 5, false, L"_3__", Judgement::Valid, L"2003"},
    {"FullYearOfThreeDigits", 5, false, L"190_", Judgement::OutsidePeriod, L"0190"},
    {"FullYearVarious", 5, true, L"9999", Judgement::OutsidePeriod, L"9999"},
    {"FullYearBeforeTheCalendar", 5, false, L"0099", Judgement::NoDate},
    {"FullYearWithAGap", 5, false, L"2_04", Judgement::NoDate},
    {"FullYearBeforeThePeriod", 5, false, L"1904", Judgement::OutsidePeriod, L"1904"},
    {"FullYearAfterThePeriod", 5, false, L"2005", Judgement::OutsidePeriod, L"2005"},
    {"FullYearEmptyBox", 5, false, L"", Judgement::NoDate},

    // mm/yyyy accepts its blank and nothing else.
    {"MonthFullYearBlank", 6, false, L"__/____", Judgement::Blank, L"__/____"},
    {"MonthFullYear", 6, false, L"03/2001", Judgement::NoDate},
    {"MonthFullYearPartial", 6, false, L"03/____", Judgement::NoDate},
    {"MonthFullYearPadded", 6, false, L"_3/2001", Judgement::NoDate},
    {"MonthFullYearVarious", 6, true, L"99/9999", Judgement::NoDate},
    {"MonthFullYearOutsideThePeriod", 6, false, L"01/2005", Judgement::NoDate},
    {"MonthFullYearMonthThirteen", 6, false, L"13/2001", Judgement::NoDate},
    {"MonthFullYearAsAWholeDate", 6, false, L"03/01/2001", Judgement::NoDate},

    // Only the year is required.
    {"OnlyYearBlank", 7, false, L"__/__/__", Judgement::Blank, L"__/__/__"},
    {"OnlyYear", 7, false, L"__/__/03", Judgement::Valid, L"__/__/03"},
    {"OnlyYearPadded", 7, false, L"__/__/3_", Judgement::Valid, L"__/__/03"},
    {"OnlyYearInThePlaceOfTheMonth", 7, false, L"03/__/__", Judgement::Valid, L"__/__/03"},
    {"OnlyYearOfOneDigitInThePlaceOfTheMonth", 7, false, L"_3/__/__", Judgement::Valid, L"__/__/03"},
    {"OnlyYearAboveTwelveInThePlaceOfTheMonth", 7, false, L"76/__/__", Judgement::Valid, L"__/__/76"},
    {"OnlyYearInThePlaceOfTheDay", 7, false, L"__/03/__", Judgement::NoDate},
    {"OnlyYearWithMonth", 7, false, L"01/__/03", Judgement::NoDate},
    {"OnlyYearWithDay", 7, false, L"__/05/03", Judgement::NoDate},
    {"OnlyYearWholeDate", 7, false, L"01/05/01", Judgement::Valid, L"01/05/01"},
    {"OnlyYearWholeDatePadded", 7, false, L"1_/5_/1_", Judgement::Valid, L"01/05/01"},
    {"OnlyYearWithoutYear", 7, false, L"01/05/__", Judgement::NoDate},
    {"OnlyYearVarious", 7, true, L"99/99/99", Judgement::Valid, L"99/99/99"},
    {"OnlyYearVariousNotAllowed", 7, false, L"99/99/99", Judgement::NoDate},
    {"OnlyYearNinetyNineAlone", 7, false, L"__/__/99", Judgement::Valid, L"__/__/99"},
    // Its two-digit years are those of any date: 29 is 2029, 30 is 1930.
    {"OnlyYearWholeDateIn2029", 7, false, L"01/05/29", Judgement::OutsidePeriod, L"01/05/29"},
    {"OnlyYearWholeDateIn1930", 7, false, L"01/05/30", Judgement::Valid, L"01/05/30"},
    {"OnlyYearFebruary29In2028", 7, false, L"02/29/28", Judgement::OutsidePeriod, L"02/29/28"},
    {"OnlyYearFebruary29In1932", 7, false, L"02/29/32", Judgement::Valid, L"02/29/32"},
    {"OnlyYearFebruary29InACommonYear", 7, false, L"02/29/01", Judgement::NoDate},
    // A year alone means no day: no period is asked.
    {"OnlyYear29", 7, false, L"__/__/29", Judgement::Valid, L"__/__/29"},
    {"OnlyYearAfterThePeriod", 7, false, L"01/01/05", Judgement::OutsidePeriod, L"01/01/05"},
    {"OnlyYearEmptyBox", 7, false, L"", Judgement::NoDate},
};

// What the host assigns as text. Refused is run-time error 380, and the text stays in the box.
struct DateAssignmentRow
{
    const char* Name;
    int Style;
    bool AllowVarious;
    std::wstring Assigned;
    bool Refused;
    std::wstring After;
};

inline const std::vector<DateAssignmentRow> DateAssignmentRows = {
    {"Date", 1, false, L"1/5/2001", false, L"01/05/01"},
    {"DateWithTwoDigitYear", 2, false, L"1/5/01", false, L"01/05/2001"},
    {"DateWithDashes", 1, false, L"1-5-2001", false, L"01/05/01"},
    {"DateYearFirst", 1, false, L"2001-01-05", false, L"01/05/01"},
    {"DateInWords", 2, false, L"January 5, 2001", false, L"01/05/2001"},
    {"DateShownAsMonthAndYear", 0, false, L"1/5/2001", false, L"01/01"},
    {"DateShownAsMonthAndDay", 3, false, L"1/5/2001", false, L"01/05"},
    {"DateShownAsYear", 4, false, L"1/5/2001", false, L"01"},
    {"DateShownAsFullYear", 5, false, L"1/5/2001", false, L"2001"},
    {"DateWhereOnlyTheYearIsRequired", 7, false, L"1/5/2001", false, L"01/05/01"},
    // A date that does not fit leaves the blank entry.
    {"DateOutsideThePeriod", 2, false, L"1/5/2005", false, L"__/__/____"},
    {"DateIn2029", 2, false, L"1/5/29", false, L"__/__/____"},
    {"DateIn1930", 2, false, L"1/5/30", false, L"01/05/1930"},
    {"DateShownAsMonthAndFullYear", 6, false, L"1/5/2001", false, L"__/____"},
    {"February29AsMonthAndDay", 3, false, L"2/29/2004", false, L"__/__"},
    // Two digits carry no century: 2010 shows as 10, and 10 is 1910 here.
    {"DateIn2010", 1, false, L"1/5/2010", false, L"01/05/10"},
    // Text that is no whole date is read in the layout.
    {"Various", 1, true, L"99/99/99", false, L"99/99/99"},
    {"VariousNotAllowed", 1, false, L"99/99/99", true, L"99/99/99"},
    {"VariousWithFullYear", 2, true, L"99/99/99", true, L"99/99/99"},
    {"MonthAndYear", 0, false, L"3/01", false, L"03/01"},
    {"MonthAndDay", 3, false, L"3/15", false, L"03/15"},
    {"Year", 5, false, L"2004", false, L"2004"},
    {"YearOfOneDigit", 4, false, L"3", false, L"03"},
    {"OnlyAYear", 7, false, L"__/__/03", false, L"__/__/03"},
    {"BlankEntry", 1, false, L"__/__/__", false, L"__/__/__"},
    {"DayWithoutYear", 1, false, L"1/5", false, L"01/05/01"},
    {"DayWithoutFullYear", 2, false, L"1/5", true, L"1/5"},
    {"ImpossibleDay", 1, false, L"2/29/2001", true, L"2/29/2001"},
    {"DayFirst", 1, false, L"31/12/2004", true, L"31/12/2004"},
    {"Letters", 1, false, L"soon", true, L"soon"},
    {"EmptyText", 1, false, L"", true, L""},
};

// Pasting, to a box that shows something else. Cutting and clearing always leave the mask.
struct DatePasteRow
{
    const char* Name;
    int Style;
    bool AllowVarious;
    std::wstring Clipboard;
    // None if the paste is ignored.
    std::optional<std::wstring> After;
};

inline const std::vector<DatePasteRow> DatePasteRows = {
    {"WholeDate", 1, false, L"01/05/01", L"01/05/01"},
    {"ShortDate", 1, false, L"1/5/1", L"01/05/01"},
    {"WithBlanks", 1, false, L"  1 / 5 / 01  ", L"01/05/01"},
    {"FullYearIsCut", 1, false, L"1/5/2001", L"01/05/01"},
    {"CenturyIsLost", 1, false, L"1/5/1903", L"01/05/03"},
    {"OutsideThePeriod", 2, false, L"1/5/2005", L"01/05/2005"},
    {"BlankEntry", 1, false, L"__/__/__", L"__/__/__"},
    {"Various", 1, true, L"99/99/99", L"99/99/99"},
    {"VariousWithBlanks", 1, true, L" 99 / 99 / 99 ", L"99/99/99"},
    {"VariousNotAllowed", 1, false, L"99/99/99", {}},
    {"WithoutYear", 1, false, L"1/5", L"01/05/01"},
    {"NothingInTheYear", 1, false, L"1/5/", L"01/05/01"},
    {"WithoutFullYear", 2, false, L"1/5", {}},
    {"WithDashes", 1, false, L"1-5-01", {}},
    {"Words", 1, false, L"January 5, 2001", {}},
    {"WithALineEnd", 1, false, L"1/5/01\r\n", {}},
    {"Sign", 1, false, L"+1/5/01", {}},
    {"Fraction", 1, false, L"1.0/5/01", {}},
    {"NotAscii", 1, false, L"１/５/０１", {}},
    {"Nothing", 1, false, L"", {}},
    {"NothingInAYear", 4, false, L"", {}},
    {"FarTooLong", 2, false, std::wstring(5000, L'1'), {}},
    {"ManyZeros", 2, false, std::wstring(5000, L'0') + L"1/5/2001", L"01/05/2001"},
    {"YearOfFiveDigits", 2, false, L"1/5/20011", {}},
    {"YearOfOnlyYearRequired", 7, false, L"//2003", L"__/__/03"},
    {"LettersForTheYear", 7, false, L"//ab", {}},
    {"LettersForTheMonth", 7, false, L"ab//", {}},
    {"SlashesAlone", 7, false, L"//", {}},
    {"MonthAndFullYear", 6, false, L"3/2001", {}},
    {"DateIntoMonthAndFullYear", 6, false, L"3/1/2001", {}},
    // Of a longer date only the parts that the layout has are read, the second one as its year.
    {"DateIntoMonthAndYear", 0, false, L"12/25/1999", L"12/25"},
    {"DateIntoMonthAndDay", 3, false, L"12/25/1999", L"12/25"},
};

} // namespace kiv::test
