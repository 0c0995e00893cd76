#include "controls/choice/PixelExchange.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <span>
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

TEST(PixelExchangeTest, HandlesTheFormatsWhoseBitsAreColoursOrEntries)
{
    for (const std::size_t bits : {1U, 4U, 8U, 15U, 48U, 64U})
        EXPECT_FALSE(HoldsColors(bits)) << bits;
    for (const std::size_t bits : {16U, 24U, 32U})
        EXPECT_TRUE(HoldsColors(bits)) << bits;
    for (const std::size_t bits : {2U, 15U, 16U, 24U, 32U, 64U})
        EXPECT_FALSE(HoldsEntries(bits)) << bits;
    for (const std::size_t bits : {1U, 4U, 8U})
        EXPECT_TRUE(HoldsEntries(bits)) << bits;
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
    constexpr PixelExchange exchange24 = {0x7F7F7F, 0x111311, 0x808000, 0x125678};
    constexpr PixelExchange exchange16 = {0x7F7F, 0x1113, 0x8000, 0x5678};
    const PixelExchange& used = size == 2 ? exchange16 : size == 3 ? exchange24 : exchange;
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
        for (const std::size_t width : {1U, 2U, 3U, 7U, 8U, 17U, 64U, 255U, 256U, 257U, 600U})
            for (const std::size_t height : {1U, 2U, 5U})
                for (const std::size_t padding : {0U, 1U, 3U})
                    ExpectExchanged({bits, width, height, padding}, random);
}

std::size_t EntryAt(std::span<const std::uint8_t> bytes, std::size_t x, std::size_t bits)
{
    const std::size_t bit = x * bits;
    return bytes[bit / 8] >> (8 - bits - bit % 8) & ((1U << bits) - 1);
}

TEST(PixelExchangeTest, KnowsEveryEntry)
{
    for (const std::size_t bits : {1U, 4U, 8U})
    {
        const std::vector<std::uint8_t> entries = EntryExchange::EveryEntry(bits);
        EXPECT_EQ(entries.size(), bits == 1 ? 1U : bits == 4 ? 8U : 256U) << bits << " bits";
        for (std::size_t entry = 0; entry < std::size_t{1} << bits; ++entry)
            EXPECT_EQ(EntryAt(entries, entry, bits), entry) << bits << " bits";
    }
}

// The entries after some of them, as many as wanted, have become the last one.
std::vector<std::uint8_t> WithEntriesExchanged(std::size_t bits, std::size_t count)
{
    std::vector<std::uint8_t> pixels = EntryExchange::EveryEntry(bits);
    for (std::size_t entry = 0; entry < count; ++entry)
        pixels[entry * bits / 8] |=
            static_cast<std::uint8_t>(((1U << bits) - 1) << (8 - bits - entry * bits % 8));
    return pixels;
}

// The first entry has become the second one, and that the third.
std::vector<std::uint8_t> WithEntriesInARow(std::size_t bits)
{
    std::vector<std::uint8_t> pixels = EntryExchange::EveryEntry(bits);
    if (bits == 4)
        pixels[0] = 0x12;
    else
        std::copy_n(pixels.begin() + 1, 2, pixels.begin());
    return pixels;
}

// The last entry, of which every bit is set, has become the first one.
std::vector<std::uint8_t> WithTheLastEntryCleared(std::size_t bits)
{
    std::vector<std::uint8_t> pixels = EntryExchange::EveryEntry(bits);
    pixels.back() &= static_cast<std::uint8_t>(~((1U << bits) - 1));
    return pixels;
}

// What lies between rows stays as it is.
void ExpectEntriesExchanged(const Shape& shape, std::span<const std::uint8_t> exchanged, std::mt19937& random)
{
    const std::size_t bits = shape.BitsPerPixel;
    const std::size_t rowBits = shape.Width * bits;
    const std::size_t rowBytes = (rowBits + 7) / 8 + shape.Padding;
    std::vector<std::uint8_t> bytes(rowBytes * shape.Height);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    const std::vector<std::uint8_t> before = bytes;

    Exchange({bytes, rowBytes, shape.Width, bits}, EntryExchange(bits, exchanged));

    for (std::size_t y = 0; y < shape.Height; ++y)
    {
        const auto row = std::span(bytes).subspan(y * rowBytes, rowBytes);
        const auto rowBefore = std::span(before).subspan(y * rowBytes, rowBytes);
        for (std::size_t x = 0; x < shape.Width; ++x)
            ASSERT_EQ(EntryAt(row, x, bits), EntryAt(exchanged, EntryAt(rowBefore, x, bits), bits))
                << bits << " bits, " << shape.Width << " by " << shape.Height << ", at " << x << ", " << y;
        for (std::size_t bit = rowBits; bit < rowBytes * 8; ++bit)
            ASSERT_EQ(EntryAt(row, bit, 1), EntryAt(rowBefore, bit, 1)) << "between rows";
    }
}

