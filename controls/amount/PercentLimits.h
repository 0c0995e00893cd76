#pragma once

#include <cstdint>
#include <optional>

namespace kiv
{

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

} // namespace kiv
