#include "runtime/core/Units.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

struct Rounding
{
    double Number;
    std::int32_t Rounded;
};

class RoundHalfEvenTest : public testing::TestWithParam<Rounding>
{
};

TEST_P(RoundHalfEvenTest, TakesHalvesToTheEvenNeighbour)
{
    EXPECT_EQ(RoundHalfEven(GetParam().Number), GetParam().Rounded);
}

INSTANTIATE_TEST_SUITE_P(Rows, RoundHalfEvenTest,
                         testing::Values(Rounding{0.0, 0}, Rounding{0.49, 0}, Rounding{0.5, 0},
                                         Rounding{0.51, 1}, Rounding{1.5, 2}, Rounding{2.5, 2},
                                         Rounding{3.5, 4}, Rounding{-0.5, 0}, Rounding{-0.51, -1},
                                         Rounding{-1.5, -2}, Rounding{-2.5, -2}, Rounding{-2.6, -3},
                                         Rounding{2147483647.0, 2147483647},
                                         Rounding{-2147483647.0, -2147483647}));

struct Twips
{
    double Length;
    double PerPixel;
    std::int32_t Pixels;
};

class TwipsToPixelsTest : public testing::TestWithParam<Twips>
{
};

TEST_P(TwipsToPixelsTest, TruncatesTheQuotient)
{
    EXPECT_EQ(TwipsToPixels(GetParam().Length, GetParam().PerPixel), GetParam().Pixels);
}

INSTANTIATE_TEST_SUITE_P(Rows, TwipsToPixelsTest,
                         testing::Values(Twips{0, 15, 0}, Twips{14, 15, 0}, Twips{15, 15, 1},
                                         Twips{29, 15, 1},
                                         // The length rounds to 15 before it is divided, 14.5 to 14.
                                         Twips{14.6, 15, 1}, Twips{14.5, 15, 0}, Twips{15.5, 15, 1},
                                         // Toward zero on the negative side too.
                                         Twips{-14, 15, 0}, Twips{-15, 15, -1}, Twips{-29, 15, -1},
                                         // Fonts of 125 % and 150 %: 12 and 10 twips to the pixel.
                                         Twips{1440, 12, 120}, Twips{1439, 12, 119}, Twips{1440, 10, 144},
                                         // Where a pixel has no whole number of twips, nothing is rounded.
                                         Twips{30, 14.6, 2}, Twips{29, 14.5, 2}, Twips{29.1, 14.6, 1},
                                         Twips{14.6, 14.6, 1}, Twips{14.5, 14.6, 0}, Twips{1800, 7.5, 240},
                                         Twips{7, 7.5, 0}, Twips{-8, 7.5, -1}, Twips{7.499, 7.5, 1},
                                         Twips{7.49, 7.5, 0}, Twips{-7.499, 7.5, -1}, Twips{-7.49, 7.5, 0}));

struct Lengths
{
    std::int32_t Himetric;
    int PixelsPerInch;
    std::int32_t Pixels;
};

class HimetricToPixelsTest : public testing::TestWithParam<Lengths>
{
};

TEST_P(HimetricToPixelsTest, RoundsToTheNearestPixel)
{
    EXPECT_EQ(HimetricToPixels(GetParam().Himetric, GetParam().PixelsPerInch), GetParam().Pixels);
}

INSTANTIATE_TEST_SUITE_P(Rows, HimetricToPixelsTest,
                         testing::Values(Lengths{0, 96, 0}, Lengths{2540, 96, 96}, Lengths{-2540, 96, -96},
                                         Lengths{26, 96, 1}, Lengths{13, 96, 0}, Lengths{14, 96, 1},
                                         Lengths{2540, 120, 120}, Lengths{1000, 144, 57},
                                         // Nothing that a host can ask for overflows.
                                         Lengths{std::numeric_limits<std::int32_t>::max(), 96, 81164736},
                                         Lengths{std::numeric_limits<std::int32_t>::max(), 4800,
                                                 std::numeric_limits<std::int32_t>::max()}));

class PixelsToHimetricTest : public testing::TestWithParam<Lengths>
{
};

TEST_P(PixelsToHimetricTest, RoundsToTheNearestHundredthOfAMillimetre)
{
    EXPECT_EQ(PixelsToHimetric(GetParam().Pixels, GetParam().PixelsPerInch), GetParam().Himetric);
}

INSTANTIATE_TEST_SUITE_P(Rows, PixelsToHimetricTest,
                         testing::Values(Lengths{0, 96, 0}, Lengths{2540, 96, 96}, Lengths{26, 96, 1},
                                         Lengths{-26, 96, -1}, Lengths{1005, 96, 38}, Lengths{21, 120, 1},
                                         // Held inside 32 bits.
                                         Lengths{std::numeric_limits<std::int32_t>::max(), 96,
                                                 std::numeric_limits<std::int32_t>::max()},
                                         Lengths{std::numeric_limits<std::int32_t>::min(), 96,
                                                 std::numeric_limits<std::int32_t>::min()}));

TEST(UnitsTest, PixelsSurviveTheWayThroughHimetric)
{
    for (const int pixelsPerInch : {72, 96, 120, 144, 192})
    {
        for (std::int32_t pixels = -2000; pixels <= 2000; ++pixels)
            ASSERT_EQ(HimetricToPixels(PixelsToHimetric(pixels, pixelsPerInch), pixelsPerInch), pixels);
    }
}

} // namespace

} // namespace kiv::test
