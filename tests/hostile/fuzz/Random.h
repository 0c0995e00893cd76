#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace kiv::test
{

// Numbers that look like chance and follow from where they start: the same everywhere and each time.
class Random
{
public:
    // Of one input among those of a seed.
    Random(std::uint64_t seed, std::uint64_t input) : state_(seed * 0x9E3779B97F4A7C15U ^ input) { Next(); }

    std::uint64_t Next()
    {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }
    std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(Next() % bound); }
    bool OneIn(std::size_t chances) { return Below(chances) == 0; }
    template<class Range>
    const auto& Pick(const Range& range)
    {
        return *(std::begin(range) + static_cast<std::ptrdiff_t>(Below(std::size(range))));
    }
    // Small and large, round and just beside, of either sign.
    std::int64_t OddNumber()
    {
        static constexpr std::int64_t Odd[] = {
            0,     1,     -1,         2,          3,          7,           10,        31,    32,
            100,   127,   128,        -128,       255,        256,         32767,     32768, -32768,
            65535, 65536, 0x00FFFFFF, 0x7FFFFFFF, 0x80000000, -0x80000000, 0xFFFFFFFF};
        switch (Below(4))
        {
        case 0:
            return static_cast<std::int64_t>(Below(64));
        case 1:
            return static_cast<std::int64_t>(Next() >> Below(64));
        default:
            return Pick(Odd);
        }
    }

private:
    std::uint64_t state_;
};

} // namespace kiv::test
