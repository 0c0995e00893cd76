#pragma once

#include "controls/entry/BoxState.h"

#include <string>
#include <string_view>
#include <vector>

namespace kiv
{

// What a key does to a box.
struct KeyOutcome
{
    // What the box shows afterwards. Unchanged if the key is passed on.
    BoxState Box;
    // The texts that the box takes on its way there, one after the other, each different from the one before;
    // the last is Box.Text. The host hears of every one of them.
    std::vector<std::wstring> Edits;
    // The box gets the key and does with it what any text box does; otherwise nobody sees the key again.
    bool PassedOn;

    bool operator==(const KeyOutcome&) const = default;
};

// The places of an entry that is overtyped: digits replace underscores, separators stay put.
struct OvertypeTemplate
{
    // The blank entry. It neither begins with a separator nor has two in a row.
    std::wstring_view Blank;
    wchar_t Separator;
    // A character that clears a place and moves on, as a digit fills one; 0 if there is none.
    wchar_t ClearingKey = 0;
    // A character that moves past the next separator; 0 if there is none.
    wchar_t JumpKey = 0;
};

constexpr wchar_t BlankPlace = L'_';

inline KeyOutcome PassOn(const BoxState& box)
{
    return {box, {}, true};
}

inline KeyOutcome Swallow(const BoxState& box)
{
    return {box, {}, false};
}

// A box whose text is shorter than the template, as one that was never given any, is completed from it by the
// first key that edits; characters beyond the template can only be removed.

// A character: digits, the template's own keys and Backspace edit, the clipboard's keys are passed on, all
// others are swallowed.
KeyOutcome OvertypeCharacter(const OvertypeTemplate& places, const BoxState& box, short keyAscii);

// The Delete key.
KeyOutcome OvertypeDelete(const OvertypeTemplate& places, const BoxState& box);

} // namespace kiv
