#include "runtime/core/PropertyStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace kiv::test
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

PropertyStream Sample()
{
    PropertyStream stream;
    stream.WidthHimetric = 2540;
    stream.HeightHimetric = -1;
    stream.Properties = {{"BackColor", 3, {0x0F, 0x00, 0x00, 0x80}},
                         {"YesText", 8, {'J', 0, 'a', 0}},
                         {"NoText", 1, {}},
                         {"", 0, {}}};
    return stream;
}

// The refusal's text, or empty when the bytes were taken.
std::string Refusal(const Bytes& bytes)
{
    try
    {
        static_cast<void>(DecodePropertyStream(bytes));
        return {};
    }
    catch (const DamagedStream& damaged)
    {
        return damaged.what();
    }
}

TEST(PropertyStreamTest, IsLaidOutAsPublished)
{
    PropertyStream stream;
    stream.WidthHimetric = 0x01020304;
    stream.HeightHimetric = -2;
    stream.Properties = {{"Ab", 0x0203, {0xAA, 0xBB, 0xCC}}};
    const Bytes expectedBody = {0x04, 0x03, 0x02, 0x01, 0xFE, 0xFF, 0xFF, 0xFF, 1, 0,    0,    0,   2,
                                0,    'A',  'b',  0x03, 0x02, 3,    0,    0,    0, 0xAA, 0xBB, 0xCC};
    const Bytes bytes = EncodePropertyStream(stream);
    ASSERT_EQ(bytes.size(), PropertyStreamHeaderSize + expectedBody.size());
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 8), (Bytes{'K', 'I', 'V', 'S', 1, 0, 0, 0}));
    EXPECT_EQ(Bytes(bytes.begin() + 8, bytes.begin() + 12),
              (Bytes{static_cast<std::uint8_t>(expectedBody.size()), 0, 0, 0}));
    EXPECT_EQ(Bytes(bytes.begin() + 16, bytes.end()), expectedBody);
}

// The CRC-32 of a body of twelve zero bytes, as zlib gives it.
TEST(PropertyStreamTest, CarriesTheCrc32OfItsBody)
{
    const Bytes bytes = EncodePropertyStream(PropertyStream());
    ASSERT_EQ(bytes.size(), PropertyStreamHeaderSize + 12);
    EXPECT_EQ(Bytes(bytes.begin() + 12, bytes.begin() + 16), (Bytes{0x6F, 0xC6, 0xD5, 0x7B}));
}

TEST(PropertyStreamTest, ReadsBackWhatItWrote)
{
    const PropertyStream stream = Sample();
    EXPECT_EQ(DecodePropertyStream(EncodePropertyStream(stream)), stream);
}

TEST(PropertyStreamTest, KeepsAnEmptyStream)
{
    EXPECT_EQ(DecodePropertyStream(EncodePropertyStream(PropertyStream())), PropertyStream());
}

TEST(PropertyStreamTest, KeepsTheLongestName)
{
    PropertyStream stream;
    stream.Properties = {{std::string(65535, 'n'), 8, Bytes(100000, 7)}};
    EXPECT_EQ(DecodePropertyStream(EncodePropertyStream(stream)), stream);
}

TEST(PropertyStreamTest, RefusesToWriteATooLongName)
{
    PropertyStream stream;
    stream.Properties = {{std::string(65536, 'n'), 8, {}}};
    EXPECT_THROW(static_cast<void>(EncodePropertyStream(stream)), std::length_error);
}

TEST(PropertyStreamTest, RefusesToWriteATooLargeBody)
{
    PropertyStream stream;
    stream.Properties = {{"a", 8, Bytes(40U << 20, 1)}, {"b", 8, Bytes(40U << 20, 1)}};
    EXPECT_THROW(static_cast<void>(EncodePropertyStream(stream)), std::length_error);
}

TEST(PropertyStreamTest, IsRefusedCutOffAnywhere)
{
    const Bytes whole = EncodePropertyStream(Sample());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(Refusal(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), "")
            << size;
}

TEST(PropertyStreamTest, IsRefusedWithAnythingBehindIt)
{
    Bytes bytes = EncodePropertyStream(Sample());
    bytes.push_back(0);
    EXPECT_NE(Refusal(bytes), "");
}

