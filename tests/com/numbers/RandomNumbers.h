#pragma once

#include "tests/com/numbers/SystemNumbers.h"

#include <cstdint>
#include <random>
#include <vector>

namespace kiv::test
{

// Numbers and texts by chance, the same ones in every run and on every platform.
class RandomNumbers
{
public:
    explicit RandomNumbers(std::uint32_t seed) : engine_(seed) {}

    // 0 to end - 1.
    int Below(int end) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(end)); }
    bool OneIn(int count) { return Below(count) == 0; }
    const wchar_t* OneOf(const std::vector<const wchar_t*>& choices)
    {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
    }
    std::wstring Digits(int count);
    std::uint64_t Bits() { return static_cast<std::uint64_t>(engine_()) << 32 | engine_(); }

    // One of up to 15 digits, its point anywhere, many of them halves; at times far out or with a double's
    // full digits.
    SystemNumber Number();
    // As text, with anything in front, inside and behind that may stand there, and some that may not; written
    // as in English.
    std::wstring NumberText();
    // Any finite one of all binary numbers, or one as people write them.
    double Double();

private:
    std::mt19937 engine_;
};

} // namespace kiv::test
