#pragma once

#include <cstdint>
#include <string_view>

namespace kiv
{

// The layouts as DateBox publishes them. A host may store any other number.
enum class DateFormat : std::int32_t
{
    MonthYear = 0,
    MonthDayYear = 1,
    MonthDayFullYear = 2,
    MonthDay = 3,
    Year = 4,
    FullYear = 5,
    MonthFullYear = 6,
    OnlyYearRequired = 7
};

// How a date is shown: the blank entry, and the same places as a date's format.
struct DateLayout
{
    std::wstring_view Mask;
    std::wstring_view Format;
    std::wstring_view Meaning; // in words, for those who cannot see the mask
};

// Null for a number that names no layout.
const DateLayout* FindDateLayout(DateFormat style);

} // namespace kiv