// Every entry may become every other, none, one, or all may become the same one.
TEST(PixelExchangeTest, GoesThroughEveryEntryOfEveryRowAndNoFurther)
{
    std::mt19937 random(21);
    for (const std::size_t bits : {1U, 4U, 8U})
    {
        std::vector<std::uint8_t> mixed = EntryExchange::EveryEntry(bits);
        std::ranges::shuffle(mixed, random);
        std::vector<std::vector<std::uint8_t>> exchanges = {mixed};
        for (const std::size_t count : {0U, 1U, 2U, 5U, 16U, 100U, 256U})
            if (count <= std::size_t{1} << bits)
                exchanges.push_back(WithEntriesExchanged(bits, count));
        if (bits != 1)
        {
            exchanges.push_back(WithEntriesInARow(bits));
            exchanges.push_back(WithTheLastEntryCleared(bits));
        }
        for (const std::vector<std::uint8_t>& exchanged : exchanges)
            for (const std::size_t width : {1U, 2U, 3U, 7U, 8U, 9U, 17U, 33U, 131U})
                for (const std::size_t height : {1U, 3U})
                    for (const std::size_t padding : {0U, 1U, 3U})
                        ExpectEntriesExchanged({bits, width, height, padding}, exchanged, random);
    }
}

TEST(PixelExchangeTest, TakesFewStepsOrNone)
{
    EXPECT_EQ(EntryExchange(1, WithEntriesExchanged(1, 1)).Steps()->size(), 1U) << "a single colour is left";
    EXPECT_EQ(EntryExchange(4, WithEntriesExchanged(4, 2)).Steps()->size(), 4U);
    EXPECT_EQ(EntryExchange(8, WithEntriesExchanged(8, 0)).Steps()->size(), 0U);
    EXPECT_EQ(EntryExchange(8, WithEntriesExchanged(8, 1)).Steps()->size(), 1U);
    EXPECT_EQ(EntryExchange(8, WithEntriesExchanged(8, 8)).Steps()->size(), 8U);
    EXPECT_FALSE(EntryExchange(8, WithEntriesExchanged(8, 9)).Steps()) << "looking up is faster";
    EXPECT_FALSE(EntryExchange(8, WithEntriesExchanged(8, 100)).Steps()) << "looking up is faster";
}

TEST(PixelExchangeTest, LeavesAllAloneForAColourThatThereIsNot)
{
    for (const std::size_t bits : {16U, 24U, 32U})
    {
        const std::uint32_t colorBits = ~0U >> (bits == 32 ? 8 : 32 - bits);
        std::vector<std::uint8_t> bytes(48);
        Exchange({bytes, 48, 48 * 8 / bits, bits}, {colorBits, ~colorBits, 0, 0x11223344});
        EXPECT_EQ(bytes, std::vector<std::uint8_t>(48)) << bits << " bits, all black";
    }
}

TEST(PixelExchangeTest, LeavesAllAloneForAColourOfMoreBitsThanAPixel)
{
    std::vector<std::uint8_t> bytes(48);
    Exchange({bytes, 48, 24, 16}, {0xFFFFFF, 0x120000, 0, 0x1234});
    EXPECT_EQ(bytes, std::vector<std::uint8_t>(48));
}

TEST(PixelExchangeTest, KnowsAColourByItsHighestBit)
{
    for (const std::size_t bits : {16U, 24U, 32U})
    {
        std::vector<std::uint8_t> bytes(bits / 8);
        bytes.back() = 0x80;
        Exchange({bytes, bits / 8, 1, bits}, {~0U >> (32 - bits), 1U << (bits - 1), 0, 5});
        EXPECT_EQ(PixelAt(bytes, 0, bits / 8), 5U) << bits << " bits";
    }
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
