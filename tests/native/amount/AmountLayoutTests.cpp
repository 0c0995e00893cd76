#include "controls/amount/AmountLayout.h"
#include "runtime/core/Resolution.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

// 100 by 25 pixels of 15 twips, in a border of two pixels, around a box of 17 pixels and a label of 13.
constexpr AmountSizes Roomy = {1500, 375, 435, 255, 195, 15, 15};

TEST(AmountLayoutTest, CentresTheLabelOfACurrencyBoxByTheBox)
{
    const AmountLayout layout = CalcCurrencyLayout(Roomy);
    EXPECT_EQ(layout.Label, (AmountPlace{30, 60, 1440}));
    EXPECT_EQ(layout.Box, (AmountPlace{15, 10000, 1470}));
    EXPECT_EQ(layout.Height, std::nullopt);
}

TEST(AmountLayoutTest, CentresTheLabelOfAPercentBoxByItself)
{
    const AmountLayout layout = CalcPercentLayout(Roomy);
    EXPECT_EQ(layout.Label, (AmountPlace{30, 90, 1440}));
    EXPECT_EQ(layout.Box, (AmountPlace{15, 10000, 1470}));
    EXPECT_EQ(layout.Height, std::nullopt);
}

TEST(AmountLayoutTest, CentresToHalfATwip)
{
    EXPECT_EQ(CentredTop(376, 255), 60.5);
    EXPECT_EQ(CentredTop(255, 376), -60.5);
}

TEST(AmountLayoutTest, GrowsToTheBoxItsBorderAndAPixelAboveAndBelow)
{
    AmountSizes sizes = Roomy;
    sizes.BoxHeight = 345;
    EXPECT_EQ(CalcCurrencyLayout(sizes).Height, std::nullopt);
    sizes.BoxHeight = 360;
    EXPECT_EQ(CalcCurrencyLayout(sizes).Height, 360 + 60 + 30);
    EXPECT_EQ(CalcPercentLayout(sizes).Height, 360 + 60 + 30);
    // The label's top follows from the height before it grew.
    EXPECT_EQ(CalcCurrencyLayout(sizes).Label.Top, 7.5);
}

TEST(AmountLayoutTest, ComparesInSinglePrecision)
{
    AmountSizes sizes = Roomy;
    // Too little for a single to show.
    sizes.BoxHeight = 345.000001;
    EXPECT_EQ(CalcCurrencyLayout(sizes).Height, std::nullopt);
    sizes.BoxHeight = 345.001;
    EXPECT_TRUE(CalcCurrencyLayout(sizes).Height);
}

TEST(AmountLayoutTest, TakesPixelsThatAreNotSquare)
{
    AmountSizes sizes = Roomy;
    sizes.TwipsPerPixelX = 12;
    sizes.TwipsPerPixelY = 10;
    sizes.ScaleHeight = 274;
    const AmountLayout layout = CalcCurrencyLayout(sizes);
    EXPECT_EQ(layout.Label, (AmountPlace{24, 9.5, 1452}));
    EXPECT_EQ(layout.Box, (AmountPlace{12, 10000, 1476}));
    EXPECT_EQ(layout.Height, 255 + (435 - 274) + 20);
}

// A new control's 1440 by 285 twips at 100 to 400 %, in a border of two pixels, with a font whose line takes
// a sixth of an inch at each.
struct ScreenRow
{
    int PixelsPerInch;
    int Height; // of the control, all in pixels from here on
    int Line;
    int LabelTop;
    int LabelWidth;
    int BoxWidth;
    int Grown; // 0 where the control is high enough
};

const ScreenRow ScreenRows[] = {
    {96, 19, 13, 1, 88, 90, 0},     {120, 23, 16, 1, 112, 114, 0}, {144, 28, 20, 2, 136, 138, 0},
    {168, 33, 23, 3, 160, 162, 0},  {192, 38, 26, 4, 184, 186, 0}, {216, 42, 36, 1, 208, 210, 0},
    {216, 42, 37, 0, 208, 210, 43}, {240, 47, 41, 1, 232, 234, 0}, {288, 57, 51, 1, 280, 282, 0},
    {384, 76, 70, 1, 376, 378, 0},  {96, 19, 14, 0, 88, 90, 20},   {168, 33, 27, 1, 160, 162, 0},
    {168, 33, 28, 0, 160, 162, 34}, {192, 38, 32, 1, 184, 186, 0}, {192, 38, 33, 0, 184, 186, 39},
    {384, 76, 71, 0, 376, 378, 77},
};

TEST(AmountLayoutTest, IsRightAtEveryResolution)
{
    for (const ScreenRow& row : ScreenRows)
    {
        SCOPED_TRACE(std::to_string(row.PixelsPerInch) + ", a line of " + std::to_string(row.Line));
        const Resolution resolution = {row.PixelsPerInch, row.PixelsPerInch};
        const double pixel = resolution.TwipsPerPixelX();
        const AmountSizes sizes = {(row.PixelsPerInch - 4) * pixel,
                                   (row.Height - 4) * pixel,
                                   row.Height * pixel,
                                   row.Line * pixel,
                                   row.Line * pixel,
                                   pixel,
                                   pixel};
        for (const AmountLayout& layout : {CalcCurrencyLayout(sizes), CalcPercentLayout(sizes)})
        {
            EXPECT_EQ(resolution.PixelsX(layout.Label.Left), 2);
            EXPECT_EQ(resolution.PixelsY(layout.Label.Top), row.LabelTop);
            EXPECT_EQ(resolution.PixelsX(layout.Label.Width), row.LabelWidth);
            EXPECT_EQ(resolution.PixelsX(layout.Box.Left), 1);
            EXPECT_EQ(resolution.PixelsX(layout.Box.Width), row.BoxWidth);
            EXPECT_EQ(resolution.PixelsY(layout.Height.value_or(0)), row.Grown);
        }
    }
}

} // namespace

} // namespace kiv::test
