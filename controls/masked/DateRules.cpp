#include "controls/masked/DateRules.h"

#include "runtime/core/DateText.h"
#include "runtime/core/TwoDigitYear.h"

namespace kiv
{

namespace
{

// The part of a date that a format shows, or what stands in for it.
int ShownYear(std::wstring_view format, const CalendarDay& day)
{
    const int year = static_cast<int>(day.year());
    if (format.find(L"yyyy") != format.npos)
        return year;
    return format.find(L"yy") != format.npos ? FullYear(year % 100) : YearOfNoYear;
}

int ShownMonth(std::wstring_view format, const CalendarDay& day)
{
    return format.find(L"mm") != format.npos ? static_cast<int>(static_cast<unsigned>(day.month())) : 1;
}

int ShownDay(std::wstring_view format, const CalendarDay& day)
{
    return format.find(L"dd") != format.npos ? static_cast<int>(static_cast<unsigned>(day.day())) : 1;
}

} // namespace

void DateRules::SetStyle(DateFormat style)
{
    reading_.Style = style;
    if (const DateLayout* layout = FindDateLayout(style))
        reading_.Layout = *layout;
}

bool DateRules::Store(double& bound, double date)
{
    if (!DayOf(date))
        return false;
    bound = date;
    return true;
}

std::optional<double> DateRules::AsShown(double date) const
{
    const std::optional<CalendarDay> day = DayOf(date);
    if (!day)
        return std::nullopt;
    const std::optional<CalendarDay> shown =
        MakeDay(ShownYear(Format(), *day), ShownMonth(Format(), *day), ShownDay(Format(), *day));
    return shown ? std::optional(ToAutomationDate(*shown)) : std::nullopt;
}

std::optional<std::wstring> DateRules::Value(std::wstring_view boxText) const
{
    if (boxText == Mask())
        return std::nullopt;
    const std::optional<DateEntry> entry = Read(boxText);
    return entry ? std::optional(entry->Text) : std::nullopt;
}

AssignedDate DateRules::Assigned(std::wstring_view value) const
{
    if (const std::optional<CalendarDay> day = ParseDate(value))
        return {FormatDate(*day, Format()), true};
    return {std::wstring(value), false};
}

std::optional<AssignedDate> DateRules::Assigned(double date) const
{
    const std::optional<CalendarDay> day = DayOf(date);
    return day ? std::optional(AssignedDate{FormatDate(*day, Format()), true}) : std::nullopt;
}

std::optional<std::wstring> DateRules::Pasted(std::wstring_view clipboard) const
{
    // A clipboard without text has nothing to paste; where a missing year stands for 2001, it must not enter
    // one.
    if (clipboard.empty())
        return std::nullopt;
    const std::optional<DateEntry> entry = Read(clipboard);
    return entry ? std::optional(entry->Text) : std::nullopt;
}

DateVerdict DateRules::Judge(std::wstring_view boxText) const
{
    const std::wstring shown(boxText);
    const std::optional<DateEntry> entry = Read(boxText);
    if (!entry)
        return {.Text = shown, .Message = L"'" + shown + L"' is not a valid date."};
    if (entry->Day && !InPeriod(*entry->Day))
        return {.Text = shown, .Message = PeriodMessage(), .SelectsSilently = true};
    return {.Valid = true, .Text = entry->Text, .Message = {}};
}

bool DateRules::InPeriod(const CalendarDay& day) const
{
    return *DayOf(minDate_) <= day && day <= *DayOf(maxDate_);
}

std::wstring DateRules::PeriodMessage() const
{
    constexpr std::wstring_view format = L"mm/dd/yyyy";
    return L"Please enter a date within the period " + FormatDate(*DayOf(minDate_), format) + L" - " +
           FormatDate(*DayOf(maxDate_), format) + L".";
}

KeyOutcome DateRules::KeyPress(const BoxState& box, short keyAscii) const
{
    return OvertypeCharacter(Places(), box, keyAscii);
}

KeyOutcome DateRules::KeyDown(const BoxState& box, short keyCode) const
{
    return keyCode == DeleteKey ? OvertypeDelete(Places(), box) : PassOn(box);
}

} // namespace kiv