TEST(PropertyStreamTest, IsRefusedWithAnyBitTurned)
{
    const Bytes whole = EncodePropertyStream(Sample());
    for (std::size_t i = 0; i < whole.size() * 8; ++i)
    {
        Bytes bytes = whole;
        bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] ^ (1U << (i % 8)));
        EXPECT_NE(Refusal(bytes), "") << "bit " << i;
    }
}

TEST(PropertyStreamTest, TellsAnUnknownVersion)
{
    Bytes bytes = EncodePropertyStream(Sample());
    bytes[4] = 2;
    EXPECT_EQ(Refusal(bytes), "the stream has an unknown version");
}

TEST(PropertyStreamTest, TellsAForeignSignature)
{
    Bytes bytes = EncodePropertyStream(Sample());
    bytes[0] = 'X';
    EXPECT_EQ(Refusal(bytes), "the stream has another signature");
    bytes.resize(PropertyStreamHeaderSize);
    EXPECT_EQ(Refusal(bytes), "the stream has another signature") << "with nothing behind it";
}

TEST(PropertyStreamTest, DoesNotTrustAClaimedSize)
{
    Bytes header = EncodePropertyStream(Sample());
    header.resize(PropertyStreamHeaderSize);
    const auto bodySize = [&header](std::uint32_t claimed) {
        for (std::size_t i = 0; i < 4; ++i)
            header[8 + i] = static_cast<std::uint8_t>(claimed >> (8 * i));
        return PropertyStreamBodySize(std::span<const std::uint8_t, PropertyStreamHeaderSize>(header));
    };
    EXPECT_EQ(bodySize(0), 0U);
    EXPECT_EQ(bodySize(64U << 20), 64U << 20);
    EXPECT_THROW(bodySize((64U << 20) + 1), DamagedStream);
    EXPECT_THROW(bodySize(std::numeric_limits<std::uint32_t>::max()), DamagedStream);
}

// A body whose own figures lie, behind a checksum that holds.
struct Lie
{
    const char* What;
    std::size_t Offset; // in the body of one property "n" of type 8 with the value {1, 2}
    std::uint8_t Byte;
};

class LyingBodyTest : public testing::TestWithParam<Lie>
{
};

TEST_P(LyingBodyTest, IsRefused)
{
    PropertyStream stream;
    stream.Properties = {{"n", 8, {1, 2}}};
    Bytes bytes = EncodePropertyStream(stream);
    bytes[PropertyStreamHeaderSize + GetParam().Offset] = GetParam().Byte;
    ResealPropertyStream(bytes);
    EXPECT_NE(Refusal(bytes), "") << GetParam().What;
}

INSTANTIATE_TEST_SUITE_P(Rows, LyingBodyTest,
                         testing::Values(Lie{"no property, though one follows", 8, 0},
                                         Lie{"two properties", 8, 2},
                                         Lie{"four thousand million properties", 11, 0xFF},
                                         Lie{"an endless name", 13, 0xFF}, Lie{"a longer name", 12, 2},
                                         Lie{"a shorter name", 12, 0}, Lie{"a longer value", 17, 3},
                                         Lie{"a shorter value", 17, 1}, Lie{"an endless value", 20, 0xFF}));

TEST(PropertyStreamTest, SurvivesMutationsBehindItsChecksum)
{
    const Bytes whole = EncodePropertyStream(Sample());
    std::mt19937 random(20000);
    int taken = 0;
    for (int round = 0; round < 20000; ++round)
    {
        Bytes bytes = whole;
        const unsigned changes = 1 + random() % 4;
        for (unsigned i = 0; i < changes; ++i)
        {
            const std::size_t offset =
                PropertyStreamHeaderSize + random() % (bytes.size() - PropertyStreamHeaderSize);
            bytes[offset] = static_cast<std::uint8_t>(random());
        }
        ResealPropertyStream(bytes);
        try
        {
            ASSERT_EQ(EncodePropertyStream(DecodePropertyStream(bytes)), bytes) << "round " << round;
            ++taken;
        }
        catch (const DamagedStream&)
        {
        }
    }
    // Changed names, types and values are whole streams still; changed lengths are not.
    EXPECT_GT(taken, 1000);
    EXPECT_LT(taken, 19000);
}

} // namespace

} // namespace kiv::test
