#include "controls/lists/EnumLayout.h"
#include "runtime/core/Resolution.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(EnumListLayoutTest, CentresTheLabelBesideTheButton)
{
    const EnumListLayout layout = CalcEnumListLayout(1815, 300, 255, 195);
    EXPECT_EQ(layout.MissingWidth, 0);
    EXPECT_EQ(layout.MissingHeight, 0);
    EXPECT_EQ(layout.ButtonLeft, 1560);
    EXPECT_EQ(layout.LabelWidth, 1560);
    EXPECT_EQ(layout.LabelTop, 52.5) << "not a whole number";
    EXPECT_EQ(CalcEnumListLayout(1815, 195, 255, 195).LabelTop, 0);
}

TEST(EnumListLayoutTest, IsNeverLowerThanTheLabelNorNarrowerThanTheButton)
{
    const EnumListLayout low = CalcEnumListLayout(1815, 180, 255, 195);
    EXPECT_EQ(low.MissingHeight, 15);
    EXPECT_EQ(low.MissingWidth, 0);
    const EnumListLayout narrow = CalcEnumListLayout(240, 195, 255, 195);
    EXPECT_EQ(narrow.MissingHeight, 0);
    EXPECT_EQ(narrow.MissingWidth, 15);
    EXPECT_EQ(CalcEnumListLayout(255, 195, 255, 195).MissingWidth, 0);
    const EnumListLayout both = CalcEnumListLayout(0, 0, 255, 195);
    EXPECT_EQ(both.MissingHeight, 195);
    EXPECT_EQ(both.MissingWidth, 255);
}

// A new control's 1815 by 285 twips in a border of two pixels, its button of 255 twips, and a label of a
// line.
struct ScreenRow
{
    int PixelsPerInch;
    int Width; // in pixels, as all that follows
    int Height;
    int Line;
    int ButtonLeft;
    int ButtonWidth;
    int LabelTop;
    int MissingHeight;
};

const ScreenRow ScreenRows[] = {
    {96, 121, 19, 13, 100, 17, 1, 0},  {120, 151, 23, 16, 125, 21, 1, 0}, {144, 181, 28, 20, 151, 25, 2, 0},
    {168, 211, 33, 23, 177, 29, 3, 0}, {192, 242, 38, 26, 204, 34, 4, 0}, {216, 272, 42, 29, 229, 38, 4, 0},
    {240, 302, 47, 33, 255, 42, 5, 0}, {288, 363, 57, 39, 308, 51, 7, 0}, {384, 484, 76, 52, 412, 68, 10, 0},
    {96, 121, 19, 16, 100, 17, 0, 1},  {168, 211, 33, 29, 177, 29, 0, 0}, {168, 211, 33, 31, 177, 29, -1, 2},
    {192, 242, 38, 35, 204, 34, 0, 1}, {216, 272, 42, 38, 229, 38, 0, 0}, {216, 272, 42, 41, 229, 38, -1, 3},
    {384, 484, 76, 73, 412, 68, 0, 1},
};

TEST(EnumListLayoutTest, IsRightAtEveryResolution)
{
    for (const ScreenRow& row : ScreenRows)
    {
        SCOPED_TRACE(std::to_string(row.PixelsPerInch) + ", a line of " + std::to_string(row.Line));
        const Resolution resolution = {row.PixelsPerInch, row.PixelsPerInch};
        const double pixel = resolution.TwipsPerPixelX();
        const EnumListLayout layout =
            CalcEnumListLayout((row.Width - 4) * pixel, (row.Height - 4) * pixel, 255, row.Line * pixel);
        EXPECT_EQ(resolution.PixelsX(layout.ButtonLeft), row.ButtonLeft);
        EXPECT_EQ(resolution.PixelsX(255), row.ButtonWidth);
        EXPECT_EQ(resolution.PixelsX(layout.LabelWidth), row.ButtonLeft);
        EXPECT_EQ(resolution.PixelsY(layout.LabelTop), row.LabelTop);
        EXPECT_EQ(resolution.PixelsY(layout.MissingHeight), row.MissingHeight);
        EXPECT_EQ(layout.MissingHeight > 0, row.MissingHeight > 0);
        EXPECT_EQ(layout.MissingWidth, 0);
    }
}

PickerSizes Sizes(bool frameShown)
{
    return {.Margin = 120,
            .ListTop = 360,
            .ButtonWidth = 1095,
            .ButtonHeight = 375,
            .FrameHeight = 615,
            .FrameShown = frameShown};
}

TEST(PickerLayoutTest, FollowsTheWidth)
{
    const auto columns = CalcPickerColumns(3780, Sizes(true));
    ASSERT_TRUE(columns);
    EXPECT_EQ(columns->ListWidth, 3540);
    EXPECT_EQ(columns->CancelLeft, 2565);
    EXPECT_EQ(columns->OkLeft, 1350);
}

TEST(PickerLayoutTest, FollowsTheHeight)
{
    const auto rows = CalcPickerRows(4080, Sizes(true));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->ButtonTop, 3585);
    EXPECT_EQ(rows->FrameTop, 2850);
    EXPECT_EQ(rows->ListHeight, 2370) << "ends a margin above the frame";
    const auto hidden = CalcPickerRows(4080, Sizes(false));
    ASSERT_TRUE(hidden);
    EXPECT_EQ(hidden->FrameTop, 2850);
    EXPECT_EQ(hidden->ListHeight, 3105) << "ends a margin above the buttons";
}

TEST(PickerLayoutTest, MovesNothingUpToALimit)
{
    EXPECT_FALSE(CalcPickerColumns(3500, Sizes(true)));
    EXPECT_FALSE(CalcPickerColumns(0, Sizes(true)));
    EXPECT_TRUE(CalcPickerColumns(3501, Sizes(true)));
    EXPECT_FALSE(CalcPickerRows(3500, Sizes(true)));
    EXPECT_FALSE(CalcPickerRows(-15, Sizes(true)));
    EXPECT_TRUE(CalcPickerRows(3501, Sizes(true)));
}

TEST(PickerWidthTest, IsWhatTheLongestLineNeeds)
{
    // 120 of frame, two margins, the line and 1350 beside it.
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 5000, 19200), 6710);
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 2190, 19200), 3900);
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 2191, 19200), 3901);
    EXPECT_EQ(PickerWidth(3900, 3780.5, 120, 5000, 19200), 6710) << "6709.5 to the even number";
}

TEST(PickerWidthTest, NeverShrinksAndNeverLeavesTheScreen)
{
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 0, 19200), 3900);
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 32767, 19200), 19200);
    EXPECT_EQ(PickerWidth(3900, 3780, 120, 32767, 3000), 3900);
}

} // namespace

} // namespace kiv::test
