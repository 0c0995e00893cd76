#include "runtime/core/Resolution.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kiv::test
{

namespace
{

// Of screens at 100 to 400 %.
constexpr int PixelsPerInch[] = {96, 120, 144, 168, 192, 216, 240, 288, 384};

struct LengthRow
{
    double Twips;
    int Pixels[9]; // in the order above
};

const LengthRow LengthRows[] = {
    {0, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
    {1440, {96, 120, 144, 168, 192, 216, 240, 288, 384}},
    {255, {17, 21, 25, 29, 34, 38, 42, 51, 68}},
    {285, {19, 23, 28, 33, 38, 42, 47, 57, 76}},
    {-255, {-17, -21, -25, -29, -34, -38, -42, -51, -68}},
    // What is left over is dropped, a twip before the next pixel as well.
    {14, {0, 1, 1, 1, 1, 2, 2, 2, 3}},
    {-14, {0, -1, -1, -1, -1, -2, -2, -2, -3}},
    {1439, {95, 119, 143, 167, 191, 215, 239, 287, 383}},
    // Rounded to whole twips, half to the even one, where a pixel is made of such; else taken as it is.
    {59.5, {4, 5, 6, 6, 7, 8, 10, 12, 15}},
    {59.75, {4, 5, 6, 6, 7, 8, 10, 12, 15}},
    {60.25, {4, 5, 6, 7, 8, 9, 10, 12, 16}},
    {58.5, {3, 4, 5, 6, 7, 8, 9, 11, 15}},
};

TEST(ResolutionTest, CountsTheWholePixelsOfALength)
{
    for (const LengthRow& row : LengthRows)
    {
        for (std::size_t at = 0; at < std::size(PixelsPerInch); ++at)
        {
            const Resolution resolution = {PixelsPerInch[at], PixelsPerInch[at]};
            EXPECT_EQ(resolution.PixelsX(row.Twips), row.Pixels[at])
                << row.Twips << " twips at " << PixelsPerInch[at];
            EXPECT_EQ(resolution.PixelsY(row.Twips), row.Pixels[at])
                << row.Twips << " twips at " << PixelsPerInch[at];
        }
    }
}

TEST(ResolutionTest, TwipsOfAPixel)
{
    const double twips[] = {15, 12, 10, 1440.0 / 168, 7.5, 1440.0 / 216, 6, 5, 3.75};
    for (std::size_t at = 0; at < std::size(PixelsPerInch); ++at)
    {
        EXPECT_EQ((Resolution{PixelsPerInch[at], 96}.TwipsPerPixelX()), twips[at]);
        EXPECT_EQ((Resolution{96, PixelsPerInch[at]}.TwipsPerPixelY()), twips[at]);
    }
}

TEST(ResolutionTest, EachDirectionHasItsOwn)
{
    const Resolution resolution = {120, 144};
    EXPECT_EQ(resolution.PixelsX(1440), 120);
    EXPECT_EQ(resolution.PixelsY(1440), 144);
}

// However they are added up, what was counted in pixels is as many pixels.
TEST(ResolutionTest, PixelsSurviveTheWayThroughTwips)
{
    for (const int perInch : PixelsPerInch)
    {
        const Resolution resolution = {perInch, perInch};
        const double pixel = resolution.TwipsPerPixelX();
        double sum = 0;
        for (int pixels = 0; pixels <= 4000; ++pixels, sum += pixel)
        {
            ASSERT_EQ(resolution.PixelsX(pixels * pixel), pixels) << perInch;
            ASSERT_EQ(resolution.PixelsX(-pixels * pixel), -pixels) << perInch;
            ASSERT_EQ(resolution.PixelsX(sum), pixels) << perInch;
            ASSERT_EQ(resolution.PixelsX(6000 * pixel - (6000 - pixels) * pixel), pixels) << perInch;
        }
    }
}

// Nothing of a length is lost: less than a pixel, and half a twip where it is rounded to whole ones.
TEST(ResolutionTest, LosesLessThanAPixelOfAnyLength)
{
    for (const int perInch : PixelsPerInch)
    {
        const Resolution resolution = {perInch, perInch};
        for (int twips = 0; twips <= 20000; twips += 7)
        {
            const double exact = static_cast<double>(twips) * perInch / 1440;
            ASSERT_LE(resolution.PixelsX(twips), exact + 0.001) << twips << " at " << perInch;
            ASSERT_GT(resolution.PixelsX(twips), exact - 1) << twips << " at " << perInch;
        }
    }
}

struct ScaleRow
{
    int PixelsPerInch;
    int Percent;
};

const ScaleRow ScaleRows[] = {
    {72, 100},  {96, 100},  {119, 100}, {120, 125}, {143, 125}, {144, 150}, {168, 150}, {191, 150},
    {192, 200}, {216, 200}, {240, 200}, {287, 200}, {288, 300}, {383, 300}, {384, 400}, {600, 400},
};

TEST(PictureScaleTest, IsTheLargestThatThereIsRoomFor)
{
    for (const ScaleRow& row : ScaleRows)
    {
        const int perInch = row.PixelsPerInch;
        EXPECT_EQ(PictureScaleAt({perInch, perInch}).Percent, row.Percent) << perInch;
        EXPECT_EQ(PictureScaleAt({perInch, 1000}).Percent, row.Percent) << perInch;
        EXPECT_EQ(PictureScaleAt({1000, perInch}).Percent, row.Percent) << perInch;
    }
}

struct GrownRow
{
    int Length;
    int Lengths[6]; // at 100, 125, 150, 200, 300 and 400 %
};

const GrownRow GrownRows[] = {
    {0, {0, 0, 0, 0, 0, 0}},        {1, {1, 1, 2, 2, 3, 4}},        {2, {2, 3, 3, 4, 6, 8}},
    {4, {4, 5, 6, 8, 12, 16}},      {14, {14, 18, 21, 28, 42, 56}}, {18, {18, 23, 27, 36, 54, 72}},
    {23, {23, 29, 35, 46, 69, 92}},
};

TEST(PictureScaleTest, LengthsGrowToTheNearestPixel)
{
    for (const GrownRow& row : GrownRows)
    {
        std::size_t at = 0;
        for (const int percent : {100, 125, 150, 200, 300, 400})
            EXPECT_EQ(PictureScale{percent}.Of(row.Length), row.Lengths[at++]) << percent;
    }
}

} // namespace

} // namespace kiv::test
