#include "tools/pictures/PictureSheet.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

constexpr Colour Red{255, 0, 0};
constexpr Colour Blue{0, 0, 255};
constexpr Colour Silver{192, 192, 192};

} // namespace

TEST(PictureSheet, EnlargesEachPictureOnItsBackground)
{
    const Picture wide{PictureKind::Icon, 2, 1, Silver, {Red, std::nullopt}};
    const Picture dot{PictureKind::Icon, 1, 1, Blue, {Red}};
    const Picture sheet = MakeSheet({wide, dot});

    // Two cells of 4 by 4 enlarged pixels (the larger picture's two and a margin), 8 apart.
    ASSERT_EQ(sheet.width, 8u + 2 * (32 + 8));
    ASSERT_EQ(sheet.height, 8u + 32 + 8);
    EXPECT_EQ(sheet.At(0, 0), std::nullopt);
    EXPECT_EQ(sheet.At(8, 8), Silver);
    EXPECT_EQ(sheet.At(15, 20), Silver);
    EXPECT_EQ(sheet.At(16, 20), Red);
    EXPECT_EQ(sheet.At(23, 27), Red);
    EXPECT_EQ(sheet.At(24, 20), Silver);
    EXPECT_EQ(sheet.At(16, 19), Silver);
    EXPECT_EQ(sheet.At(40, 20), std::nullopt);
    EXPECT_EQ(sheet.At(48, 8), Blue);
    EXPECT_EQ(sheet.At(60, 20), Red);
    EXPECT_EQ(sheet.At(68, 20), Blue);
}

TEST(PictureSheet, StartsANewRowAfterSix)
{
    const Picture dot{PictureKind::Icon, 1, 1, Blue, {Red}};
    const Picture sheet = MakeSheet(std::vector<Picture>(7, dot));
    EXPECT_EQ(sheet.width, 8u + 6 * (24 + 8));
    EXPECT_EQ(sheet.height, 8u + 2 * (24 + 8));
    EXPECT_EQ(sheet.At(8, 40), Blue);
    EXPECT_EQ(sheet.At(40, 40), std::nullopt);
}

TEST(PictureSheet, NeedsAPicture)
{
    EXPECT_THROW(MakeSheet({}), std::invalid_argument);
}

} // namespace kiv::test
