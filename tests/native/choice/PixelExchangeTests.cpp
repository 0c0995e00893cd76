#include "controls/choice/PixelExchange.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace kiv
{

namespace
{

constexpr PixelExchange TrueColor = {0x00FFFFFF, 0x00112233, 0, 0x00AABBCC};

TEST(PixelExchangeTest, ChangesThePixelsOfTheColourOnly)
{
    EXPECT_EQ(TrueColor(0x00112233), 0x00AABBCCU);
    EXPECT_EQ(TrueColor(0x00112234), 0x00112234U);
    EXPECT_EQ(TrueColor(0x01112233), 0x00AABBCCU) << "what is no colour does not count";
    constexpr PixelExchange keeping = {0x00FFFFFF, 0x00112233, 0xFF000000, 0x00AABBCC};
    EXPECT_EQ(keeping(0x7F112233), 0x7FAABBCCU);
    constexpr PixelExchange fiveBits = {0x7FFF, 0x1234, 0, 0x4321};
    EXPECT_EQ(fiveBits(0x9234), 0x4321U);
}

TEST(PixelExchangeTest, HandlesTheFormatsWhoseBitsAreColours)
{
    for (const std::size_t bits : {1U, 4U, 8U, 15U, 48U, 64U})
        EXPECT_FALSE(CanExchange(bits)) << bits;
    for (const std::size_t bits : {16U, 24U, 32U})
        EXPECT_TRUE(CanExchange(bits)) << bits;
}

std::uint32_t PixelAt(const std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t size)
{
    std::uint32_t pixel = 0;
    for (std::size_t byte = 0; byte < size; ++byte)
        pixel |= std::uint32_t{bytes[at + byte]} << (8 * byte);
    return pixel;
}

struct Shape
{
    std::size_t BitsPerPixel;
    std::size_t Width;
    std::size_t Height;
    std::size_t Padding;
};

// Few colours, so that many pixels have the one that is wanted.
void ExpectExchanged(const Shape& shape, std::mt19937& random)
{
    const std::size_t size = shape.BitsPerPixel / 8;
    const std::size_t rowBytes = shape.Width * size + shape.Padding;
    std::vector<std::uint8_t> bytes(rowBytes * shape.Height);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % 2 == 0 ? 0x11 : 0x93);
    const std::vector<std::uint8_t> before = bytes;
    constexpr PixelExchange exchange = {0x7F7F7F7F, 0x11131311, 0x80008000, 0x12345678};
    constexpr PixelExchange shortExchange = {0x7F7F, 0x1113, 0x8000, 0x5678};
    const PixelExchange& used = size == 2 ? shortExchange : exchange;
    const std::uint32_t mask = size == 4 ? ~0U : (1U << (8 * size)) - 1;

    Exchange({bytes, rowBytes, shape.Width, shape.BitsPerPixel}, used);

    for (std::size_t y = 0; y < shape.Height; ++y)
    {
        for (std::size_t x = 0; x < shape.Width; ++x)
        {
            const std::size_t at = y * rowBytes + x * size;
            ASSERT_EQ(PixelAt(bytes, at, size), used(PixelAt(before, at, size)) & mask)
                << shape.BitsPerPixel << " bits, " << shape.Width << " by " << shape.Height << ", at " << x
                << ", " << y;
        }
        for (std::size_t at = y * rowBytes + shape.Width * size; at < (y + 1) * rowBytes; ++at)
            ASSERT_EQ(bytes[at], before[at]) << "between rows";
    }
}

TEST(PixelExchangeTest, GoesThroughEveryPixelOfEveryRowAndNoFurther)
{
    std::mt19937 random(20);
    for (const std::size_t bits : {16U, 24U, 32U})
        for (const std::size_t width : {1U, 2U, 3U, 7U, 8U, 17U, 64U})
            for (const std::size_t height : {1U, 2U, 5U})
                for (const std::size_t padding : {0U, 1U, 3U})
                    ExpectExchanged({bits, width, height, padding}, random);
}

TEST(PixelExchangeTest, LeavesARowAloneThatIsCutShort)
{
    std::vector<std::uint8_t> bytes(12 + 11, 0x11);
    constexpr PixelExchange exchange = {0xFFFFFF, 0x111111, 0, 0x222222};
    Exchange({bytes, 12, 4, 24}, exchange);
    EXPECT_EQ(bytes[11], 0x22);
    EXPECT_EQ(bytes[12], 0x11);
    Exchange({{}, 12, 4, 24}, exchange);
    Exchange({bytes, 0, 4, 24}, exchange);
    EXPECT_EQ(bytes[12], 0x11);
}

} // namespace

} // namespace kiv
