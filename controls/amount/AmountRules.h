#pragma once

#include "controls/amount/AmountText.h"
#include "controls/entry/BoxState.h"

#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// What becomes of a character typed into a box for amounts, before the box gets it.
struct FilteredKey
{
    // What the box shows before it gets the character: a filter may clear its text or delete the selection.
    BoxState Box;
    // The character that the box gets; 0 for none.
    short KeyAscii = 0;

    bool operator==(const FilteredKey&) const = default;
};

// What the boxes for amounts have rules for, each its own: values that hold limits and how the user writes
// numbers. text is that of the box.
class AmountRules
{
public:
    virtual ~AmountRules() = default;

    // keyAscii is what the host's KeyPress left of the character. "." and the locale's own decimal point both
    // stand for the point, and the box gets the latter.
    virtual FilteredKey Filter(BoxState box, short keyAscii) const = 0;
    // The value to assign for a text from the clipboard; none if the paste is ignored.
    virtual std::optional<Decimal> Pasted(std::wstring_view clipboard) const = 0;
    // The box's text for a value that the host assigns; none for Null, Empty and what is not numeric. Neither
    // range nor digit counts are looked at.
    virtual std::wstring TextOf(const std::optional<Decimal>& value) const = 0;
    // The focus leaves.
    virtual AmountExit Exit(std::wstring_view text) const = 0;
    // IsValidInput, and what it tells the user about a text that is not.
    virtual bool IsValid(std::wstring_view text) const = 0;
    virtual std::wstring RangeMessage() const = 0;

protected:
    AmountRules() = default;
    AmountRules(const AmountRules&) = default;
    AmountRules& operator=(const AmountRules&) = default;
};

} // namespace kiv
