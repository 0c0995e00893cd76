#include "controls/masked/DateEntry.h"

#include "runtime/core/DateText.h"
#include "runtime/core/Digits.h"

#include <algorithm>

namespace kiv
{

namespace
{

struct Parts
{
    std::wstring Month;
    std::wstring Day;
    std::wstring Year;
};

std::wstring_view Trimmed(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

// Takes what stands before the first "/", and the "/"; false if there is none.
bool TakePart(std::wstring_view& rest, std::wstring& part)
{
    const std::size_t slash = rest.find(L'/');
    if (slash == rest.npos)
        return false;
    part = Trimmed(rest.substr(0, slash));
    rest.remove_prefix(slash + 1);
    return true;
}

// A text without a "/" is its second part, and what follows a second "/" is all third part.
Parts Split(std::wstring_view text)
{
    std::wstring blanks(text);
    std::ranges::replace(blanks, L'_', L' ');
    std::wstring_view rest = Trimmed(blanks);
    Parts parts;
    TakePart(rest, parts.Month);
    std::wstring& last = TakePart(rest, parts.Day) ? parts.Year : parts.Day;
    last = Trimmed(rest);
    return parts;
}

// Gives the parts the places that they have in layouts without all three.
void Rearrange(DateFormat style, Parts& parts)
{
    const bool onlyYear = style == DateFormat::Year || style == DateFormat::FullYear;
    if (style != DateFormat::MonthYear && !onlyYear)
        return;
    parts.Year = parts.Day;
    parts.Day = L"1";
    if (onlyYear)
        parts.Month = L"1";
}

std::wstring LastTwoDigits(const std::wstring& digits)
{
    const std::wstring padded = L"00" + digits;
    return padded.substr(padded.size() - 2);
}

// 00 to 04 are 2000 to 2004, 05 to 99 are 1905 to 1999: the period that a box starts with. Only the last
// two characters count, whatever stands before them: deliberate, so that a pasted 1/5/1999 fits two digits.
std::wstring InStartingPeriod(const std::wstring& year)
{
    constexpr int lastOf2000s = 4;
    const std::wstring digits = LastTwoDigits(year);
    // What is no number is not greater than any.
    return (ReadDigits(digits) > lastOf2000s ? L"19" : L"20") + digits;
}

std::wstring CompletedYear(DateFormat style, const std::wstring& year)
{
    switch (style)
    {
    case DateFormat::MonthDay:
        return std::to_wstring(YearOfNoYear);
    case DateFormat::MonthDayYear:
    case DateFormat::Year:
        return year.empty() ? std::to_wstring(YearOfNoYear) : InStartingPeriod(year);
    case DateFormat::MonthYear:
        // A month without a year is one of 2000 here, not of 2001 as above: deliberate.
        return InStartingPeriod(year);
    case DateFormat::MonthDayFullYear:
    case DateFormat::FullYear:
        return year.size() < 3 && ReadDigits(year) ? InStartingPeriod(year) : year;
    default:
        return year;
    }
}

// Where only the year is required, a number without a day is a year, also in the place of the month.
std::optional<DateEntry> YearAlone(const Parts& parts)
{
    const std::wstring& year = parts.Month.empty() ? parts.Year : parts.Month;
    if (!ReadDigits(year) || (!parts.Month.empty() && !parts.Year.empty()))
        return std::nullopt;
    return DateEntry{L"__/__/" + LastTwoDigits(year), std::nullopt};
}

// A four-digit year has no room for 99/99/99.
bool IsVarious(DateFormat style, const Parts& parts)
{
    return (style == DateFormat::MonthDayYear || style == DateFormat::OnlyYearRequired) &&
           parts.Month == L"99" && parts.Day == L"99" && parts.Year == L"99";
}

std::optional<CalendarDay> ReadDay(const Parts& parts)
{
    const std::optional<int> year = ReadYear(parts.Year);
    const std::optional<int> month = ReadDigits(parts.Month);
    const std::optional<int> day = ReadDigits(parts.Day);
    return year && month && day ? MakeDay(*year, *month, *day) : std::nullopt;
}

} // namespace

std::optional<DateEntry> ReadDateEntry(const DateReading& reading, std::wstring_view text)
{
    if (text == reading.Layout.Mask)
        return DateEntry{std::wstring(text), std::nullopt};
    // Only a blank entry is accepted in this layout: deliberate, forms have always met it so.
    if (reading.Style == DateFormat::MonthFullYear)
        return std::nullopt;

    Parts parts = Split(text);
    Rearrange(reading.Style, parts);
    if (reading.Style == DateFormat::OnlyYearRequired && parts.Day.empty())
        return YearAlone(parts);
    if (reading.AllowVarious && IsVarious(reading.Style, parts))
        return DateEntry{L"99/99/99", std::nullopt};
    parts.Year = CompletedYear(reading.Style, parts.Year);
    const std::optional<CalendarDay> day = ReadDay(parts);
    if (!day)
        return std::nullopt;
    return DateEntry{FormatDate(*day, reading.Layout.Format), day};
}

} // namespace kiv
