#pragma once

#include "runtime/core/Currency.h"
#include "runtime/core/NumberLocale.h"

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace kiv::test
{

// A locale by its identifier, and what it says about numbers.
struct SystemLocale
{
    explicit SystemLocale(LCID identifier);

    LCID Identifier;
    NumberLocale Numbers;
};

// A number as both sides get it: an amount, or a binary number.
struct SystemNumber
{
    Decimal Exact;
    std::optional<std::int64_t> Units;
    double Binary = 0;

    static SystemNumber OfAmount(std::int64_t units);
    static SystemNumber OfDouble(double number);
};

// What oleaut32 makes of numbers and texts. A text that it refuses gives none; a pattern that it refuses
// throws.
std::wstring SystemFormat(const SystemNumber& number, const std::wstring& pattern, LCID locale);
std::optional<double> SystemDouble(const std::wstring& text, LCID locale);
std::optional<Currency> SystemCurrency(const std::wstring& text, LCID locale);
std::optional<Currency> SystemCurrency(double number);
std::wstring SystemText(double number, LCID locale);
std::wstring SystemText(float number, LCID locale);
std::wstring SystemText(Currency amount, LCID locale);

} // namespace kiv::test
