#include "runtime/core/Val.h"

#include "runtime/core/NumberScanner.h"

namespace kiv
{

namespace
{

bool IsSkipped(wchar_t character)
{
    return character == L' ' || character == L'\t' || character == L'\n' || character == L'\r';
}

bool Take(std::wstring_view& rest, wchar_t character)
{
    if (rest.empty() || rest.front() != character)
        return false;
    rest.remove_prefix(1);
    return true;
}

// The bits of a radix number as the classic integer types hold them.
double Signed(std::uint32_t bits, bool isLong)
{
    if (bits <= 0xFFFFU && !isLong)
        return static_cast<std::int16_t>(bits);
    return static_cast<std::int32_t>(bits);
}

} // namespace

Decimal ExactVal(std::wstring_view text)
{
    std::wstring packed(text);
    std::erase_if(packed, IsSkipped);
    std::wstring_view rest = packed;
    if (const auto bits = TakeRadixNumber(rest))
        return *Decimal::FromDouble(Signed(*bits, Take(rest, L'&')));

    const bool negative = Take(rest, L'-');
    if (!negative)
        Take(rest, L'+');
    std::string digits = TakeDigits(rest);
    const int point = static_cast<int>(digits.size());
    if (Take(rest, L'.'))
        digits += TakeDigits(rest);
    return Decimal(negative, digits, point + TakeExponent(rest));
}

double Val(std::wstring_view text)
{
    return ExactVal(text).ToDouble();
}

} // namespace kiv
