#include "runtime/com/VariantNumber.h"

#include "runtime/core/NumericText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kiv
{

namespace
{

Decimal FromWhole(std::int64_t number)
{
    std::string digits = std::to_string(number);
    const bool negative = digits.front() == '-';
    if (negative)
        digits.erase(0, 1);
    return Decimal(negative, digits, static_cast<int>(digits.size()));
}

Decimal FromWhole(std::uint64_t number)
{
    const std::string digits = std::to_string(number);
    return Decimal(false, digits, static_cast<int>(digits.size()));
}

// 96 bits and a decimal scale.
Decimal FromDecimal(const DECIMAL& number)
{
    std::array<std::uint32_t, 3> words = {number.Hi32, number.Mid32, number.Lo32};
    std::string digits;
    while (std::ranges::any_of(words, [](std::uint32_t word) { return word != 0; }))
    {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words)
        {
            rest = rest << 32 | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits.push_back(static_cast<char>('0' + rest));
    }
    std::ranges::reverse(digits);
    return Decimal((number.sign & DECIMAL_NEG) != 0, digits, static_cast<int>(digits.size()) - number.scale);
}

} // namespace

std::optional<Decimal> NumberIn(const Variant& value, const NumberLocale& locale)
{
    const VARIANT& held = value.Get();
    switch (value.Type())
    {
    case VT_BSTR:
        return ParseNumber(Bstr::ViewOf(V_BSTR(&held)), locale);
    case VT_BOOL:
        return FromWhole(std::int64_t{V_BOOL(&held) != VARIANT_FALSE ? -1 : 0});
    case VT_I1:
        return FromWhole(std::int64_t{static_cast<signed char>(V_I1(&held))});
    case VT_I2:
        return FromWhole(std::int64_t{V_I2(&held)});
    case VT_I4:
    case VT_INT:
        return FromWhole(std::int64_t{V_I4(&held)});
    case VT_I8:
        return FromWhole(std::int64_t{V_I8(&held)});
    case VT_UI1:
        return FromWhole(std::uint64_t{V_UI1(&held)});
    case VT_UI2:
        return FromWhole(std::uint64_t{V_UI2(&held)});
    case VT_UI4:
    case VT_UINT:
        return FromWhole(std::uint64_t{V_UI4(&held)});
    case VT_UI8:
        return FromWhole(std::uint64_t{V_UI8(&held)});
    case VT_R4:
        return Decimal::FromSingle(V_R4(&held));
    case VT_R8:
        return Decimal::FromDouble(V_R8(&held));
    case VT_CY:
        return Currency::FromUnits(V_CY(&held).int64).ToDecimal();
    case VT_DECIMAL:
        return FromDecimal(V_DECIMAL(&held));
    default:
        return std::nullopt;
    }
}

} // namespace kiv
