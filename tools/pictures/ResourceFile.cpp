#include "tools/pictures/ResourceFile.h"

#include <algorithm>
#include <stdexcept>

namespace kiv::pictures
{

namespace
{

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t InfoHeaderSize = 40;
constexpr std::size_t ColourTableSize = 4 * StandardColours.size();
constexpr std::size_t LeastIconSide = 32;
constexpr std::size_t MostIconSide = 255;
constexpr std::size_t IconDirectorySize = 6 + 16;

void Put8(Bytes& bytes, std::size_t value)
{
    bytes.push_back(static_cast<std::uint8_t>(value));
}

void Put16(Bytes& bytes, std::size_t value)
{
    Put8(bytes, value & 0xff);
    Put8(bytes, value >> 8 & 0xff);
}

void Put32(Bytes& bytes, std::size_t value)
{
    Put16(bytes, value & 0xffff);
    Put16(bytes, value >> 16 & 0xffff);
}

// Rows of a bitmap end on a multiple of four bytes.
std::size_t RowSize(std::size_t width, std::size_t bitsPerPixel)
{
    return (width * bitsPerPixel + 31) / 32 * 4;
}

void PadRow(Bytes& bytes, std::size_t rowStart, std::size_t rowSize)
{
    bytes.resize(rowStart + rowSize);
}

void PutFileHeader(Bytes& bytes, std::size_t pixelOffset, std::size_t pixelSize)
{
    Put8(bytes, 'B');
    Put8(bytes, 'M');
    Put32(bytes, pixelOffset + pixelSize);
    Put32(bytes, 0);
    Put32(bytes, pixelOffset);
}

void PutInfoHeader(Bytes& bytes, std::size_t width, std::size_t height, std::size_t bitsPerPixel,
                   std::size_t pixelSize)
{
    Put32(bytes, InfoHeaderSize);
    Put32(bytes, width);
    Put32(bytes, height);
    Put16(bytes, 1); // planes
    Put16(bytes, bitsPerPixel);
    Put32(bytes, 0); // uncompressed
    Put32(bytes, pixelSize);
    Put32(bytes, 0); // no resolution stated
    Put32(bytes, 0);
    Put32(bytes, 0); // the whole colour table is in use
    Put32(bytes, 0);
}

void PutColourTable(Bytes& bytes)
{
    for (const StandardColour& standard : StandardColours)
    {
        Put8(bytes, standard.colour.blue);
        Put8(bytes, standard.colour.green);
        Put8(bytes, standard.colour.red);
        Put8(bytes, 0);
    }
}

// A transparent pixel is black here: the screen is kept where the mask is set and the colour adds nothing.
std::size_t ColourIndex(const Pixel& pixel)
{
    const std::optional<std::size_t> index = StandardIndex(pixel.value_or(Colour{}));
    if (!index)
        throw std::invalid_argument("a 16-colour picture holds another colour");
    return *index;
}

// Bitmaps are stored from the bottom row up, the left one of two 4-bit pixels in the high half of a byte.
// Columns and rows beyond the picture, up to the stored size, are transparent.
void Put16ColourPixels(Bytes& bytes, const Picture& picture, std::size_t width, std::size_t height)
{
    const auto at = [&](std::size_t x, std::size_t y) {
        return x < picture.width && y < picture.height ? picture.At(x, y) : Pixel{};
    };
    for (std::size_t y = height; y-- > 0;)
    {
        const std::size_t rowStart = bytes.size();
        for (std::size_t x = 0; x < width; x += 2)
            Put8(bytes, ColourIndex(at(x, y)) << 4 | ColourIndex(at(x + 1, y)));
        PadRow(bytes, rowStart, RowSize(width, 4));
    }
}

struct IconSize
{
    std::size_t width = 0;
    std::size_t height = 0;
};

// One bit a pixel, set where the icon leaves the screen alone.
void PutIconMask(Bytes& bytes, const Picture& picture, IconSize size)
{
    for (std::size_t y = size.height; y-- > 0;)
    {
        const std::size_t rowStart = bytes.size();
        for (std::size_t x = 0; x < size.width; x += 8)
        {
            std::size_t bits = 0;
            for (std::size_t i = x; i < x + 8; ++i)
            {
                const bool drawn = i < picture.width && y < picture.height && picture.At(i, y);
                bits = bits << 1 | (drawn ? 0u : 1u);
            }
            Put8(bytes, bits);
        }
        PadRow(bytes, rowStart, RowSize(size.width, 1));
    }
}

Bytes MakeIcon(const Picture& picture)
{
    const IconSize size = {std::max(LeastIconSide, picture.width), std::max(LeastIconSide, picture.height)};
    if (size.width > MostIconSide || size.height > MostIconSide)
        throw std::invalid_argument("the picture is too large for an icon");
    const std::size_t pixelSize = size.height * (RowSize(size.width, 4) + RowSize(size.width, 1));
    Bytes bytes;
    Put16(bytes, 0);
    Put16(bytes, 1); // an icon
    Put16(bytes, 1); // one image
    Put8(bytes, size.width);
    Put8(bytes, size.height);
    Put8(bytes, StandardColours.size());
    Put8(bytes, 0);
    Put16(bytes, 1); // planes
    Put16(bytes, 4); // bits a pixel
    Put32(bytes, InfoHeaderSize + ColourTableSize + pixelSize);
    Put32(bytes, IconDirectorySize);
    PutInfoHeader(bytes, size.width, 2 * size.height, 4, pixelSize); // the height counts colours and mask
    PutColourTable(bytes);
    Put16ColourPixels(bytes, picture, size.width, size.height);
    PutIconMask(bytes, picture, size);
    return bytes;
}

Bytes Make16ColourBitmap(const Picture& picture)
{
    const std::size_t pixelSize = picture.height * RowSize(picture.width, 4);
    Bytes bytes;
    PutFileHeader(bytes, FileHeaderSize + InfoHeaderSize + ColourTableSize, pixelSize);
    PutInfoHeader(bytes, picture.width, picture.height, 4, pixelSize);
    PutColourTable(bytes);
    Put16ColourPixels(bytes, picture, picture.width, picture.height);
    return bytes;
}

} // namespace

Bytes MakeTrueColourBitmap(const Picture& picture)
{
    const std::size_t rowSize = RowSize(picture.width, 24);
    Bytes bytes;
    PutFileHeader(bytes, FileHeaderSize + InfoHeaderSize, picture.height * rowSize);
    PutInfoHeader(bytes, picture.width, picture.height, 24, picture.height * rowSize);
    for (std::size_t y = picture.height; y-- > 0;)
    {
        const std::size_t rowStart = bytes.size();
        for (std::size_t x = 0; x < picture.width; ++x)
        {
            const Colour colour = picture.At(x, y).value_or(picture.background);
            Put8(bytes, colour.blue);
            Put8(bytes, colour.green);
            Put8(bytes, colour.red);
        }
        PadRow(bytes, rowStart, rowSize);
    }
    return bytes;
}

Bytes MakeResourceFile(const Picture& picture)
{
    switch (picture.kind)
    {
    case PictureKind::Icon:
        return MakeIcon(picture);
    case PictureKind::Bitmap:
        return Make16ColourBitmap(picture);
    case PictureKind::Toolbox:
        return MakeTrueColourBitmap(picture);
    }
    throw std::invalid_argument("unknown kind of picture");
}

std::string_view ResourceExtension(PictureKind kind)
{
    return kind == PictureKind::Icon ? ".ico" : ".bmp";
}

} // namespace kiv::pictures
