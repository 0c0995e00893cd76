#include "controls/amount/CurrencyLimits.h"

#include <algorithm>
#include <limits>

namespace kiv
{

namespace
{

constexpr std::int16_t MostDecDigits = 4;
constexpr std::int16_t MostIntDigits = 14;

bool IsInLimits(Currency amount)
{
    return amount >= SmallestAmount && amount <= LargestAmount;
}

// An amount inside the limits: the digits before the point. A fraction has one, its zero.
int CountIntDigits(Currency amount)
{
    return std::max(amount.ToDecimal().Point(), 1);
}

// All nines; none where a stored digit count that no let would take makes them too many.
std::optional<Currency> WidestMaxValue(const CurrencyLimits& limits)
{
    // More say nothing more: so many are too many, or behind the point round up.
    constexpr int Enough = std::numeric_limits<std::int64_t>::digits10;
    const auto limited = [&](int digits) { return std::clamp(digits, 0, Enough); };
    const int intDigits = limited(limits.NumIntDigits);
    const int decDigits = limited(limits.NumDecDigits);
    return Currency::From(
        Decimal(false, std::string(static_cast<std::size_t>(intDigits + decDigits), '9'), intDigits));
}

CurrencyLimitsChange Refuse(const CurrencyLimits& limits)
{
    return {limits, {}, true};
}

// The second change follows the first; the host is told of both.
CurrencyLimitsChange Then(CurrencyLimitsChange first, const CurrencyLimitsChange& second)
{
    first.Limits = second.Limits;
    first.Changed.insert(first.Changed.end(), second.Changed.begin(), second.Changed.end());
    first.Refused = second.Refused;
    return first;
}

CurrencyLimitsChange ResetRange(CurrencyLimits limits)
{
    // Shows only where the reset is refused: otherwise the upper bound is replaced just below.
    limits.MaxValue = limits.MaxValue.Absolute().value_or(LargestAmount);
    const auto widest = WidestMaxValue(limits);
    if (!widest)
        return Refuse(limits);
    const CurrencyLimitsChange change = LetMaxValue(limits, *widest);
    return change.Refused ? change : Then(change, LetMinValue(change.Limits, *widest->Negated()));
}

} // namespace

CurrencyLimitsChange LetNumDecDigits(CurrencyLimits limits, std::int16_t digits)
{
    if (digits < 0 || digits > MostDecDigits)
        return Refuse(limits);
    limits.NumDecDigits = digits;
    return Then({limits, {L"NumDecDigits"}}, ResetRange(limits));
}

CurrencyLimitsChange LetNumIntDigits(CurrencyLimits limits, std::int16_t digits)
{
    if (digits < 1 || digits > MostIntDigits)
        return Refuse(limits);
    limits.NumIntDigits = digits;
    return Then({limits, {L"NumIntDigits"}}, ResetRange(limits));
}

CurrencyLimitsChange LetMaxValue(CurrencyLimits limits, Currency amount)
{
    if (amount <= limits.MinValue || !IsInLimits(amount) || CountIntDigits(amount) > limits.NumIntDigits)
        return Refuse(limits);
    limits.MaxValue = amount;
    return {limits, {L"MaxValue"}};
}

CurrencyLimitsChange LetMinValue(CurrencyLimits limits, Currency amount)
{
    if (amount >= limits.MaxValue || !IsInLimits(amount) || CountIntDigits(amount) > limits.NumIntDigits)
        return Refuse(limits);
    limits.MinValue = amount;
    return {limits, {L"MinValue"}};
}

} // namespace kiv
