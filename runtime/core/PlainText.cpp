#include "runtime/core/PlainText.h"

#include "runtime/core/Digits.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kiv
{

namespace
{

constexpr int SmallestPlainExponent = -4;

std::wstring Positional(const Decimal& number, const NumberLocale& locale)
{
    std::wstring text = number.IsNegative() ? L"-" : L"";
    for (int power = std::max(number.Point() - 1, 0); power >= 0; --power)
        text.push_back(static_cast<wchar_t>(number.DigitOf(power)));
    const int lowest = number.Point() - static_cast<int>(number.Digits().size());
    if (lowest < 0)
        text.push_back(locale.DecimalPoint);
    for (int power = -1; power >= lowest; --power)
        text.push_back(static_cast<wchar_t>(number.DigitOf(power)));
    return text;
}

std::wstring Scientific(const Decimal& number, const NumberLocale& locale)
{
    const int exponent = number.Point() - 1;
    return Positional(number.Shifted(-exponent), locale) + (exponent < 0 ? L"E-" : L"E+") +
           PadDigits(std::abs(exponent), 2);
}

std::wstring BinaryText(double number, int significant, const NumberLocale& locale)
{
    if (std::isnan(number))
        return L"1.#QNAN";
    const auto rounded = Decimal::FromDouble(number, significant);
    if (!rounded)
        return std::signbit(number) ? L"-1.#INF" : L"1.#INF";
    const int exponent = rounded->Point() - 1;
    const bool plain = exponent >= SmallestPlainExponent && exponent < significant;
    return plain ? Positional(*rounded, locale) : Scientific(*rounded, locale);
}

} // namespace

std::wstring PlainText(Currency amount, const NumberLocale& locale)
{
    return Positional(amount.ToDecimal(), locale);
}

std::wstring PlainText(double number, const NumberLocale& locale)
{
    return BinaryText(number, std::numeric_limits<double>::digits10, locale);
}

std::wstring PlainText(float number, const NumberLocale& locale)
{
    // One digit more than every single keeps, so that 1234567 reads as it was written.
    return BinaryText(number, std::numeric_limits<float>::digits10 + 1, locale);
}

} // namespace kiv
