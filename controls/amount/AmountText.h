#pragma once

#include "runtime/core/Decimal.h"
#include "runtime/core/NumberLocale.h"

namespace kiv
{

// What the rules of CurrencyBox and PercentBox share. The text of their boxes is a number in the user's
// locale: where the decimals are behind a comma, so are they in the box, and "the point" is that comma.

// The text has a point.
bool HasPoint(std::wstring_view text, const NumberLocale& locale);

// Nothing but a point, which stands for no number.
bool IsLonePoint(std::wstring_view text, const NumberLocale& locale);

// Val of a text in the user's locale: the point counts as one, a group separator ends the number.
Decimal ValOf(std::wstring_view text, const NumberLocale& locale);

// What happens when the focus leaves a box.
struct AmountExit
{
    // The text of the box from then on.
    std::wstring Text;
    // The label shows the amount and the box is parked; otherwise the box stays in view as it is.
    bool Parked = false;

    bool operator==(const AmountExit&) const = default;
};

} // namespace kiv
