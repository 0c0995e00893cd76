#pragma once

#include "runtime/core/Decimal.h"

#include <cstdint>

namespace kiv
{

// An amount of money: a 64-bit count of ten-thousandths, as automation's currency type holds it.
class Currency
{
public:
    constexpr Currency() = default;
    static constexpr Currency FromUnits(std::int64_t tenThousandths) { return Currency(tenThousandths); }
    // None when the number is out of range. Digits behind the fourth decimal round to the nearest, halves to
    // the even neighbour, as automation's conversions to currency do; a Format rounds halves away from zero.
    static std::optional<Currency> From(const Decimal& number);

    constexpr std::int64_t Units() const { return units_; }
    Decimal ToDecimal() const;

    // None for the lowest of all amounts, which has no positive counterpart.
    std::optional<Currency> Negated() const;
    std::optional<Currency> Absolute() const;

    constexpr auto operator<=>(const Currency&) const = default;

private:
    constexpr explicit Currency(std::int64_t units) : units_(units) {}
    constexpr bool IsNegative() const { return units_ < 0; }

    std::int64_t units_ = 0;
};

} // namespace kiv
