#pragma once

#include "controls/masked/DateEntry.h"
#include "controls/masked/OvertypeEditor.h"

namespace kiv
{

// The judgement of a date box's text.
struct DateVerdict
{
    bool Valid = false;
    // If valid, what the box is to show from now on; otherwise what it shows.
    std::wstring Text;
    // If not valid, what to tell the user.
    std::wstring Message;
    // The whole text is selected even if the user is told nothing. A date outside the period is, a text that
    // is no date only together with its message.
    bool SelectsSilently = false;

    bool operator==(const DateVerdict&) const = default;
};

// What a value assigned by the host puts into the box, before its validity is looked at.
struct AssignedDate
{
    std::wstring Text;
    // If the entry proves invalid: a date leaves the box blank and says nothing, any other text stays and is
    // an error.
    bool IsDate;

    bool operator==(const AssignedDate&) const = default;
};

// The rules of DateBox that need no window: layout, period and what follows from them.
class DateRules
{
public:
    DateRules() { SetStyle(DateFormat::MonthDayYear); }

    DateFormat Style() const { return reading_.Style; }
    // A number that names no layout is kept, while mask and format stay those of the layout before. The box's
    // text stays in any case.
    void SetStyle(DateFormat style);
    std::wstring_view Mask() const { return reading_.Layout.Mask; }
    std::wstring_view Format() const { return reading_.Layout.Format; }
    std::wstring_view Meaning() const { return reading_.Layout.Meaning; }
    int MaxLength() const { return static_cast<int>(reading_.Layout.Format.size()); }

    bool AllowVarious() const { return reading_.AllowVarious; }
    void SetAllowVarious(bool allow) { reading_.AllowVarious = allow; }

    // The period, as automation dates, from 01/01/1905 to 12/31/2004 at first. Both days belong to it,
    // whatever time of day the bounds may hold. Stored as they are, as when a form is loaded; false, and
    // nothing done, if the number is no date.
    double MinDate() const { return minDate_; }
    double MaxDate() const { return maxDate_; }
    bool StoreMinDate(double date) { return Store(minDate_, date); }
    bool StoreMaxDate(double date) { return Store(maxDate_, date); }

    // What is left of a bound that the host sets: only what the layout shows, as read back from its text. So
    // a day or month that it does not show is 1, a year 2001, and a year of two digits is read by their
    // window: 1905 becomes 2005 in mm/dd/yy. None if the number is no date, or no date once read back: 02/29
    // without a year.
    std::optional<double> AsShown(double date) const;

    // An entry in full, none if it is not accepted. Leaving the box puts it there.
    std::optional<DateEntry> Read(std::wstring_view boxText) const
    {
        return ReadDateEntry(reading_, boxText);
    }

    // What the property reads from the box's text. No period is looked at.
    std::optional<std::wstring> Value(std::wstring_view boxText) const;

    // A text or an automation date from the host; none for a number that is no date.
    AssignedDate Assigned(std::wstring_view value) const;
    std::optional<AssignedDate> Assigned(double date) const;

    // The box's new text for text from the clipboard; none if the box stays as it is.
    std::optional<std::wstring> Pasted(std::wstring_view clipboard) const;

    DateVerdict Judge(std::wstring_view boxText) const;

    KeyOutcome KeyPress(const BoxState& box, short keyAscii) const;
    KeyOutcome KeyDown(const BoxState& box, short keyCode) const;

private:
    static bool Store(double& bound, double date);
    bool InPeriod(const CalendarDay& day) const;
    std::wstring PeriodMessage() const;
    OvertypeTemplate Places() const
    {
        return {.Blank = Mask(), .Separator = L'/', .ClearingKey = L' ', .JumpKey = L'/'};
    }

    DateReading reading_;
    double minDate_ = ToAutomationDate(std::chrono::year(1905) / 1 / 1);
    double maxDate_ = ToAutomationDate(std::chrono::year(2004) / 12 / 31);
};

} // namespace kiv
