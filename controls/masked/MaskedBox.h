#pragma once

#include "controls/masked/OvertypeEditor.h"
#include "runtime/constituents/TextBox.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// What stands between the rules of masked entry and the text box that shows the entry.

// Shows what a key did. The key becomes 0 unless the box is to get it.
void Apply(const KeyOutcome& outcome, TextBox& box, short& key);

// The clipboard's messages, which reach the box from the keyboard and from its own context menu: cutting and
// clearing return the whole entry to the mask, pasting replaces it by what the rules make of the clipboard's
// text. Returns whether it was one of them.
using PasteRule = std::function<std::optional<std::wstring>(std::wstring_view clipboard)>;
bool HandleClipboardMessage(UINT message, TextBox& box, std::wstring_view mask, const PasteRule& pasted);

// What assistive tools are told of such a box: the digits that stand in it, none of the mask's blanks, and
// what the mask asks for.
AccessibleInfo MaskedInfo(std::wstring_view boxText, std::wstring_view meaning);

} // namespace kiv
