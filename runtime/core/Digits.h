#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// Numbers as people type them into a field: the digits 0 to 9 and nothing else. No sign, no blank, no digit
// of another script.
constexpr bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

// True for an empty text.
bool AllDigits(std::wstring_view text);

// The number that a text of one or more digits stands for, leading zeros allowed; a number above LargestRead
// reads as that. None for any other text.
std::optional<int> ReadDigits(std::wstring_view text);
constexpr int LargestRead = 99'999'999;

// A number from 0 on, with leading zeros up to the width; never cut off.
std::wstring PadDigits(int number, std::size_t width);

} // namespace kiv
