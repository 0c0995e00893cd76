#include "runtime/core/NumberScanner.h"

#include "runtime/core/Digits.h"

#include <algorithm>
#include <limits>

namespace kiv
{

namespace
{

constexpr bool IsEither(wchar_t character, wchar_t one, wchar_t other)
{
    return character == one || character == other;
}

std::optional<std::uint32_t> RadixOf(std::wstring_view text)
{
    if (text.starts_with(L"&h") || text.starts_with(L"&H"))
        return 16;
    if (text.starts_with(L"&o") || text.starts_with(L"&O"))
        return 8;
    return std::nullopt;
}

// Letters behind those that are digits count on, beyond every radix.
std::optional<std::uint32_t> DigitValue(wchar_t character, std::uint32_t radix)
{
    std::uint32_t value = radix;
    if (IsDigit(character))
        value = static_cast<std::uint32_t>(character - L'0');
    else if (character >= L'a')
        value = static_cast<std::uint32_t>(character - L'a') + 10;
    else if (character >= L'A')
        value = static_cast<std::uint32_t>(character - L'A') + 10;
    return value < radix ? std::optional(value) : std::nullopt;
}

} // namespace

std::string TakeDigits(std::wstring_view& rest)
{
    std::string digits;
    for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1))
        digits.push_back(static_cast<char>(rest.front()));
    return digits;
}

int TakeExponent(std::wstring_view& rest)
{
    std::wstring_view ahead = rest;
    if (ahead.empty() || !(IsEither(ahead.front(), L'e', L'E') || IsEither(ahead.front(), L'd', L'D')))
        return 0;
    ahead.remove_prefix(1);
    const bool negative = !ahead.empty() && ahead.front() == L'-';
    if (!ahead.empty() && IsEither(ahead.front(), L'+', L'-'))
        ahead.remove_prefix(1);
    const std::string digits = TakeDigits(ahead);
    if (digits.empty())
        return 0;
    rest = ahead;
    int exponent = 0;
    for (const char digit : digits)
        exponent = std::min(exponent * 10 + (digit - '0'), LargestExponent);
    return negative ? -exponent : exponent;
}

std::optional<std::uint32_t> TakeRadixNumber(std::wstring_view& rest)
{
    const auto radix = RadixOf(rest);
    if (!radix)
        return std::nullopt;
    std::wstring_view ahead = rest.substr(2);
    std::uint64_t number = 0;
    bool any = false;
    for (; !ahead.empty(); ahead.remove_prefix(1), any = true)
    {
        const auto digit = DigitValue(ahead.front(), *radix);
        if (!digit)
            break;
        number = number * *radix + *digit;
        if (number > std::numeric_limits<std::uint32_t>::max())
            return std::nullopt;
    }
    if (!any)
        return std::nullopt;
    rest = ahead;
    return static_cast<std::uint32_t>(number);
}

} // namespace kiv
