// The library's pictures in all sizes: what their drawings make is the picture itself, and keeps to the same
// rules.

#include "controls/choice/PicCommandRules.h"
#include "controls/lists/ChkComboRules.h"
#include "tests/pictures/StatusSign.h"
#include "tests/pictures/TextPicture.h"
#include "tools/pictures/Drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kiv::test
{

using pictures::Colour;
using pictures::Picture;
using pictures::Pixel;

namespace
{

constexpr Colour Black{0, 0, 0};
constexpr Colour White{255, 255, 255};

const std::vector<std::string> Marks{"checkmark",      "partial",    "chkcmb_chk",
                                     "chkcmb_chk_sel", "chkcmb_par", "chkcmb_par_sel"};
const std::vector<std::string> Signs{"plus", "minus", "note", "graph", "weblink"};
const std::vector<std::string> Options{"ynclear", "ynset", "ynmask"};

std::vector<std::string> All()
{
    std::vector<std::string> all = Marks;
    all.insert(all.end(), Signs.begin(), Signs.end());
    all.insert(all.end(), Options.begin(), Options.end());
    return all;
}

Picture InSize(const std::string& name, std::size_t percent)
{
    return ReadDrawnPicture(KIV_PICTURES_DIR, name, percent);
}

// How many of the pixels are the same, from none (0) to all (1).
double Share(const Picture& one, const Picture& other)
{
    std::size_t same = 0;
    for (std::size_t i = 0; i < one.pixels.size(); ++i)
        same += one.pixels[i] == other.pixels[i] ? 1 : 0;
    return static_cast<double>(same) / static_cast<double>(one.pixels.size());
}

// Marks and option images are the very ones; what the other icons show is as hand and eye have it.
TEST(GrownPictures, AreThePicturesInTheirFirstSize)
{
    for (const std::string& name : All())
    {
        const Picture first = ReadTextPicture(KIV_PICTURES_DIR, name);
        const Picture drawn = InSize(name, 100);
        ASSERT_EQ(drawn.pixels.size(), first.pixels.size()) << name;
        const bool isExact = std::ranges::count(Signs, name) == 0;
        EXPECT_GE(Share(drawn, first), isExact ? 1.0 : 0.85) << name;
    }
}

// In each size a picture is the same one: enlarged without any drawing it would look much like it.
TEST(GrownPictures, AreAlikeInAllSizes)
{
    for (const std::string& name : All())
    {
        const Picture first = ReadTextPicture(KIV_PICTURES_DIR, name);
        for (const std::size_t percent : pictures::GrownPercents)
        {
            const Picture drawn = InSize(name, percent);
            EXPECT_EQ(drawn.width, pictures::Grown(first.width, percent)) << name;
            EXPECT_EQ(drawn.height, pictures::Grown(first.height, percent)) << name;
            std::size_t same = 0;
            for (std::size_t y = 0; y < drawn.height; ++y)
            {
                for (std::size_t x = 0; x < drawn.width; ++x)
                    same += drawn.At(x, y) ==
                                    first.At(x * first.width / drawn.width, y * first.height / drawn.height)
                                ? 1
                                : 0;
            }
            EXPECT_GE(static_cast<double>(same) / static_cast<double>(drawn.pixels.size()), 0.6)
                << name << " at " << percent;
        }
    }
}

TEST(GrownPictures, OfButtonsReachAllFourEdges)
{
    for (const std::string& name : Signs)
    {
        for (const std::size_t percent : pictures::GrownPercents)
        {
            const Picture picture = InSize(name, percent);
            const Extent reach = ExtentOf(SignIn(picture).Drawn());
            // A round edge keeps off it by less than a pixel.
            EXPECT_LE(reach.Left, 1) << name << " at " << percent;
            EXPECT_LE(reach.Top, 1) << name << " at " << percent;
            EXPECT_GE(reach.Right, static_cast<int>(picture.width) - 1) << name << " at " << percent;
            EXPECT_GE(reach.Bottom, static_cast<int>(picture.height) - 1) << name << " at " << percent;
        }
    }
}

// Each mark is one stroke in one colour within a rim in one other, which is round all of it where there is
// room.
TEST(GrownPictures, OfMarksHaveARim)
{
    for (const std::string& name : Marks)
    {
        const bool onButton = name == "checkmark" || name == "partial";
        for (const std::size_t percent : pictures::GrownPercents)
        {
            const Picture picture = InSize(name, percent);
            const StatusSign sign = SignIn(picture);
            ASSERT_EQ(sign.RimColours.size(), 1u) << name << " at " << percent;
            const Dots drawn = sign.Drawn();
            const int width = static_cast<int>(picture.width);
            const int height = static_cast<int>(picture.height);
            // On a button the caption may begin two of fifteen columns before the right end.
            const int right = onButton ? ExtentOf(drawn).Right : width;
            for (const Dot dot : sign.Stroke)
            {
                for (const Dot next : {Dot{dot.X - 1, dot.Y}, Dot{dot.X + 1, dot.Y}, Dot{dot.X, dot.Y - 1},
                                       Dot{dot.X, dot.Y + 1}})
                {
                    if (next.X >= 0 && next.X < right && next.Y >= 0 && next.Y < height)
                    {
                        EXPECT_TRUE(drawn.contains(next))
                            << name << " at " << percent << ": " << next.X << ", " << next.Y;
                    }
                }
            }
        }
    }
}

TEST(GrownPictures, OfMarksAreToldApartByTheirShapeAlone)
{
    for (const std::size_t percent : pictures::GrownPercents)
    {
        for (std::size_t pair = 0; pair < 3; ++pair)
        {
            const char* const complete[] = {"checkmark", "chkcmb_chk", "chkcmb_chk_sel"};
            const char* const partial[] = {"partial", "chkcmb_par", "chkcmb_par_sel"};
            const StatusSign one = SignIn(InSize(complete[pair], percent));
            const StatusSign other = SignIn(InSize(partial[pair], percent));
            EXPECT_LE(Likeness(one.Stroke, other.Stroke), 0.5) << percent;
            EXPECT_LE(Likeness(one.Drawn(), other.Drawn()), 0.75) << percent;
        }
    }
}

// From 21 pixels of the first size on; pressed or not.
TEST(GrownPictures, OfMarksKeepOffAButtonsFocusRectangleAndCaption)
{
    for (const std::size_t percent : pictures::GrownPercents)
    {
        const PictureScale scale = {static_cast<int>(percent)};
        for (const long status : {1L, 2L})
        {
            const Dots drawn = SignIn(InSize(status == 1 ? "partial" : "checkmark", percent)).Drawn();
            for (const int shift : {0, scale.Of(1)})
            {
                const int width = scale.Of(120);
                const int height = scale.Of(21);
                const ButtonLayout layout = ButtonLayoutOf({shift, shift, width + shift, height + shift},
                                                           ButtonPictureOf(0, status, scale), 0, 0, scale);
                const Extent on = ExtentOf(Moved(drawn, layout.Icon.X, layout.Icon.Y));
                SCOPED_TRACE(std::to_string(percent) + " %, status " + std::to_string(status));
                EXPECT_GT(on.Left, scale.Of(4));
                EXPECT_GT(on.Top, scale.Of(4));
                EXPECT_LT(on.Bottom, height - scale.Of(4));
                EXPECT_LE(on.Right, layout.Caption.Left);
            }
        }
    }
}

TEST(GrownPictures, OfListsLeaveRoomBeforeTheText)
{
    for (const char* name : {"chkcmb_chk", "chkcmb_chk_sel", "chkcmb_par", "chkcmb_par_sel"})
    {
        for (const std::size_t percent : pictures::GrownPercents)
        {
            const PictureScale scale = {static_cast<int>(percent)};
            const Extent on = ExtentOf(SignIn(InSize(name, percent)).Drawn());
            EXPECT_LT(on.Right, ItemTextLeft(0, ItemIcon::Complete, scale)) << name << " at " << percent;
            EXPECT_GT(on.Left, 0) << name << " at " << percent;
        }
    }
}

TEST(GrownPictures, OfOptionsMeetTheirMask)
{
    for (const std::size_t percent : pictures::GrownPercents)
    {
        const Picture mask = InSize("ynmask", percent);
        const Picture set = InSize("ynset", percent);
        const Picture clear = InSize("ynclear", percent);
        for (std::size_t i = 0; i < mask.pixels.size(); ++i)
        {
            ASSERT_TRUE(mask.pixels[i] == Black || mask.pixels[i] == White);
            if (mask.pixels[i] == White)
            {
                EXPECT_EQ(set.pixels[i], Black) << percent;
                EXPECT_EQ(clear.pixels[i], Black) << percent;
            }
            if (set.pixels[i] != clear.pixels[i])
            {
                EXPECT_EQ(set.pixels[i], Black) << percent;
                EXPECT_EQ(clear.pixels[i], White) << percent;
            }
        }
        EXPECT_FALSE(set.pixels == clear.pixels) << percent;
        // As round to the left as to the right, upwards as downwards.
        for (std::size_t y = 0; y < mask.height; ++y)
        {
            for (std::size_t x = 0; x < mask.width; ++x)
            {
                EXPECT_EQ(mask.At(x, y), mask.At(mask.width - 1 - x, y)) << percent;
                EXPECT_EQ(mask.At(x, y), mask.At(x, mask.height - 1 - y)) << percent;
                EXPECT_EQ(mask.At(x, y), mask.At(y, x)) << percent;
            }
        }
    }
}

} // namespace

} // namespace kiv::test
