#include "runtime/core/Digits.h"

#include <algorithm>

namespace kiv
{

bool AllDigits(std::wstring_view text)
{
    return std::ranges::all_of(text, IsDigit);
}

std::optional<int> ReadDigits(std::wstring_view text)
{
    if (text.empty() || !AllDigits(text))
        return std::nullopt;
    int number = 0;
    for (const wchar_t digit : text)
    {
        if (number > LargestRead / 10)
            return LargestRead;
        number = number * 10 + static_cast<int>(digit - L'0');
    }
    return number;
}

std::wstring PadDigits(int number, std::size_t width)
{
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(width - std::min(width, digits.size()), L'0') + digits;
}

} // namespace kiv
