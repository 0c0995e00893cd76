#include "runtime/core/Currency.h"

#include <charconv>
#include <limits>

namespace kiv
{

namespace
{

constexpr int Decimals = 4;

} // namespace

std::optional<Currency> Currency::From(const Decimal& number)
{
    const Decimal units = number.Rounded(Decimals, Halves::ToEven).Shifted(Decimals);
    // More digits than 64 bits can hold.
    if (units.Point() > std::numeric_limits<std::int64_t>::digits10 + 1)
        return std::nullopt;
    std::string text = units.IsNegative() ? "-0" : "0";
    for (int power = units.Point() - 1; power >= 0; --power)
        text.push_back(units.DigitOf(power));
    std::int64_t count = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), count).ec != std::errc())
        return std::nullopt;
    return Currency(count);
}

Decimal Currency::ToDecimal() const
{
    std::string digits = std::to_string(units_);
    const bool negative = digits.front() == '-';
    if (negative)
        digits.erase(0, 1);
    return Decimal(negative, digits, static_cast<int>(digits.size()) - Decimals);
}

std::optional<Currency> Currency::Negated() const
{
    if (units_ == std::numeric_limits<std::int64_t>::min())
        return std::nullopt;
    return Currency(-units_);
}

std::optional<Currency> Currency::Absolute() const
{
    return units_ < 0 ? Negated() : *this;
}

} // namespace kiv
