#pragma once

#include "controls/masked/DateLayout.h"
#include "runtime/core/AutomationDate.h"

#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// An entry that a date box accepts.
struct DateEntry
{
    // The entry in full: padded, completed, as long as the mask.
    std::wstring Text;
    // The day that it means; none for a blank entry, a year alone and various dates.
    std::optional<CalendarDay> Day;

    bool operator==(const DateEntry&) const = default;
};

// How an entry is read.
struct DateReading
{
    DateFormat Style = DateFormat::MonthDayYear;
    DateLayout Layout;
    // 99/99/99 is accepted where the layout has room for it, and means various dates.
    bool AllowVarious = false;
};

// Reads what stands in a date box, or is to be put there: underscores are blanks, "/" parts month, day and
// year. None if it is not a date in the layout; no period is looked at. Reading the Text of an entry gives
// the same Text again.
//
// Missing parts: a day or a month that the layout does not show is 1, a year that it does not show is 2001. A
// two-digit year up to 04 is 2000 to 2004, any other 1905 to 1999, except where only the year is required:
// there it is read by the window of two-digit years, like dates given by the host.
std::optional<DateEntry> ReadDateEntry(const DateReading& reading, std::wstring_view text);

// The year in which dates without a year are checked, no leap year.
constexpr int YearOfNoYear = 2001;

} // namespace kiv
