#include "controls/amount/CurrencyRules.h"

#include "runtime/core/NumberFormat.h"
#include "runtime/core/NumericText.h"
#include "runtime/core/PlainText.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr std::wstring_view WholePattern = L"0";

// As many as any number of automation has. A form file may ask for thousands, which no text box shows in
// time.
constexpr int MostDecimals = 28;

// The front of a pattern, and as many fixed decimals as the amount has.
std::wstring WithDecimals(std::wstring_view front, const CurrencyLimits& limits)
{
    const int decimals = std::clamp<int>(limits.NumDecDigits, 0, MostDecimals);
    return std::wstring(front) + std::wstring(static_cast<std::size_t>(decimals), L'0');
}

bool IsInRange(Currency amount, const CurrencyLimits& limits)
{
    return amount >= limits.MinValue && amount <= limits.MaxValue;
}

} // namespace

CurrencyReading ReadCurrency(std::wstring_view text, const NumberLocale& locale)
{
    const auto number = ParseNumber(text, locale);
    if (!number)
        return {};
    const auto amount = Currency::From(*number);
    if (!amount)
        return {CurrencyReading::Kind::TooLarge, {}};
    return {CurrencyReading::Kind::Amount, *amount};
}

bool IsValidCurrency(std::wstring_view text, const CurrencyLimits& limits, const NumberLocale& locale)
{
    const CurrencyReading reading = ReadCurrency(text, locale);
    switch (reading.What)
    {
    case CurrencyReading::Kind::Blank:
        return true;
    case CurrencyReading::Kind::Amount:
        return IsInRange(reading.Amount, limits);
    case CurrencyReading::Kind::TooLarge:
        break;
    }
    return false;
}

std::wstring CurrencyRangeMessage(const CurrencyLimits& limits, const NumberLocale& locale)
{
    return L"Please enter a value between " + PlainText(limits.MinValue, locale) + L" and " +
           PlainText(limits.MaxValue, locale);
}

std::wstring CurrencyDisplayText(std::wstring_view text, const CurrencyLimits& limits,
                                 const NumberLocale& locale)
{
    const auto number = ParseNumber(text, locale);
    if (!number)
        return {};
    // A whole amount shows no decimals. Whether it is whole is asked of its fifteen significant digits, so
    // that one of fourteen digits and a few cents (12345678901234.01) shows none either.
    const bool whole = !HasPoint(PlainText(number->ToDouble(), locale), locale);
    if (limits.NumDecDigits < 1 || whole)
        return Format(*number, L"#,##0", locale);
    // No zero in front of the point: .50, as people write cents.
    return Format(*number, WithDecimals(L"#,###.", limits), locale);
}

std::wstring CurrencyTextOf(const std::optional<Decimal>& value, const CurrencyLimits& limits,
                            const NumberLocale& locale)
{
    if (!value)
        return {};
    if (limits.NumDecDigits == 0 || limits.AllowRounding)
        return Format(*value, WholePattern, locale);
    return Format(*value, WithDecimals(L"#.", limits), locale);
}

std::optional<Decimal> PastedCurrency(std::wstring_view clipboard, const CurrencyLimits& limits,
                                      const NumberLocale& locale)
{
    const auto number = ParseNumber(clipboard, locale);
    // The range is asked of what Val reads, which stops at a group separator: "1,000" is checked as 1 and set
    // as 1000, "5-" is checked as 5 and set as -5. Deliberate: hosts have always seen it so.
    const Decimal checked = ValOf(clipboard, locale);
    if (!number || checked < limits.MinValue.ToDecimal() || checked > limits.MaxValue.ToDecimal())
        return std::nullopt;
    return number;
}

AmountExit ExitCurrency(std::wstring_view text, const CurrencyLimits& limits, const NumberLocale& locale)
{
    // Cleared, but in view until the focus leaves once more.
    if (IsLonePoint(text, locale))
        return {};
    std::wstring rounded(text);
    if (limits.AllowRounding)
    {
        if (const auto number = ParseNumber(text, locale))
            rounded = Format(*number, WholePattern, locale);
    }
    const bool valid = IsValidCurrency(rounded, limits, locale);
    return {std::move(rounded), valid};
}

} // namespace kiv
