#include "runtime/core/BitmapFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

namespace kiv::test
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

void Put(Bytes& bytes, std::size_t place, std::size_t size, std::uint32_t number)
{
    for (std::size_t each = 0; each < size; ++each)
        bytes[place + each] = static_cast<std::uint8_t>(number >> (8 * each));
}

// Four pixels by three of two colours, as a host's picture is stored.
Bytes Small()
{
    Bytes bytes(14 + 40 + 8 + 12);
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put(bytes, 10, 4, 14 + 40 + 8);
    Put(bytes, 14, 4, 40);
    Put(bytes, 18, 4, 4);
    Put(bytes, 22, 4, 3);
    Put(bytes, 26, 2, 1);
    Put(bytes, 28, 2, 1);
    return bytes;
}

struct FieldRow
{
    const char* Name;
    std::size_t Place;
    std::size_t Size;
    std::uint32_t Number;
    bool Holds;
};

std::ostream& operator<<(std::ostream& out, const FieldRow& row)
{
    return out << row.Name;
}

class BitmapField : public testing::TestWithParam<FieldRow>
{
};

TEST_P(BitmapField, IsHeldToTheBytesThatThereAre)
{
    const FieldRow& row = GetParam();
    Bytes bytes = Small();
    Put(bytes, row.Place, row.Size, row.Number);
    EXPECT_EQ(HoldsItsBitmap(bytes), row.Holds);
}

const FieldRow Rows[] = {
    {"AsItIs", 26, 2, 1, true},
    {"OfAnotherKind", 0, 1, 'G', true},
    {"TopDown", 22, 4, static_cast<std::uint32_t>(-3), true},
    {"OneLineMore", 22, 4, 4, false},
    {"OneLineMoreTopDown", 22, 4, static_cast<std::uint32_t>(-4), false},
    {"NoLines", 22, 4, 0, false},
    {"TheLowestHeight", 22, 4, 0x80000000U, false},
    {"WidestThatFits", 18, 4, 32, true},
    {"Wider", 18, 4, 33, false},
    {"VeryWide", 18, 4, 0x08040000, false},
    {"OnePixelWide", 18, 4, 1, true},
    {"NoWidth", 18, 4, 0, false},
    {"NegativeWidth", 18, 4, static_cast<std::uint32_t>(-4), false},
    {"MoreBitsThanThereAre", 28, 2, 24, false},
    {"ColoursBeyondTheEnd", 28, 2, 8, false},
    {"ColoursInUseToTheEnd", 46, 4, 5, true},
    {"OneColourMore", 46, 4, 6, false},
    {"ColoursInUseBeyondTheEnd", 46, 4, 100, false},
    {"BitsPerPixelBeyondAll", 28, 2, 64, false},
    {"LargeHeader", 14, 4, 0x08000028, false},
    {"LargerHeaderThanTheFile", 14, 4, 124, false},
    {"SmallHeader", 14, 4, 39, false},
    {"StartsLater", 10, 4, 63, false},
    {"StartsBehindTheEnd", 10, 4, 0xFFFFFFFFU, false},
    {"CompressedToNothing", 30, 4, 1, true},
};

INSTANTIATE_TEST_SUITE_P(Fields, BitmapField, testing::ValuesIn(Rows),
                         [](const testing::TestParamInfo<FieldRow>& row) { return row.param.Name; });

TEST(BitmapFile, ThatIsCutOffHoldsNothing)
{
    const Bytes whole = Small();
    EXPECT_TRUE(HoldsItsBitmap(whole));
    for (std::size_t size = 2; size < whole.size(); ++size)
        EXPECT_FALSE(HoldsItsBitmap(std::span(whole).first(size))) << size;
    EXPECT_TRUE(HoldsItsBitmap({}));
}

TEST(BitmapFile, OfTheOldKindIsKnown)
{
    Bytes bytes(14 + 12 + 6 + 4);
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put(bytes, 10, 4, 14 + 12 + 6);
    Put(bytes, 14, 4, 12);
    Put(bytes, 18, 2, 8);
    Put(bytes, 20, 2, 1);
    Put(bytes, 22, 2, 1);
    Put(bytes, 24, 2, 1);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 20, 2, 2);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
}

TEST(BitmapFile, OfTheOldKindHasColoursOfThreeBytes)
{
    Bytes bytes(14 + 12 + 16 * 3 + 4);
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put(bytes, 10, 4, 14 + 12 + 16 * 3);
    Put(bytes, 14, 4, 12);
    Put(bytes, 18, 2, 8);
    Put(bytes, 20, 2, 1);
    Put(bytes, 24, 2, 4);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
}

// The bits may lie anywhere, even in the headers.
TEST(BitmapFile, OfTheOldKindMayBeNothingButItsHeaders)
{
    Bytes bytes(14 + 12);
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put(bytes, 14, 4, 12);
    Put(bytes, 18, 2, 1);
    Put(bytes, 20, 2, 1);
    Put(bytes, 24, 2, 24);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    // But colours lie behind the headers.
    Put(bytes, 24, 2, 1);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    bytes.resize(bytes.size() + 5);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    bytes.resize(bytes.size() + 1);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
}

TEST(BitmapFile, OfTheNewestKindIsTheLastThatIsKnown)
{
    Bytes bytes(14 + 125 + 8 + 12);
    const Bytes small = Small();
    std::copy(small.begin(), small.begin() + 14 + 40, bytes.begin());
    Put(bytes, 10, 4, 14 + 125 + 8);
    Put(bytes, 14, 4, 124);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 14, 4, 125);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
}

// Four lines are one more than there are: what counts is how large the bits say to be.
TEST(BitmapFile, ThatIsCompressedHasItsSizeInItsHeader)
{
    Bytes bytes = Small();
    Put(bytes, 22, 4, 4);
    Put(bytes, 30, 4, 1);
    Put(bytes, 34, 4, 12);
    // Of no matter, and no part of its neighbours: the resolution, and the colours that are important.
    Put(bytes, 38, 4, 0x10);
    Put(bytes, 46, 4, 5);
    Put(bytes, 50, 4, 0x10);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 34, 4, 13);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    // No bits at all may begin at the end.
    Put(bytes, 34, 4, 0);
    Put(bytes, 10, 4, static_cast<std::uint32_t>(bytes.size()));
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 10, 4, 14 + 40 + 8);
    // Bit fields are no compression.
    Put(bytes, 34, 4, 12);
    Put(bytes, 30, 4, 3);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    Put(bytes, 22, 4, 3);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
}

TEST(BitmapFile, HasNoMoreThan32767PixelsALineOrLines)
{
    Bytes bytes = Small();
    bytes.resize(14 + 40 + 8 + 32767 * 4);
    Put(bytes, 18, 4, 1);
    Put(bytes, 22, 4, 32767);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    bytes.resize(bytes.size() + 4);
    Put(bytes, 22, 4, 32768);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    Put(bytes, 22, 4, 1);
    Put(bytes, 18, 4, 32767);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 18, 4, 32768);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
}

TEST(BitmapFile, HasNoMoreThan32BitsAPixel)
{
    Bytes bytes = Small();
    Put(bytes, 18, 4, 1);
    Put(bytes, 22, 4, 1);
    Put(bytes, 28, 2, 32);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
    Put(bytes, 28, 2, 33);
    EXPECT_FALSE(HoldsItsBitmap(bytes));
    // More than eight have no colours to make room for.
    Put(bytes, 28, 2, 9);
    EXPECT_TRUE(HoldsItsBitmap(bytes));
}

} // namespace

} // namespace kiv::test
