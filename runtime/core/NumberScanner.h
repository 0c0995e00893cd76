#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// Parts of numbers in a text. Each takes its part off the front of the rest, and nothing when it is not
// there.

// Digits, none to all.
std::string TakeDigits(std::wstring_view& rest);

// "e5", "E-5", "d+5"; 0 when there is none. Held inside ±LargestExponent, which no binary number reaches.
int TakeExponent(std::wstring_view& rest);
constexpr int LargestExponent = 9999;

// "&H1F", "&o17": a number of at most 32 bits.
std::optional<std::uint32_t> TakeRadixNumber(std::wstring_view& rest);

} // namespace kiv
