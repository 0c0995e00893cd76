#pragma once

#include "runtime/core/AutomationDate.h"

#include <string>
#include <string_view>

namespace kiv
{

// Dates as text, month first whatever the machine's settings say.

// The year that digits stand for: one or two digits by the window of two-digit years, more as they are. None
// for anything but digits.
std::optional<int> ReadYear(std::wstring_view digits);

// A date that names its month, day and year. Between them stand blanks, "/", "-" or a comma:
//   1/5/2001  01-05-01       month, day, year
//   2001-01-05               year first if it has three digits or more
//   January 5, 2001  5-Jan-01  the month by its English name or the first three or more letters of it
// Anything else is no date: a missing part, a time of day, a month above 12 (day and month are never
// swapped).
std::optional<CalendarDay> ParseDate(std::wstring_view text);

// The date in a format made of mm, dd, yy and yyyy, each at its full width; other characters stay.
std::wstring FormatDate(const CalendarDay& day, std::wstring_view format);

} // namespace kiv
