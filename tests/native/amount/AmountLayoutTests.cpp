#include "controls/amount/AmountLayout.h"

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

} // namespace

} // namespace kiv::test
