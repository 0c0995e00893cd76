#include "runtime/core/Currency.h"

#include "runtime/core/ParsedNumber.h"

#include <array>
#include <charconv>
#include <limits>
#include <string_view>

namespace kiv
{

namespace
{

constexpr int Decimals = 4;

} // namespace

std::optional<Currency> Currency::From(const Decimal& number)
{
    const Decimal units = number.Rounded(Decimals, Halves::ToEven).Shifted(Decimals);
    // A whole number, so none of its decimals are too many.
    const std::string zeros(static_cast<std::size_t>(-units.Decimals()), '0');
    const auto count = ParsedNumber<std::int64_t>((units.IsNegative() ? "-0" : "0") + units.Digits() + zeros);
    return count ? std::optional(Currency(*count)) : std::nullopt;
}

Decimal Currency::ToDecimal() const
{
    // In two parts: a processor of 32 bits divides numbers of that size much faster than larger ones.
    constexpr std::uint32_t billion = 1'000'000'000;
    const std::uint64_t magnitude =
        IsNegative() ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
    const std::uint64_t high = magnitude / billion;
    const auto low = static_cast<std::uint32_t>(magnitude - high * billion);
    std::array<char, 20> digits;
    char* const end = digits.data() + digits.size();
    char* at = digits.data();
    if (high <= std::numeric_limits<std::uint32_t>::max())
        at = std::to_chars(at, end, static_cast<std::uint32_t>(high)).ptr;
    else
        at = std::to_chars(at, end, high).ptr;
    // With its leading zeros, behind a digit that makes way for the last one of the higher part.
    const char last = at[-1];
    char* const lowEnd = std::to_chars(at - 1, end, billion + low).ptr;
    at[-1] = last;
    const std::string_view text(digits.data(), static_cast<std::size_t>(lowEnd - digits.data()));
    return Decimal(IsNegative(), text, static_cast<int>(text.size()) - Decimals);
}

std::optional<Currency> Currency::Negated() const
{
    if (units_ == std::numeric_limits<std::int64_t>::min())
        return std::nullopt;
    return Currency(-units_);
}

std::optional<Currency> Currency::Absolute() const
{
    return IsNegative() ? Negated() : *this;
}

} // namespace kiv
