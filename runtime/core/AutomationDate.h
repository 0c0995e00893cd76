#pragma once

#include <chrono>
#include <optional>

namespace kiv
{

// A day of the calendar, without a time.
using CalendarDay = std::chrono::year_month_day;

// The years whose days automation can count.
constexpr int FirstYear = 100;
constexpr int LastYear = 9999;

// The day, if the calendar has it and automation can count it.
std::optional<CalendarDay> MakeDay(int year, int month, int day);

// An automation date counts days from 30 December 1899, which is 0; its fraction is the time of day. Before
// that day the whole part is negative but the fraction still counts forward from midnight: -1.25 is six
// o'clock in the morning of 29 December 1899. None outside the years above.
std::optional<CalendarDay> DayOf(double automationDate);

// Midnight of the day, which must be one that automation can count.
double ToAutomationDate(const CalendarDay& day);

} // namespace kiv
