// The marks of how complete something is: one family of two signs, each in a picture for buttons, for items
// of a list and for the list's selected item. All is measured in the pictures' own text.

#include "controls/choice/PicCommandRules.h"
#include "controls/lists/ChkComboRules.h"
#include "tests/pictures/StatusSign.h"
#include "tests/pictures/TextPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace kiv::test
{

using pictures::Colour;
using pictures::Picture;

std::ostream& operator<<(std::ostream& out, const Dot& dot)
{
    return out << dot.X << ", " << dot.Y;
}

std::ostream& operator<<(std::ostream& out, const Extent& extent)
{
    return out << extent.Left << ", " << extent.Top << " to " << extent.Right << ", " << extent.Bottom;
}

namespace
{

Picture PictureNamed(const std::string& name)
{
    return ReadTextPicture(KIV_PICTURES_DIR, name);
}

StatusSign SignNamed(const std::string& name)
{
    return SignIn(PictureNamed(name));
}

const std::vector<std::string> CompleteSigns{"checkmark", "chkcmb_chk", "chkcmb_chk_sel"};
const std::vector<std::string> PartialSigns{"partial", "chkcmb_par", "chkcmb_par_sel"};
const std::vector<std::string> ButtonSigns{"checkmark", "partial"};
const std::vector<std::string> ListSigns{"chkcmb_chk", "chkcmb_chk_sel", "chkcmb_par", "chkcmb_par_sel"};

std::vector<std::string> AllSigns()
{
    std::vector<std::string> all = CompleteSigns;
    all.insert(all.end(), PartialSigns.begin(), PartialSigns.end());
    return all;
}

// The stroke's shape, whatever the place in its picture.
Dots ShapeOf(const StatusSign& sign)
{
    const Extent extent = ExtentOf(sign.Stroke);
    return Moved(sign.Stroke, -extent.Left, -extent.Top);
}

TEST(StatusSigns, AreReadableOnEveryFaceAndOnTheWindow)
{
    constexpr Colour white{255, 255, 255};
    constexpr Colour faces[] = {{192, 192, 192}, {212, 208, 200}, {240, 240, 240}, {245, 245, 245}, white};
    for (const char* name : {"checkmark", "partial", "chkcmb_chk", "chkcmb_par"})
    {
        for (const Colour face : faces)
            EXPECT_GE(Contrast(SignNamed(name).StrokeColour, face), ReadableContrast)
                << name << " on " << int{face.red} << ", " << int{face.green} << ", " << int{face.blue};
    }
}

// None of the 16 colours is far enough from every highlight that is in use, but one of two can be: where the
// stroke does not stand out, its rim does.
TEST(StatusSigns, AreReadableOnAHighlightOfAnyColour)
{
    for (const char* name : {"chkcmb_chk_sel", "chkcmb_par_sel"})
    {
        const StatusSign sign = SignNamed(name);
        ASSERT_EQ(sign.RimColours.size(), 1u) << name;
        EXPECT_GE(Contrast(sign.StrokeColour, sign.RimColours.front()), ReadableContrast) << name;
        double least = 21;
        for (int i = 0; i < 52 * 52 * 52; ++i)
        {
            const auto part = [&](int divisor) { return static_cast<std::uint8_t>(i / divisor % 52 * 5); };
            const Colour ground{part(52 * 52), part(52), part(1)};
            least = std::min(least, std::max(Contrast(sign.StrokeColour, ground),
                                             Contrast(sign.RimColours.front(), ground)));
        }
        EXPECT_GE(least, ReadableContrast) << name;
    }
}

// So that they show on the dark faces and windows of high contrast, too, and round every selected one.
TEST(StatusSigns, HaveARimOfTheOppositeLightnessWhereverThereIsRoom)
{
    for (const std::string& name : AllSigns())
    {
        const StatusSign sign = SignNamed(name);
        ASSERT_EQ(sign.RimColours.size(), 1u) << name;
        EXPECT_GE(Contrast(sign.StrokeColour, sign.RimColours.front()), ReadableContrast) << name;
        const Dots drawn = sign.Drawn();
        const bool onButton = std::ranges::count(ButtonSigns, name) != 0;
        const Extent room = onButton ? Extent{2, 0, 13, 10} : Extent{1, 1, 13, 13};
        for (const Dot dot : sign.Stroke)
        {
            for (const Dot next :
                 {Dot{dot.X - 1, dot.Y}, Dot{dot.X + 1, dot.Y}, Dot{dot.X, dot.Y - 1}, Dot{dot.X, dot.Y + 1}})
            {
                const bool inRoom =
                    next.X >= room.Left && next.X < room.Right && next.Y >= room.Top && next.Y < room.Bottom;
                EXPECT_EQ(drawn.contains(next), inRoom) << name << " beside " << dot;
            }
        }
    }
}

TEST(StatusSigns, HaveOneShapeForEachStatus)
{
    for (const auto& names : {CompleteSigns, PartialSigns})
    {
        for (const std::string& name : names)
            EXPECT_EQ(ShapeOf(SignNamed(name)), ShapeOf(SignNamed(names.front()))) << name;
    }
}

// Neither by colour nor by lightness: what is drawn at all differs much, and the strokes in most of it.
TEST(StatusSigns, AreToldApartByTheirShapeAlone)
{
    for (std::size_t i = 0; i < CompleteSigns.size(); ++i)
    {
        const StatusSign complete = SignNamed(CompleteSigns[i]);
        const StatusSign partial = SignNamed(PartialSigns[i]);
        EXPECT_LE(Likeness(complete.Stroke, partial.Stroke), 0.5) << PartialSigns[i];
        EXPECT_LE(Likeness(complete.Drawn(), partial.Drawn()), 0.75) << PartialSigns[i];
    }
}

TEST(StatusSigns, HaveOneSizeInOnePlace)
{
    for (const std::string& name : AllSigns())
    {
        const Picture picture = PictureNamed(name);
        const auto right = static_cast<int>(picture.width) - 2;
        const auto top = (static_cast<int>(picture.height) - 10) / 2;
        EXPECT_EQ(ExtentOf(SignNamed(name).Stroke), (Extent{right - 10, top, right, top + 10})) << name;
    }
}

// Two pixels wide: no hairlines, of which there would be little left at a glance. The check mark's three ends
// are points. The right half of either sign is all stroke, with no fold in it and no filling.
TEST(StatusSigns, HaveOneWeight)
{
    for (const std::string& name : AllSigns())
    {
        const Dots shape = ShapeOf(SignNamed(name));
        const bool isComplete = std::ranges::count(CompleteSigns, name) != 0;
        EXPECT_EQ(OutsideSquares(shape, 2).size(), isComplete ? 3u : 0u) << name;
        Dots rightHalf;
        std::ranges::copy_if(shape, std::inserter(rightHalf, rightHalf.end()),
                             [](Dot dot) { return dot.X >= 5; });
        EXPECT_FALSE(rightHalf.empty()) << name;
        EXPECT_EQ(OutsideSquares(rightHalf, 3), rightHalf) << name;
    }
}

// From 21 pixels on, which is less than any button that has room for a caption is high.
TEST(StatusSigns, StayInsideTheFocusRectangleOfAButtonAndClearOfItsCaption)
{
    constexpr int width = 120;
    constexpr int focusInset = 4;
    for (const long status : {1L, 2L})
    {
        const Dots drawn = SignNamed(status == 1 ? "partial" : "checkmark").Drawn();
        for (int height = 21; height <= 60; ++height)
        {
            for (const int shift :
                 {0, 1}) // pressed, the contents are a pixel further, the focus rectangle not
            {
                const ButtonLayout layout = ButtonLayoutOf({shift, shift, width + shift, height + shift},
                                                           ButtonPictureOf(0, status), 0, 0);
                const Extent on = ExtentOf(Moved(drawn, layout.Icon.X, layout.Icon.Y));
                EXPECT_GT(on.Left, focusInset) << "status " << status << ", height " << height;
                EXPECT_GT(on.Top, focusInset) << "status " << status << ", height " << height;
                EXPECT_LT(on.Bottom, height - focusInset) << "status " << status << ", height " << height;
                EXPECT_LE(on.Right, layout.Caption.Left) << "status " << status << ", height " << height;
            }
        }
    }
}

// Clear of the text by a column. The focus rectangle goes along the item's edge: the stroke keeps off it.
TEST(StatusSigns, StayInsideAnItemOfAnyUsualHeight)
{
    for (const std::string& name : ListSigns)
    {
        const StatusSign sign = SignNamed(name);
        for (int height = 13; height <= 20; ++height)
        {
            for (int top = 0; top < 4; ++top)
            {
                const int bottom = top + height;
                const int down = ItemIconTop(top, bottom);
                const Extent drawn = ExtentOf(Moved(sign.Drawn(), 0, down));
                EXPECT_GT(drawn.Left, 0) << name;
                EXPECT_GE(drawn.Top, top) << name << ", height " << height;
                EXPECT_LE(drawn.Bottom, bottom) << name << ", height " << height;
                EXPECT_LT(drawn.Right, ItemTextLeft(0, ItemIcon::Complete)) << name;
                const Extent stroke = ExtentOf(Moved(sign.Stroke, 0, down));
                EXPECT_GT(stroke.Top, top) << name << ", height " << height;
                EXPECT_LT(stroke.Bottom, bottom) << name << ", height " << height;
            }
        }
    }
}

} // namespace

} // namespace kiv::test
