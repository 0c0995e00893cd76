#pragma once

#include "controls/amount/AmountText.h"
#include "controls/amount/CurrencyLimits.h"

namespace kiv
{

// The rules of CurrencyBox that need no window: what its text means, and what its text becomes.

// What the box's text means.
struct CurrencyReading
{
    enum class Kind
    {
        // Nothing numeric: an empty text, "-", a lone point. Valid, as a blank field is.
        Blank,
        Amount,
        // A number that no currency value holds. Never valid; Value reads as Null.
        TooLarge
    };

    Kind What = Kind::Blank;
    Currency Amount;

    bool operator==(const CurrencyReading&) const = default;
};

CurrencyReading ReadCurrency(std::wstring_view text, const NumberLocale& locale);

// IsValidInput, and what it tells the user about an amount that is not.
bool IsValidCurrency(std::wstring_view text, const CurrencyLimits& limits, const NumberLocale& locale);
std::wstring CurrencyRangeMessage(const CurrencyLimits& limits, const NumberLocale& locale);

// The Text property: the amount as the label shows it. Empty if the box's text is not numeric.
std::wstring CurrencyDisplayText(std::wstring_view text, const CurrencyLimits& limits,
                                 const NumberLocale& locale);

// The box's text for a value that the host assigns; none for Null, Empty and what is not numeric. Neither
// range nor digit counts are looked at.
std::wstring CurrencyTextOf(const std::optional<Decimal>& value, const CurrencyLimits& limits,
                            const NumberLocale& locale);

// The value to assign for a text from the clipboard; none if the paste is ignored.
std::optional<Decimal> PastedCurrency(std::wstring_view clipboard, const CurrencyLimits& limits,
                                      const NumberLocale& locale);

// The focus leaves.
AmountExit ExitCurrency(std::wstring_view text, const CurrencyLimits& limits, const NumberLocale& locale);

} // namespace kiv
