#pragma once

#include "controls/amount/CurrencyRules.h"
#include "controls/amount/PercentRules.h"
#include "controls/entry/BoxState.h"

namespace kiv
{

// What becomes of a character typed into CurrencyBox or PercentBox, before the box gets it.
struct FilteredKey
{
    // What the box shows before it gets the character: a filter may clear its text or delete the selection.
    BoxState Box;
    // The character that the box gets; 0 for none.
    short KeyAscii = 0;

    bool operator==(const FilteredKey&) const = default;
};

// keyAscii is what the host's KeyPress left of the character. "." and the locale's own decimal point both
// stand for the point, and the box gets the latter.
FilteredKey FilterCurrencyKey(BoxState box, short keyAscii, const CurrencyLimits& limits,
                              const NumberLocale& locale);
FilteredKey FilterPercentKey(BoxState box, short keyAscii, const PercentLimits& limits,
                             const NumberLocale& locale);

} // namespace kiv
