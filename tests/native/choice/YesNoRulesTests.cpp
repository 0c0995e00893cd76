#include "controls/choice/YesNoRules.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kiv
{

std::ostream& operator<<(std::ostream& out, const YesNoLayout& layout)
{
    return out << "Yes up to " << layout.YesRight << ", No from " << layout.NoLeft;
}

namespace
{

// Widths in twips.
struct LayoutRow
{
    double ScaleWidth;
    double YesWidth;
    double NoWidth;
    double TwipsPerPixel;
    YesNoLayout Layout;
};

const LayoutRow LayoutRows[] = {
    {1800, 270, 210, 15, {38, 87}},
    // Whole pixels only: what is left over is dropped, from the difference as from a width.
    {1800, 284, 210, 15, {38, 87}},
    {1800, 285, 211, 15, {39, 86}},
    {1814, 270, 210, 15, {38, 87}},
    {1815, 270, 210, 15, {38, 88}},
    // Operands are rounded to whole twips first, halves to the even one.
    {1800, 284.5, 210, 15, {38, 87}},
    {1800, 285.5, 210, 15, {39, 87}},
    // Other resolutions.
    {1800, 270, 210, 12, {42, 113}},
    {1800, 270, 210, 10, {47, 140}},
    {1800, 1440.0 / 168 * 32, 1440.0 / 168 * 25, 1440.0 / 168, {52, 166}},
    {1800, 270, 210, 7.5, {56, 193}},
    {1800, 1440.0 / 216 * 41, 1440.0 / 216 * 32, 1440.0 / 216, {61, 219}},
    {1800, 270, 210, 6, {65, 246}},
    {1800, 270, 210, 5, {74, 299}},
    {1800, 270, 210, 3.75, {92, 405}},
    // Narrower than both captions: the regions overlap.
    {600, 270, 210, 15, {38, 7}},
    // Narrower than No itself: the division truncates toward zero.
    {0, 270, 210, 15, {38, -33}},
    {200, 270, 210, 15, {38, -19}},
    {195, 270, 211, 15, {38, -20}},
};

TEST(YesNoRulesTest, LaysOutBothRegions)
{
    for (const LayoutRow& row : LayoutRows)
    {
        EXPECT_EQ(CalcYesNoLayout(row.ScaleWidth, row.YesWidth, row.NoWidth, row.TwipsPerPixel), row.Layout)
            << "width " << row.ScaleWidth << ", captions " << row.YesWidth << " and " << row.NoWidth;
    }
}

struct ScaledRow
{
    int PixelsPerInch;
    int Percent;
    YesNoLayout Layout; // of 1800 twips, captions of 270 and 210
    int Top;            // of the images on 300 twips
};

const ScaledRow ScaledRows[] = {
    {96, 100, {38, 87}, 3},    {120, 125, {47, 108}, 3},  {144, 150, {57, 130}, 4},
    {168, 150, {61, 156}, 7},  {192, 200, {76, 174}, 6},  {216, 200, {80, 200}, 8},
    {240, 200, {85, 227}, 11}, {288, 300, {114, 261}, 9}, {384, 400, {152, 348}, 12},
};

TEST(YesNoRulesTest, LeavesRoomForTheImagesOfEveryResolution)
{
    for (const ScaledRow& row : ScaledRows)
    {
        const Resolution resolution = {row.PixelsPerInch, row.PixelsPerInch};
        const double twips = resolution.TwipsPerPixelX();
        const PictureScale scale = PictureScaleAt(resolution);
        EXPECT_EQ(scale.Percent, row.Percent);
        EXPECT_EQ(CalcYesNoLayout(1800, 270, 210, twips, scale), row.Layout) << row.PixelsPerInch;
        EXPECT_EQ(OptionImageTop(300, twips, scale), row.Top) << row.PixelsPerInch;
    }
}

struct TopRow
{
    double ScaleHeight;
    double TwipsPerPixel;
    int Top;
};

const TopRow TopRows[] = {
    {0, 15, -7},
    {15, 15, -6},
    {75, 15, -4},
    {180, 15, -1},
    {195, 15, 0},
    {210, 15, 0},
    {225, 15, 0},
    {240, 15, 1},
    {255, 15, 1},
    {300, 15, 3},
    {315, 15, 3},
    {495, 15, 9},
    // Pixels are rounded before they are halved: 15.6 counts as 16.
    {234, 15, 1},
    {232, 15, 0},
    // Halves go to the even pixel: 15.5 - 14 is 2, 16.5 - 14 is 2.
    {232.5, 15, 1},
    {247.5, 15, 1},
    {240, 12, 3},
    // 300 twips, as high as a new control, from 120 pixels to the inch to 384.
    {300, 12, 5},
    {300, 10, 8},
    {300, 1440.0 / 168, 10},
    {300, 7.5, 13},
    {300, 1440.0 / 216, 15},
    {300, 6, 18},
    {300, 5, 23},
    {300, 3.75, 33},
};

TEST(YesNoRulesTest, CentresTheOptionImages)
{
    for (const TopRow& row : TopRows)
    {
        EXPECT_EQ(OptionImageTop(row.ScaleHeight, row.TwipsPerPixel), row.Top)
            << row.ScaleHeight << " twips at " << row.TwipsPerPixel;
    }
}

struct PlaceRow
{
    YesNoLayout Layout;
    double X;
    long Option;
};

constexpr YesNoLayout Wide = {38, 87};
constexpr YesNoLayout Narrow = {38, 7};

const PlaceRow PlaceRows[] = {
    {Wide, 0, 1},
    {Wide, 38 * 15, 1},
    {Wide, 38 * 15 + 14, 1},
    {Wide, 39 * 15, 0},
    {Wide, 86 * 15 + 14, 0},
    {Wide, 87 * 15, 2},
    {Wide, 200 * 15, 2},
    {Wide, -15, 1},
    // Rounded to a whole twip first.
    {Wide, 39 * 15 - 0.6, 1},
    {Wide, 39 * 15 - 0.4, 0},
    {Narrow, 0, 1},
    {Narrow, 7 * 15, 1},
    {Narrow, 38 * 15, 1},
    {Narrow, 39 * 15, 2},
};

TEST(YesNoRulesTest, FindsTheOptionAtAPlace)
{
    for (const PlaceRow& row : PlaceRows)
        EXPECT_EQ(OptionAt(row.Layout, row.X, 15), row.Option) << row.X << ", " << row.Layout;
}

TEST(YesNoRulesTest, TakesFourCharactersForEachOption)
{
    for (int code = 0; code < 256; ++code)
    {
        const bool isYes = code == 'Y' || code == 'y' || code == 217 || code == 249;
        const bool isNo = code == 'N' || code == 'n' || code == 206 || code == 238;
        EXPECT_EQ(OptionOfCharacter(static_cast<short>(code)), isYes ? 1 : isNo ? 2 : 0) << code;
    }
}

struct ToggleRow
{
    long Answer;
    long Option;
    long After;
};

const ToggleRow ToggleRows[] = {{0, 1, 1}, {0, 2, 2}, {1, 1, 0},  {1, 2, 2}, {2, 1, 1},
                                {2, 2, 0}, {5, 1, 1}, {-1, 2, 2}, {5, 5, 0}};

TEST(YesNoRulesTest, ClearsTheSelectedOptionAndSelectsAnother)
{
    for (const ToggleRow& row : ToggleRows)
        EXPECT_EQ(Toggled(row.Answer, row.Option), row.After) << row.Option << " chosen at " << row.Answer;
}

} // namespace

} // namespace kiv
