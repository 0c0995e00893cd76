#include "controls/lists/EnumLayout.h"

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
