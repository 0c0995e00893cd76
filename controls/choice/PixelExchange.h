#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kiv
{

// The exchange of one colour in pixels of 16, 24 or 32 bits, in terms of the bits that such a pixel holds.
struct PixelExchange
{
    std::uint32_t ColorBits = 0; // those that make its colour
    std::uint32_t Wanted = 0;    // the colour's, of a pixel that is exchanged
    std::uint32_t KeptBits = 0;  // those that writing a colour leaves as they are
    std::uint32_t Written = 0;   // the others, as the new colour has them

    constexpr std::uint32_t operator()(std::uint32_t pixel) const
    {
        return (pixel & ColorBits) == Wanted ? (pixel & KeptBits) | Written : pixel;
    }
};

// The pixels of a bitmap in memory, little-endian, row after row; rowBytes may be more than the pixels of a
// row take, and what is between rows stays as it is.
struct PixelRows
{
    std::span<std::uint8_t> Bytes;
    std::size_t RowBytes = 0;
    std::size_t Width = 0; // pixels
    std::size_t BitsPerPixel = 0;
};

constexpr bool CanExchange(std::size_t bitsPerPixel)
{
    return bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
}

void Exchange(const PixelRows& rows, const PixelExchange& exchange);

} // namespace kiv
