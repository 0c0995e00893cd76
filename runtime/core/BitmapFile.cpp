#include "runtime/core/BitmapFile.h"

#include <cstddef>
#include <cstdlib>

namespace kiv
{

namespace
{

constexpr std::size_t FileHeaderSize = 14;
constexpr std::uint32_t CoreHeaderSize = 12;
constexpr std::uint32_t InfoHeaderSize = 40;
constexpr std::uint32_t LargestHeaderSize = 124;

// Compressions whose bits are as many as the measures say.
constexpr std::uint32_t Plain = 0;
constexpr std::uint32_t BitFields = 3;

std::uint32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t place, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t each = 0; each < size; ++each)
        number |= std::uint32_t{bytes[place + each]} << (8 * each);
    return number;
}

struct Measures
{
    std::int64_t Width;
    std::int64_t Height; // negative from the top down
    std::uint32_t BitsPerPixel;
    std::uint32_t Compression;
    std::uint32_t CompressedSize; // of bits that are compressed
    std::uint32_t Colors;         // of a palette; 0 for as many as there may be
    std::uint32_t ColorSize;
};

Measures MeasuresOf(std::span<const std::uint8_t> header, std::uint32_t headerSize)
{
    if (headerSize == CoreHeaderSize)
        return {.Width = NumberAt(header, 4, 2),
                .Height = NumberAt(header, 6, 2),
                .BitsPerPixel = NumberAt(header, 10, 2),
                .Compression = Plain,
                .CompressedSize = {},
                .Colors = 0,
                .ColorSize = 3};
    return {.Width = static_cast<std::int32_t>(NumberAt(header, 4, 4)),
            .Height = static_cast<std::int32_t>(NumberAt(header, 8, 4)),
            .BitsPerPixel = NumberAt(header, 14, 2),
            .Compression = NumberAt(header, 16, 4),
            .CompressedSize = NumberAt(header, 20, 4),
            .Colors = NumberAt(header, 32, 4),
            .ColorSize = 4};
}

} // namespace

bool HoldsItsBitmap(std::span<const std::uint8_t> file)
{
    if (file.size() < 2 || file[0] != 'B' || file[1] != 'M')
        return true;
    if (file.size() < FileHeaderSize + CoreHeaderSize)
        return false;
    const std::uint32_t start = NumberAt(file, 10, 4);
    const std::uint32_t headerSize = NumberAt(file, FileHeaderSize, 4);
    const bool isKnown =
        headerSize == CoreHeaderSize || (headerSize >= InfoHeaderSize && headerSize <= LargestHeaderSize);
    if (!isKnown || file.size() < FileHeaderSize + headerSize || start > file.size())
        return false;
    const Measures measures = MeasuresOf(file.subspan(FileHeaderSize, headerSize), headerSize);
    constexpr std::int64_t Largest = 0x7FFF;
    const std::int64_t lines = std::abs(measures.Height);
    if (measures.Width <= 0 || measures.Width > Largest || lines == 0 || lines > Largest ||
        measures.BitsPerPixel > 32)
        return false;
    std::uint64_t palette = measures.Colors;
    if (palette == 0 && measures.BitsPerPixel <= 8)
        palette = std::uint64_t{1} << measures.BitsPerPixel;
    if (FileHeaderSize + headerSize + palette * measures.ColorSize > file.size())
        return false;
    const auto line = static_cast<std::uint64_t>((measures.Width * measures.BitsPerPixel + 31) / 32 * 4);
    const bool isPlain = measures.Compression == Plain || measures.Compression == BitFields;
    const std::uint64_t size =
        isPlain ? line * static_cast<std::uint64_t>(lines) : std::uint64_t{measures.CompressedSize};
    return start + size <= file.size();
}

} // namespace kiv
