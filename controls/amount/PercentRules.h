#pragma once

#include "controls/amount/AmountText.h"

#include <cstdint>

namespace kiv
{

// The rules of PercentBox that need no window.

struct PercentLimits
{
    // The box shows 100 (without DisplayPercent, 1) less the value.
    bool Complement = false;
    // The box shows a hundred times the value.
    bool DisplayPercent = true;
    std::int16_t MaxDigits = 3;
    std::int16_t MaxDecimals = 4;
    // Both inclusive, in the units of the box's text.
    float MaxValue = 100;
    float MinValue = 0;

    bool operator==(const PercentLimits&) const = default;
};

// Lets: the limits changed, or none where error 380 is due. 1 to 6 digits and 0 to 6 decimals; the bounds
// stay as they are. MaxValue has to be above MinValue, neither below 0, above 100 or longer than MaxDigits
// before the point.
std::optional<PercentLimits> LetMaxDigits(PercentLimits limits, std::int16_t digits);
std::optional<PercentLimits> LetMaxDecimals(PercentLimits limits, std::int16_t decimals);
std::optional<PercentLimits> LetMaxPercent(PercentLimits limits, float bound);
std::optional<PercentLimits> LetMinPercent(PercentLimits limits, float bound);

// The pattern of the box's text: "##0.####" for three digits and four decimals.
std::wstring PercentPattern(const PercentLimits& limits);

// The box's text for a value that the host assigns; none for Null, Empty and what is not numeric. Neither
// range nor digit counts are looked at.
std::wstring PercentTextOf(const std::optional<Decimal>& value, const PercentLimits& limits,
                           const NumberLocale& locale);

// IsValidInput, and what it tells the user about a text that is not. Blank and a lone point are valid.
bool CheckPercentRange(std::wstring_view text, const PercentLimits& limits, const NumberLocale& locale);
std::wstring PercentRangeMessage(const PercentLimits& limits, const NumberLocale& locale);

// What Value reads from the box's text.
struct PercentReading
{
    enum class Kind
    {
        // Blank or out of range.
        Null,
        // The text of a number.
        Number,
        // A lone point passes as valid but is no number: error 13 is due.
        Mismatch
    };

    Kind What = Kind::Null;
    std::wstring Number;

    bool operator==(const PercentReading&) const = default;
};

PercentReading ReadPercent(std::wstring_view text, const PercentLimits& limits, const NumberLocale& locale);
// The same without a look at the range.
PercentReading PercentTextToValue(std::wstring_view text, const PercentLimits& limits,
                                  const NumberLocale& locale);

// The value to assign for a text from the clipboard; none if the paste is ignored.
std::optional<Decimal> PastedPercent(std::wstring_view clipboard, const PercentLimits& limits,
                                     const NumberLocale& locale);

// The focus leaves.
AmountExit ExitPercent(std::wstring_view text, const NumberLocale& locale);

} // namespace kiv
