#include "tools/pictures/ResourceFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

constexpr Colour Black{0, 0, 0};
constexpr Colour Red{255, 0, 0};
constexpr Colour White{255, 255, 255};

Picture Make(PictureKind kind, std::size_t width, std::size_t height, std::vector<Pixel> pixels)
{
    return {kind, width, height, Colour{192, 192, 192}, std::move(pixels)};
}

// The colour table of every 16-colour file: blue, green, red, 0.
const Bytes ColourTable{
    0,   0,   0,   0, 0,   0, 128, 0, 0,   128, 0, 0, 0,   128, 128, 0, //
    128, 0,   0,   0, 128, 0, 128, 0, 128, 128, 0, 0, 128, 128, 128, 0, //
    192, 192, 192, 0, 0,   0, 255, 0, 0,   255, 0, 0, 0,   255, 255, 0, //
    255, 0,   0,   0, 255, 0, 255, 0, 255, 255, 0, 0, 255, 255, 255, 0,
};

Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes Part(const Bytes& bytes, std::size_t start, std::size_t length)
{
    const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(start);
    return {first, first + static_cast<std::ptrdiff_t>(length)};
}

} // namespace

TEST(ResourceFile, WritesA16ColourBitmapBottomRowFirst)
{
    const Picture picture = Make(PictureKind::Bitmap, 3, 2, {Red, White, Black, Black, Black, White});
    const Bytes expected = Bytes{'B', 'M', 126, 0, 0, 0, 0, 0, 0, 0, 118, 0, 0, 0, // file header
                                 40,  0,   0,   0, 3, 0, 0, 0, 2, 0, 0,   0,       // size 3x2
                                 1,   0,   4,   0, 0, 0, 0, 0, 8, 0, 0,   0,       // 4 bits, 8 bytes
                                 0,   0,   0,   0, 0, 0, 0, 0, 0, 0, 0,   0, 0, 0, 0, 0} +
                           ColourTable + Bytes{0x00, 0xf0, 0, 0,  // black black white
                                               0x9f, 0x00, 0, 0}; // red white black
    EXPECT_EQ(MakeResourceFile(picture), expected);
}

TEST(ResourceFile, WritesAToolboxImageWith24Bits)
{
    const Picture picture = Make(PictureKind::Toolbox, 1, 2, {Colour{1, 2, 3}, Colour{4, 5, 6}});
    const Bytes expected{'B', 'M', 62, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, // file header
                         40,  0,   0,  0, 1, 0, 0, 0, 2, 0, 0,  0,       // size 1x2
                         1,   0,   24, 0, 0, 0, 0, 0, 8, 0, 0,  0,       // 24 bits, 8 bytes
                         0,   0,   0,  0, 0, 0, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0, 6, 5, 4, 0, 3, 2, 1, 0};
    EXPECT_EQ(MakeResourceFile(picture), expected);
}

TEST(ResourceFile, WritesAnIconWithThePictureInItsTopLeftCorner)
{
    const Picture picture =
        Make(PictureKind::Icon, 3, 2, {Red, std::nullopt, White, std::nullopt, Black, Black});
    const Bytes bytes = MakeResourceFile(picture);

    const std::size_t pixels = 22 + 40 + 64;
    const std::size_t mask = pixels + 32 * 16;
    ASSERT_EQ(bytes.size(), mask + 32 * 4);
    EXPECT_EQ(Part(bytes, 0, 22), (Bytes{0,    0,  1,  0, 1,  0,                   // one icon
                                         32,   32, 16, 0, 1,  0, 4, 0,             // 32x32, 16 colours
                                         0xe8, 2,  0,  0, 22, 0, 0, 0}));          // 744 bytes from 22 on
    EXPECT_EQ(Part(bytes, 22, 24), (Bytes{40, 0, 0, 0, 32, 0, 0, 0, 64,   0, 0, 0, // 32x64 with the mask
                                          1,  0, 4, 0, 0,  0, 0, 0, 0x80, 2, 0, 0}));
    EXPECT_EQ(Part(bytes, 22 + 40, 64), ColourTable);

    // 30 empty rows, then the two of the picture.
    EXPECT_EQ(Part(bytes, pixels, 30 * 16), Bytes(30 * 16, 0));
    EXPECT_EQ(Part(bytes, pixels + 30 * 16, 16), Bytes(16, 0)); // transparent and black are both 0
    EXPECT_EQ(Part(bytes, pixels + 31 * 16, 16), (Bytes{0x90, 0xf0} + Bytes(14, 0)));
    EXPECT_EQ(Part(bytes, mask, 30 * 4), Bytes(30 * 4, 0xff));
    EXPECT_EQ(Part(bytes, mask + 30 * 4, 8), (Bytes{0x9f, 0xff, 0xff, 0xff, 0x5f, 0xff, 0xff, 0xff}));
}

TEST(ResourceFile, FillsAWholeIcon)
{
    const Bytes bytes = MakeResourceFile(Make(PictureKind::Icon, 32, 32, std::vector<Pixel>(1024, White)));
    EXPECT_EQ(Part(bytes, 126, 512), Bytes(512, 0xff));
    EXPECT_EQ(Part(bytes, 638, 128), Bytes(128, 0));
}

// As large as the picture in either direction, and 32 pixels at least.
TEST(ResourceFile, MakesALargerIconOfALargerPicture)
{
    const Bytes bytes = MakeResourceFile(Make(PictureKind::Icon, 45, 30, std::vector<Pixel>(45 * 30, White)));
    EXPECT_EQ(Part(bytes, 6, 2), (Bytes{45, 32}));
    EXPECT_EQ(Part(bytes, 26, 8), (Bytes{45, 0, 0, 0, 64, 0, 0, 0})); // colours and mask
    // Rows of 45 pixels take 24 bytes of colours and 8 of mask, the last two below the picture.
    EXPECT_EQ(bytes.size(), 126u + 32 * 24 + 32 * 8);
    EXPECT_EQ(Part(bytes, 126, 2 * 24), Bytes(2 * 24, 0));
    EXPECT_EQ(Part(bytes, 126 + 2 * 24, 24), (Bytes(22, 0xff) + Bytes{0xf0, 0}));
    EXPECT_EQ(Part(bytes, 126 + 32 * 24, 6), Bytes(6, 0xff));
    EXPECT_EQ(Part(bytes, 126 + 32 * 24 + 2 * 8, 8), (Bytes{0, 0, 0, 0, 0, 7, 0, 0}));
}

TEST(ResourceFile, RefusesWhatTheFormCannotHold)
{
    const Picture wide = Make(PictureKind::Icon, 256, 1, std::vector<Pixel>(256, Red));
    EXPECT_THROW(MakeResourceFile(wide), std::invalid_argument);
    const Picture high = Make(PictureKind::Icon, 1, 256, std::vector<Pixel>(256, Red));
    EXPECT_THROW(MakeResourceFile(high), std::invalid_argument);
    const Picture pastel = Make(PictureKind::Bitmap, 1, 1, {Colour{255, 200, 200}});
    EXPECT_THROW(MakeResourceFile(pastel), std::invalid_argument);
}

TEST(ResourceFile, NamesTheExtension)
{
    EXPECT_EQ(ResourceExtension(PictureKind::Icon), ".ico");
    EXPECT_EQ(ResourceExtension(PictureKind::Bitmap), ".bmp");
    EXPECT_EQ(ResourceExtension(PictureKind::Toolbox), ".bmp");
}

} // namespace kiv::test
