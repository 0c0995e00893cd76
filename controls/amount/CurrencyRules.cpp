#include "controls/amount/CurrencyRules.h"

#include "controls/amount/AmountFilter.h"
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

FilteredKey CurrencyRules::Filter(BoxState box, short keyAscii) const
{
    return FilterCurrencyKey(std::move(box), keyAscii, limits_, locale_);
}

CurrencyReading CurrencyRules::Read(std::wstring_view text) const
{
    const auto number = ParseNumber(text, locale_);
    if (!number)
        return {};
    const auto amount = Currency::From(*number);
    if (!amount)
        return {CurrencyReading::Kind::TooLarge, {}};
    return {CurrencyReading::Kind::Amount, *amount};
}

bool CurrencyRules::IsValid(std::wstring_view text) const
{
    const CurrencyReading reading = Read(text);
    switch (reading.What)
    {
    case CurrencyReading::Kind::Blank:
        return true;
    case CurrencyReading::Kind::Amount:
        return IsInRange(reading.Amount, limits_);
    case CurrencyReading::Kind::TooLarge:
        break;
    }
    return false;
}

std::wstring CurrencyRules::RangeMessage() const
{
    return L"Please enter a value between " + PlainText(limits_.MinValue, locale_) + L" and " +
           PlainText(limits_.MaxValue, locale_);
}

std::wstring CurrencyRules::CaptionOf(std::wstring_view text) const
{
    const auto number = ParseNumber(text, locale_);
    if (!number)
        return {};
    // A whole amount shows no decimals. Whether it is whole is asked of its fifteen significant digits, so
    // that one of fourteen digits and a few cents (12345678901234.01) shows none either.
    const bool whole = !HasPoint(PlainText(number->ToDouble(), locale_), locale_);
    if (limits_.NumDecDigits < 1 || whole)
        return Format(*number, L"#,##0", locale_);
    // No zero in front of the point: .50, as people write cents.
    return Format(*number, WithDecimals(L"#,###.", limits_), locale_);
}

std::wstring CurrencyRules::TextOf(const std::optional<Decimal>& value) const
{
    if (!value)
        return {};
    if (limits_.NumDecDigits == 0 || limits_.AllowRounding)
        return Format(*value, WholePattern, locale_);
    return Format(*value, WithDecimals(L"#.", limits_), locale_);
}

std::optional<Decimal> CurrencyRules::Pasted(std::wstring_view clipboard) const
{
    const auto number = ParseNumber(clipboard, locale_);
    // The range is asked of what Val reads, which stops at a group separator: "1,000" is checked as 1 and set
    // as 1000, "5-" is checked as 5 and set as -5. Deliberate: hosts have always seen it so.
    const Decimal checked = ValOf(clipboard, locale_);
    if (!number || checked < limits_.MinValue.ToDecimal() || checked > limits_.MaxValue.ToDecimal())
        return std::nullopt;
    return number;
}

AmountExit CurrencyRules::Exit(std::wstring_view text) const
{
    // Cleared, but in view until the focus leaves once more.
    if (IsLonePoint(text, locale_))
        return {};
    std::wstring rounded(text);
    if (limits_.AllowRounding)
    {
        if (const auto number = ParseNumber(text, locale_))
            rounded = Format(*number, WholePattern, locale_);
    }
    const bool valid = IsValid(rounded);
    return {std::move(rounded), valid};
}

} // namespace kiv
