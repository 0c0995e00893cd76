#include "controls/masked/NumberRules.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// A text for a number box. The first byte is the style, '0' to '3' or none; the second the most characters,
// from '0' on; each later byte is a character. A line end at the end is the file's.

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    kiv::NumberRules rules;
    rules.SetStyle(static_cast<kiv::NumberFormat>(data[0] - '0'));
    rules.SetMaxLength(data[1] - '0');
    std::wstring text(data + 2, data + size);
    if (text.ends_with(L'\n'))
        text.pop_back();
    const bool complete = rules.IsComplete(text);

    // What may be pasted is complete, goes in whole, and may be assigned as well.
    if (const std::optional<std::wstring> pasted = rules.Pasted(text))
    {
        Require(complete && *pasted == text);
        Require(rules.Assigned(text) == text);
    }
    // An entry is told to be wrong, or is blank, or has a value.
    const std::optional<std::wstring> value = rules.Value(text);
    Require(rules.Complaint(text).has_value() == (!text.empty() && !complete));
    Require(value.has_value() == (complete && text != rules.Mask()));
    Require(!value || *value == text);
    // A complete entry fits its box and its mask.
    if (complete && !text.empty() && rules.MaxLength() > 0)
        Require(text.size() <= static_cast<std::size_t>(rules.MaxLength()));
    if (complete && !rules.Mask().empty() && (data[0] == '0' || data[0] == '1'))
        Require(text.size() == rules.Mask().size());

    const std::wstring shown = rules.Text(text);
    Require(shown.find(L'_') == shown.npos && shown.size() <= text.size());
    Require(shown.empty() || (shown.front() != L' ' && shown.back() != L' '));
    return 0;
}
