#pragma once

#include "runtime/core/Currency.h"

#include <cstdint>
#include <vector>

namespace kiv
{

// No bound lies beyond these: fourteen digits before the point, four behind.
constexpr Currency LargestAmount = Currency::FromUnits(999'999'999'999'999'999);
constexpr Currency SmallestAmount = Currency::FromUnits(-999'999'999'999'999'999);

struct CurrencyLimits
{
    bool AllowRounding = true;
    std::int16_t NumDecDigits = 2;
    std::int16_t NumIntDigits = 14;
    // Both inclusive. These are whole numbers, though a host may set bounds with decimals.
    Currency MaxValue = Currency::FromUnits(999'999'999'999'990'000);
    Currency MinValue = Currency::FromUnits(-999'999'999'999'990'000);

    bool operator==(const CurrencyLimits&) const = default;
};

// What letting one of the properties does.
struct CurrencyLimitsChange
{
    CurrencyLimits Limits;
    // The names of the properties that changed, in order.
    std::vector<const wchar_t*> Changed;
    // Error 380 is due, after what Limits and Changed say has been done.
    bool Refused = false;
};

// 0 to 4 and 1 to 14 digits. Either let resets the range to the widest one that the digits allow, whatever
// bounds the host had set. Where the old lower bound is not below the new upper one (a host may have set both
// far up) the reset is refused half way: the digit count is changed, the bounds are not, but that MaxValue
// has lost its sign.
CurrencyLimitsChange LetNumDecDigits(CurrencyLimits limits, std::int16_t digits);
CurrencyLimitsChange LetNumIntDigits(CurrencyLimits limits, std::int16_t digits);

// MaxValue has to be above MinValue, neither beyond LargestAmount and SmallestAmount nor longer than
// NumIntDigits before the point; otherwise it is refused.
CurrencyLimitsChange LetMaxValue(CurrencyLimits limits, Currency amount);
CurrencyLimitsChange LetMinValue(CurrencyLimits limits, Currency amount);

} // namespace kiv
