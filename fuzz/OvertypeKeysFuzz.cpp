#include "controls/masked/DateRules.h"
#include "controls/masked/NumberRules.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// Keys one after the other, on one masked box. The first byte chooses the box: '0' and '1' a number box, 'a'
// to 'h' a date box; each later byte is the character of a key, or one of these:
//   D Delete  < > the caret left and right  H E to the start and the end  + one more character selected  A
//   all

namespace
{

using kiv::BlankPlace;
using kiv::BoxState;

constexpr bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

int Length(const BoxState& box)
{
    return static_cast<int>(box.Text.size());
}

bool Move(BoxState& box, char key)
{
    const int start = box.SelStart;
    switch (key)
    {
    case '<':
        box = {box.Text, std::max(start - 1, 0), 0};
        return true;
    case '>':
        box = {box.Text, std::min(start + 1, Length(box)), 0};
        return true;
    case 'H':
        box = {box.Text, 0, 0};
        return true;
    case 'E':
        box = {box.Text, Length(box), 0};
        return true;
    case '+':
        box.SelLength = std::min(box.SelLength + 1, Length(box) - start);
        return true;
    case 'A':
        box = {box.Text, 0, Length(box)};
        return true;
    default:
        return false;
    }
}

// The one place that a key edits besides the selection, -1 if there is none.
int EditedPlace(std::wstring_view blank, const BoxState& box, char key, bool clears)
{
    const auto isSeparator = [blank](int place) {
        return place < static_cast<int>(blank.size()) && blank[static_cast<std::size_t>(place)] != BlankPlace;
    };
    if (key == 'D')
        return isSeparator(box.SelStart) ? box.SelStart - 1 : box.SelStart;
    if (key == '\b')
        return box.SelLength > 0 ? -1 : box.SelStart - 1;
    if (IsDigit(static_cast<wchar_t>(key)) || clears)
        return isSeparator(box.SelStart) ? box.SelStart + 1 : box.SelStart;
    return -1;
}

template<class Rules>
void Play(const Rules& rules, bool isDate, const std::uint8_t* keys, std::size_t count)
{
    const std::wstring blank(rules.Mask());
    BoxState box = {blank, 0, 0};
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto key = static_cast<char>(keys[i]);
        if (Move(box, key))
            continue;
        const kiv::KeyOutcome outcome = key == 'D' ? rules.KeyDown(box, kiv::DeleteKey)
                                                   : rules.KeyPress(box, static_cast<short>(keys[i]));
        const BoxState& after = outcome.Box;

        // The edits lead from the one text to the other, and none of them is idle.
        std::wstring text = box.Text;
        for (const std::wstring& edit : outcome.Edits)
        {
            Require(edit != text);
            text = edit;
        }
        Require(after.Text == text);
        Require(after.SelStart >= 0 && after.SelLength >= 0 &&
                after.SelStart + after.SelLength <= Length(after));

        // The template stays, and no digit is lost or made but where the key may.
        const bool clears = isDate && key == ' ';
        const bool types = IsDigit(static_cast<wchar_t>(key)) || clears;
        const bool edits = types || key == 'D' || key == '\b';
        const int edited = EditedPlace(blank, box, key, clears);
        Require(after.Text.size() == blank.size());
        for (int place = 0; place < Length(after); ++place)
        {
            const auto at = static_cast<std::size_t>(place);
            const bool selected = place >= box.SelStart && place < box.SelStart + box.SelLength;
            const wchar_t typed = IsDigit(static_cast<wchar_t>(key)) ? static_cast<wchar_t>(key) : BlankPlace;
            if (blank[at] != BlankPlace)
                Require(after.Text[at] == blank[at]);
            else if (place == edited)
                Require(after.Text[at] == typed);
            else
                Require(after.Text[at] == (edits && selected ? BlankPlace : box.Text[at]));
        }
        Require(outcome.PassedOn == kiv::IsClipboardKey(static_cast<short>(keys[i])));
        box = after;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto style = static_cast<int>(data[0]);
    if (style == '0' || style == '1')
    {
        kiv::NumberRules rules;
        rules.SetStyle(static_cast<kiv::NumberFormat>(style - '0'));
        Play(rules, false, data + 1, size - 1);
    }
    else if (style >= 'a' && style <= 'h')
    {
        kiv::DateRules rules;
        rules.SetStyle(static_cast<kiv::DateFormat>(style - 'a'));
        Play(rules, true, data + 1, size - 1);
    }
    return 0;
}
