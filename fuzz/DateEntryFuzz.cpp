#include "controls/masked/DateRules.h"
#include "runtime/core/DateText.h"

#include <cstdint>
#include <cstdlib>

// A text for a date box. The first byte is the layout: 'a' to 'h', or 'A' to 'H' with various dates allowed,
// or none; each later byte is a character. A line end at the end is the file's.

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool FitsMask(std::wstring_view text, std::wstring_view mask)
{
    if (text.size() != mask.size())
        return false;
    for (std::size_t i = 0; i < mask.size(); ++i)
    {
        const bool fits =
            mask[i] == L'_' ? text[i] == L'_' || (text[i] >= L'0' && text[i] <= L'9') : text[i] == mask[i];
        if (!fits)
            return false;
    }
    return true;
}

void CheckEntry(const kiv::DateRules& rules, const std::wstring& text)
{
    const std::optional<kiv::DateEntry> entry = rules.Read(text);
    const std::optional<std::wstring> pasted = rules.Pasted(text);
    const kiv::DateVerdict verdict = rules.Judge(text);
    Require(verdict.Valid == verdict.Message.empty());
    if (!entry)
    {
        Require(!pasted && !rules.Value(text) && !verdict.Valid);
        return;
    }
    // In full it has the layout's places, and is the same when read again.
    Require(FitsMask(entry->Text, rules.Mask()));
    const std::optional<kiv::DateEntry> again = rules.Read(entry->Text);
    Require(again && again->Text == entry->Text);
    Require(text.empty() ? !pasted : pasted == entry->Text);
    Require(rules.Value(text) == (text == rules.Mask() ? std::nullopt : std::optional(entry->Text)));
    Require(verdict.Text == (verdict.Valid ? entry->Text : text));
    // Only the period is a reason to refuse it.
    Require(verdict.Valid || (entry->Day && verdict.SelectsSilently));
}

void CheckDate(const kiv::DateRules& rules, const std::wstring& text)
{
    const std::optional<kiv::CalendarDay> day = kiv::ParseDate(text);
    const kiv::AssignedDate assigned = rules.Assigned(text);
    Require(assigned.IsDate == day.has_value());
    if (!day)
    {
        Require(assigned.Text == text);
        return;
    }
    Require(kiv::ParseDate(kiv::FormatDate(*day, L"mm/dd/yyyy")) == day);
    Require(kiv::DayOf(kiv::ToAutomationDate(*day)) == day);
    Require(rules.Assigned(kiv::ToAutomationDate(*day)) == assigned);
    Require(FitsMask(assigned.Text, rules.Mask()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    kiv::DateRules rules;
    const bool various = data[0] < 'a';
    rules.SetStyle(static_cast<kiv::DateFormat>(data[0] - (various ? 'A' : 'a')));
    rules.SetAllowVarious(various);
    std::wstring text(data + 1, data + size);
    if (text.ends_with(L'\n'))
        text.pop_back();
    CheckEntry(rules, text);
    CheckDate(rules, text);
    return 0;
}
