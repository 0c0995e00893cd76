#include "controls/masked/MaskedBox.h"

#include "runtime/com/Boundary.h"
#include "runtime/constituents/Clipboard.h"
#include "runtime/core/Digits.h"

#include <algorithm>
#include <iterator>

namespace kiv
{

void Apply(const KeyOutcome& outcome, TextBox& box, short& key)
{
    if (outcome.PassedOn)
        return;
    key = 0;
    for (const std::wstring& text : outcome.Edits)
    {
        box.Amend(text);
        // The host may have answered the change by another text, which then stands.
        if (box.Text() != text)
            return;
    }
    box.SelectAnew({outcome.Box.SelStart, outcome.Box.SelLength});
}

namespace
{

// The entry is typed anew from its start, also where it is what it was.
void Replace(TextBox& box, std::wstring_view text)
{
    if (box.Text() == text)
        box.Home();
    else
        box.Replace(text);
}

} // namespace

bool HandleClipboardMessage(UINT message, TextBox& box, std::wstring_view mask, const PasteRule& pasted)
{
    switch (message)
    {
    case WM_CUT:
        // The entry is cleared even if the clipboard cannot be had.
        Boundary([&] { Clipboard::SetText(box.hWnd(), box.SelText()); });
        Replace(box, mask);
        return true;
    case WM_PASTE:
        if (const std::optional<std::wstring> text = pasted(Clipboard::GetText(box.hWnd())))
            Replace(box, *text);
        return true;
    case WM_CLEAR:
        Replace(box, mask);
        return true;
    default:
        return false;
    }
}

AccessibleInfo MaskedInfo(std::wstring_view boxText, std::wstring_view meaning)
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_TEXT;
    info.Value.emplace();
    std::ranges::copy_if(boxText, std::back_inserter(*info.Value), IsDigit);
    info.Description = meaning;
    return info;
}

} // namespace kiv
