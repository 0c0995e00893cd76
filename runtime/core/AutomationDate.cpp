#include "runtime/core/AutomationDate.h"

#include <cmath>

namespace kiv
{

namespace
{

using namespace std::chrono;

constexpr sys_days DayZero = year(1899) / December / 30;
constexpr int FirstDay = (sys_days(year(FirstYear) / January / 1) - DayZero).count();
constexpr int LastDay = (sys_days(year(LastYear) / December / 31) - DayZero).count();

} // namespace

std::optional<CalendarDay> MakeDay(int yearNumber, int monthNumber, int dayNumber)
{
    if (yearNumber < FirstYear || yearNumber > LastYear || monthNumber < 1 || monthNumber > 12 ||
        dayNumber < 1 || dayNumber > 31)
        return std::nullopt;
    const CalendarDay date = year(yearNumber) / monthNumber / dayNumber;
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<CalendarDay> DayOf(double automationDate)
{
    // Toward zero on both sides of day 0, as the fraction always counts forward. A number that is none fails
    // both comparisons.
    const double whole = std::trunc(automationDate);
    if (!(whole >= FirstDay && whole <= LastDay))
        return std::nullopt;
    return CalendarDay(DayZero + days(static_cast<int>(whole)));
}

double ToAutomationDate(const CalendarDay& day)
{
    return static_cast<double>((sys_days(day) - DayZero).count());
}

} // namespace kiv
