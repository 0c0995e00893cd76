#include "runtime/core/DateText.h"

#include "runtime/core/Digits.h"
#include "runtime/core/TwoDigitYear.h"

#include <algorithm>
#include <array>

namespace kiv
{

namespace
{

constexpr auto MonthNames =
    std::to_array<std::wstring_view>({L"january", L"february", L"march", L"april", L"may", L"june", L"july",
                                      L"august", L"september", L"october", L"november", L"december"});

constexpr std::wstring_view Separators = L"/-,";

// What the name of a month may be made of.
constexpr bool IsNamePart(wchar_t character)
{
    return !IsDigit(character) && character != L' ' && Separators.find(character) == Separators.npos;
}

// Folds upper case onto lower case, and makes a letter of nothing else.
constexpr wchar_t LowerCase(wchar_t character)
{
    return static_cast<wchar_t>(character | 0x20);
}

using Fields = std::array<std::wstring_view, 3>;

void SkipBlanks(std::wstring_view& rest)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
}

// Blanks, one separator or both; false if there is neither.
bool SkipSeparator(std::wstring_view& rest)
{
    const std::size_t before = rest.size();
    SkipBlanks(rest);
    if (!rest.empty() && Separators.find(rest.front()) != Separators.npos)
        rest.remove_prefix(1);
    SkipBlanks(rest);
    return rest.size() < before;
}

// A run of digits or of what names are made of, empty if the rest begins with neither.
std::wstring_view TakeField(std::wstring_view& rest)
{
    const auto belongs = rest.empty() || IsDigit(rest.front()) ? IsDigit : IsNamePart;
    const auto end = std::ranges::find_if_not(rest, belongs);
    const std::wstring_view field = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(field.size());
    return field;
}

// The three fields of a text that consists of nothing else.
std::optional<Fields> Split(std::wstring_view rest)
{
    Fields fields;
    SkipBlanks(rest);
    for (std::wstring_view& field : fields)
    {
        if (&field != fields.data() && !SkipSeparator(rest))
            return std::nullopt;
        field = TakeField(rest);
        if (field.empty())
            return std::nullopt;
    }
    SkipBlanks(rest);
    return rest.empty() ? std::optional(fields) : std::nullopt;
}

std::optional<int> MonthOfName(std::wstring_view name)
{
    if (name.size() < 3)
        return std::nullopt;
    const auto begins = [name](std::wstring_view month) {
        return name.size() <= month.size() &&
               std::ranges::equal(name, month.substr(0, name.size()), {}, LowerCase);
    };
    const auto month = std::ranges::find_if(MonthNames, begins);
    return month == MonthNames.end() ? std::nullopt
                                     : std::optional(static_cast<int>(month - MonthNames.begin()) + 1);
}

std::optional<CalendarDay> MakeDay(std::optional<int> year, std::optional<int> month, std::optional<int> day)
{
    return year && month && day ? kiv::MakeDay(*year, *month, *day) : std::nullopt;
}

} // namespace

std::optional<int> ReadYear(std::wstring_view digits)
{
    const std::optional<int> year = ReadDigits(digits);
    return year && digits.size() <= 2 ? FullYear(*year) : year;
}

std::optional<CalendarDay> ParseDate(std::wstring_view text)
{
    const std::optional<Fields> fields = Split(text);
    if (!fields)
        return std::nullopt;
    const auto& [first, second, third] = *fields;
    if (IsNamePart(first.front()))
        return MakeDay(ReadYear(third), MonthOfName(first), ReadDigits(second));
    if (IsNamePart(second.front()))
        return MakeDay(ReadYear(third), MonthOfName(second), ReadDigits(first));
    if (first.size() > 2)
        return MakeDay(ReadYear(first), ReadDigits(second), ReadDigits(third));
    return MakeDay(ReadYear(third), ReadDigits(first), ReadDigits(second));
}

std::wstring FormatDate(const CalendarDay& day, std::wstring_view format)
{
    const int year = static_cast<int>(day.year());
    std::wstring text;
    while (!format.empty())
    {
        std::size_t taken = 2;
        if (format.starts_with(L"mm"))
            text += PadDigits(static_cast<int>(static_cast<unsigned>(day.month())), 2);
        else if (format.starts_with(L"dd"))
            text += PadDigits(static_cast<int>(static_cast<unsigned>(day.day())), 2);
        else if (format.starts_with(L"yyyy"))
        {
            text += PadDigits(year, 4);
            taken = 4;
        }
        else if (format.starts_with(L"yy"))
            text += PadDigits(year % 100, 2);
        else
        {
            text += format.front();
            taken = 1;
        }
        format.remove_prefix(taken);
    }
    return text;
}

} // namespace kiv
