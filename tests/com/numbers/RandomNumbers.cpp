#include "tests/com/numbers/RandomNumbers.h"

#include <bit>
#include <cmath>

namespace kiv::test
{

namespace
{

constexpr int MostDigits = 15;

} // namespace

std::wstring RandomNumbers::Digits(int count)
{
    std::wstring digits;
    for (int i = 0; i < count; ++i)
        digits.push_back(static_cast<wchar_t>(L'0' + Below(10)));
    return digits;
}

SystemNumber RandomNumbers::Number()
{
    const int count = 1 + Below(MostDigits);
    std::string digits;
    for (const wchar_t digit : Digits(count))
        digits.push_back(static_cast<char>(digit));
    if (OneIn(4))
        digits.back() = '5';
    const int decimals = OneIn(3) ? Below(5) : Below(count + 3);
    Decimal number(OneIn(2), digits, count - decimals);
    if (OneIn(2))
    {
        if (const auto amount = Currency::From(number))
            return SystemNumber::OfAmount(amount->Units());
    }
    if (OneIn(10))
        number = number.Shifted(Below(60) - 30);
    double binary = number.ToDouble();
    if (OneIn(20))
        binary /= 3;
    return SystemNumber::OfDouble(binary);
}

double RandomNumbers::Double()
{
    if (OneIn(2))
    {
        const auto whole = static_cast<double>(static_cast<std::int64_t>(Bits() >> Below(63)));
        return whole * std::pow(10, -Below(12));
    }
    double number = std::bit_cast<double>(Bits());
    while (!std::isfinite(number))
        number = std::bit_cast<double>(Bits());
    return number;
}

std::wstring RandomNumbers::NumberText()
{
    std::wstring text = OneOf({L"",   L"",   L"",   L"",   L"-",  L"+", L"(", L"$",  L" ",  L"-$", L"$-",
                               L"- ", L"($", L"--", L"+-", L"\t", L".", L",", L"$ ", L"&H", L"&O", L"\n"});
    text += Digits(OneIn(4) ? Below(20) : 1 + Below(7));
    if (OneIn(5))
        text += L"," + Digits(3);
    if (OneIn(2))
        text += L"." + Digits(OneIn(4) ? Below(18) : Below(5));
    text += OneOf({L"",   L"",   L"",   L"",    L"-",    L"+",  L")",    L"$",     L" ",
                   L" -", L"%",  L"e5", L"E-3", L"d2",   L"e",  L"e400", L"e-400", L",",
                   L".",  L"- ", L" $", L"x",   L"\r\n", L"--", L"E+02", L"e30"});
    const std::wstring strays = L"0123456789.,-+$() eE%&HO";
    if (!text.empty() && OneIn(12))
    {
        text[static_cast<std::size_t>(Below(static_cast<int>(text.size())))] =
            strays[static_cast<std::size_t>(Below(static_cast<int>(strays.size())))];
    }
    return text;
}

} // namespace kiv::test
