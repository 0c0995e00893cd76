#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kiv
{

// The exchange of one colour in pixels of 16, 24 or 32 bits, in terms of the bits that such a pixel holds.
struct PixelExchange
{
    std::uint32_t ColorBits; // those that make its colour
    std::uint32_t Wanted;    // the colour's, of a pixel that is exchanged; bits beside it when there is none
    std::uint32_t KeptBits;  // those that writing a colour leaves as they are
    std::uint32_t Written;   // the others, as the new colour has them

    constexpr std::uint32_t operator()(std::uint32_t pixel) const
    {
        return (pixel & ColorBits) == Wanted ? (pixel & KeptBits) | Written : pixel;
    }
};

// The exchange of palette entries in pixels of 1, 4 or 8 bits: what becomes of each value of a byte of them.
class EntryExchange
{
public:
    // Pixels that name the palette's entries, one after the other, as they lie in a bitmap.
    static std::vector<std::uint8_t> EveryEntry(std::size_t bitsPerPixel);
    // exchanged: what has become of those pixels.
    EntryExchange(std::size_t bitsPerPixel, std::span<const std::uint8_t> exchanged);

    std::uint8_t operator()(std::uint8_t pixels) const { return bytes_[pixels]; }
    // The same in steps, one after the other over all bytes, where they are few: the processor takes many
    // bytes at once in each.
    const std::optional<std::vector<PixelExchange>>& Steps() const { return steps_; }

private:
    void FindSteps(std::span<const std::uint32_t> becomes, std::size_t bitsPerPixel);

    std::array<std::uint8_t, 256> bytes_ = {};
    std::optional<std::vector<PixelExchange>> steps_;
};

// The pixels of a bitmap in memory, little-endian, row after row; rowBytes may be more than the pixels of a
// row take, and what is between rows stays as it is.
struct PixelRows
{
    std::span<std::uint8_t> Bytes;
    std::size_t RowBytes;
    std::size_t Width; // pixels
    std::size_t BitsPerPixel;
};

constexpr bool HoldsColors(std::size_t bitsPerPixel)
{
    return bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
}
constexpr bool HoldsEntries(std::size_t bitsPerPixel)
{
    return bitsPerPixel == 1 || bitsPerPixel == 4 || bitsPerPixel == 8;
}

// For pixels that hold colours, and for those that hold entries.
void Exchange(const PixelRows& rows, const PixelExchange& exchange);
void Exchange(const PixelRows& rows, const EntryExchange& exchange);

} // namespace kiv
