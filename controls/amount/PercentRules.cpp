#include "controls/amount/PercentRules.h"

#include "controls/amount/AmountFilter.h"
#include "runtime/core/NumberFormat.h"
#include "runtime/core/NumericText.h"
#include "runtime/core/PlainText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kiv
{

namespace
{

constexpr std::int16_t MostDigits = 6;
constexpr std::int16_t MostDecimals = 6;
constexpr float LargestBound = 100;
// The places between a fraction and its percentage.
constexpr int PercentPlaces = 2;

// The length of a bound's plain text up to its point. A tiny bound is written in scientific notation and
// counts in all of that ("1E-05" has five): deliberate, hosts have always been refused it.
bool HasTooManyDigits(float bound, const PercentLimits& limits)
{
    const std::wstring text = PlainText(bound, NumberLocale{});
    return static_cast<int>(std::min(text.find(L'.'), text.size())) > limits.MaxDigits;
}

std::wstring Repeated(int count, wchar_t character)
{
    return std::wstring(static_cast<std::size_t>(std::max(count, 0)), character);
}

// The bounds are singles, and numbers are compared with them as such: 100.000001 is 100.
bool IsInRange(const Decimal& number, const PercentLimits& limits)
{
    const double binary = number.ToDouble();
    if (std::abs(binary) > std::numeric_limits<float>::max())
        return false;
    const auto single = static_cast<float>(binary);
    return single >= limits.MinValue && single <= limits.MaxValue;
}

// From 100 or 1, as the box shows percentages or fractions.
Decimal ComplementOf(const Decimal& number, bool percent)
{
    return Decimal(false, "1", percent ? 1 + PercentPlaces : 1) - number;
}

} // namespace

std::optional<PercentLimits> LetMaxDigits(PercentLimits limits, std::int16_t digits)
{
    if (digits < 1 || digits > MostDigits)
        return std::nullopt;
    limits.MaxDigits = digits;
    return limits;
}

std::optional<PercentLimits> LetMaxDecimals(PercentLimits limits, std::int16_t decimals)
{
    if (decimals < 0 || decimals > MostDecimals)
        return std::nullopt;
    limits.MaxDecimals = decimals;
    return limits;
}

// The comparisons stand so that a bound that is no number fails them.
std::optional<PercentLimits> LetMaxPercent(PercentLimits limits, float bound)
{
    const bool fits = bound > limits.MinValue && bound <= LargestBound;
    if (!fits || HasTooManyDigits(bound, limits))
        return std::nullopt;
    limits.MaxValue = bound;
    return limits;
}

std::optional<PercentLimits> LetMinPercent(PercentLimits limits, float bound)
{
    const bool fits = bound < limits.MaxValue && bound >= 0;
    if (!fits || HasTooManyDigits(bound, limits))
        return std::nullopt;
    limits.MinValue = bound;
    return limits;
}

std::wstring PercentPattern(const PercentLimits& limits)
{
    return Repeated(limits.MaxDigits - 1, L'#') + L"0." + Repeated(limits.MaxDecimals, L'#');
}

FilteredKey PercentRules::Filter(BoxState box, short keyAscii) const
{
    return FilterPercentKey(std::move(box), keyAscii, limits_, locale_);
}

std::wstring PercentRules::TextOf(const std::optional<Decimal>& value) const
{
    if (!value)
        return {};
    const Decimal direct = limits_.DisplayPercent ? value->Shifted(PercentPlaces) : *value;
    const Decimal shown = limits_.Complement ? ComplementOf(direct, limits_.DisplayPercent) : direct;
    return Format(shown, PercentPattern(limits_), locale_);
}

bool PercentRules::CheckPercentRange(std::wstring_view text) const
{
    return text.empty() || IsLonePoint(text, locale_) || IsInRange(ValOf(text, locale_), limits_);
}

std::wstring PercentRules::RangeMessage() const
{
    return L"Please enter a value within the range " + PlainText(limits_.MinValue, locale_) + L" to " +
           PlainText(limits_.MaxValue, locale_) + L".";
}

PercentReading PercentRules::Read(std::wstring_view text) const
{
    return CheckPercentRange(text) ? PercentTextToValue(text) : PercentReading();
}

PercentReading PercentRules::PercentTextToValue(std::wstring_view text) const
{
    if (text.empty())
        return {};
    const auto number = ParseNumber(text, locale_);
    if (!number)
        return {PercentReading::Kind::Mismatch, {}};
    const Decimal fraction = limits_.DisplayPercent ? number->Shifted(-PercentPlaces) : *number;
    const Decimal value = limits_.Complement ? ComplementOf(fraction, false) : fraction;
    const int decimals = limits_.MaxDecimals + (limits_.DisplayPercent ? PercentPlaces : 0);
    return {PercentReading::Kind::Number, Format(value, L"0." + Repeated(decimals, L'#'), locale_)};
}

std::optional<Decimal> PercentRules::Pasted(std::wstring_view clipboard) const
{
    // The range is asked of the number as it stands, though it is then assigned as a value: with
    // DisplayPercent a pasted 5 passes and shows as 500. Deliberate: hosts have always seen it so.
    const auto number = ParseNumber(clipboard, locale_);
    return number && IsInRange(ValOf(clipboard, locale_), limits_) ? number : std::nullopt;
}

AmountExit PercentRules::Exit(std::wstring_view text) const
{
    // Cleared, but in view until the focus leaves once more.
    if (IsLonePoint(text, locale_))
        return {};
    return {std::wstring(text), true};
}

} // namespace kiv
