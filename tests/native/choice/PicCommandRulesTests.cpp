#include "controls/choice/PicCommandRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace kiv
{

std::ostream& operator<<(std::ostream& out, const ButtonPicture& picture)
{
    return out << "icon " << static_cast<int>(picture.Icon) << ", " << picture.PicWidth << " by "
               << picture.PicHeight;
}

std::ostream& operator<<(std::ostream& out, const ButtonLayout& layout)
{
    return out << "caption " << layout.Caption.Left << ", " << layout.Caption.Top << ", "
               << layout.Caption.Right << ", " << layout.Caption.Bottom << ", icon at " << layout.Icon.X
               << ", " << layout.Icon.Y;
}

namespace
{

struct PictureRow
{
    long PictureType;
    long DetailStatus;
    ButtonPicture Picture;
    bool IsLink;
};

const PictureRow PictureRows[] = {
    {0, 0, {ButtonIcon::None, 0, 0}, false},
    {0, 1, {ButtonIcon::Partial, 15, 10}, false},
    {0, 2, {ButtonIcon::CheckMark, 15, 10}, false},
    {1, 0, {ButtonIcon::Plus, 18, 18}, false},
    {2, 0, {ButtonIcon::Minus, 18, 18}, false},
    {3, 0, {ButtonIcon::Note, 23, 23}, true},
    {4, 0, {ButtonIcon::Graph, 23, 23}, true},
    {5, 0, {ButtonIcon::WebLink, 23, 23}, true},
    // The status matters to the check mark only.
    {1, 2, {ButtonIcon::Plus, 18, 18}, false},
    {5, 7, {ButtonIcon::WebLink, 23, 23}, true},
    // Numbers that are no type or no status.
    {0, 3, {}, false},
    {0, -1, {}, false},
    {6, 2, {}, false},
    {-1, 1, {}, false},
};

TEST(PicCommandRulesTest, ChoosesThePictureAndItsRoom)
{
    for (const PictureRow& row : PictureRows)
    {
        const ButtonPicture picture = ButtonPictureOf(row.PictureType, row.DetailStatus);
        EXPECT_EQ(picture, row.Picture) << "type " << row.PictureType << ", status " << row.DetailStatus;
        EXPECT_EQ(IsLinkStyle(picture.Icon), row.IsLink) << "type " << row.PictureType;
    }
}

constexpr ButtonPicture Check = {ButtonIcon::CheckMark, 15, 10};
constexpr ButtonPicture Plus = {ButtonIcon::Plus, 18, 18};
constexpr ButtonPicture Note = {ButtonIcon::Note, 23, 23};

struct LayoutRow
{
    PixelRect Text;
    ButtonPicture Picture;
    long PictureType;
    int CaptionWidth;
    ButtonLayout Layout;
};

const LayoutRow LayoutRows[] = {
    // Alone the caption has the whole button.
    {{0, 0, 100, 25}, {}, 0, 40, {{0, 0, 100, 25}, {0, 0}}},
    {{0, 0, 100, 25}, {}, 7, 40, {{0, 0, 100, 25}, {0, 0}}},
    // A status stands at the left edge, whatever the caption.
    {{0, 0, 100, 25}, Check, 0, 40, {{16, 0, 100, 25}, {3, 7}}},
    {{0, 0, 100, 25}, Check, 0, 400, {{16, 0, 100, 25}, {3, 7}}},
    // Other pictures share the room that is left over with the caption, in three parts.
    {{0, 0, 100, 25}, Plus, 1, 40, {{32, 0, 100, 25}, {16, 3}}},
    {{0, 0, 100, 25}, Plus, 1, 41, {{31, 0, 100, 25}, {15, 3}}},
    {{0, 0, 100, 25}, Plus, 1, 82, {{18, 0, 100, 25}, {2, 3}}},
    // There may be none to share.
    {{0, 0, 100, 25}, Plus, 1, 83, {{18, 0, 100, 25}, {2, 3}}},
    {{0, 0, 100, 25}, Plus, 1, 400, {{18, 0, 100, 25}, {2, 3}}},
    {{0, 0, 10, 25}, Note, 3, 40, {{23, 0, 10, 25}, {2, 1}}},
    // Pressed: everything a pixel further.
    {{1, 1, 101, 26}, Check, 0, 40, {{17, 1, 101, 26}, {4, 8}}},
    {{1, 1, 101, 26}, Plus, 1, 40, {{33, 1, 101, 26}, {17, 4}}},
    // Lower than the picture: half of it, truncated toward zero.
    {{0, 0, 100, 22}, Note, 3, 40, {{35, 0, 100, 22}, {14, 0}}},
    {{0, 0, 100, 20}, Note, 3, 40, {{35, 0, 100, 20}, {14, -1}}},
    // A record that does not begin at the corner.
    {{10, 40, 110, 65}, Check, 0, 40, {{26, 40, 110, 65}, {13, 47}}},
    {{10, 40, 110, 65}, Plus, 1, 40, {{42, 40, 110, 65}, {26, 43}}},
};

TEST(PicCommandRulesTest, PlacesCaptionAndIcon)
{
    for (const LayoutRow& row : LayoutRows)
    {
        EXPECT_EQ(ButtonLayoutOf(row.Text, row.Picture, row.PictureType, row.CaptionWidth), row.Layout)
            << "icon " << static_cast<int>(row.Picture.Icon) << ", caption " << row.CaptionWidth
            << " wide in " << row.Text.Right << " by " << row.Text.Bottom;
    }
}

// Draws as the system does: up to, but not including, the last point.
std::vector<std::string> Drawn(const ButtonFrame& frame, int width, int height)
{
    const std::map<FrameColor, char> letters = {{FrameColor::Black, '#'},
                                                {FrameColor::Face, '-'},
                                                {FrameColor::Shadow, 's'},
                                                {FrameColor::Highlight, 'h'}};
    std::vector<std::string> picture(static_cast<std::size_t>(height),
                                     std::string(static_cast<std::size_t>(width), ' '));
    for (const FrameStroke& stroke : frame.Strokes)
        for (std::size_t at = 1; at < stroke.Points.size(); ++at)
        {
            const PixelPoint from = stroke.Points[at - 1];
            const PixelPoint to = stroke.Points[at];
            EXPECT_TRUE(from.X == to.X || from.Y == to.Y) << "slanted";
            const int length = std::max(std::abs(to.X - from.X), std::abs(to.Y - from.Y));
            for (int step = 0; step < length; ++step)
            {
                const int x = from.X + (to.X - from.X) / length * step;
                const int y = from.Y + (to.Y - from.Y) / length * step;
                const bool inside = x >= 0 && y >= 0 && x < width && y < height;
                EXPECT_TRUE(inside) << x << ", " << y;
                if (inside)
                    picture[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] =
                        letters.at(stroke.Color);
            }
        }
    return picture;
}

using Picture = std::vector<std::string>;

TEST(PicCommandRulesTest, FramesAButtonAtRest)
{
    const ButtonFrame frame = ButtonFrameOf({0, 0, 10, 8}, false, false);
    EXPECT_EQ(Drawn(frame, 10, 8), (Picture{"hhhhhhhhh#", "h-------s#", "h-      s#", "h-      s#",
                                            "h-      s#", "h-      s#", "hssssssss#", "-#########"}));
    EXPECT_EQ(frame.Inside, (PixelRect{2, 2, 8, 6}));
}

TEST(PicCommandRulesTest, FramesAButtonWithTheFocus)
{
    const ButtonFrame frame = ButtonFrameOf({0, 0, 10, 8}, false, true);
    EXPECT_EQ(Drawn(frame, 10, 8), (Picture{"##########", "#hhhhhhh##", "#h-----s##", "#h-    s##",
                                            "#h-    s##", "#hssssss##", "#-########", "##########"}));
    EXPECT_EQ(frame.Inside, (PixelRect{3, 3, 7, 5}));
}

TEST(PicCommandRulesTest, FramesAPressedButton)
{
    const ButtonFrame frame = ButtonFrameOf({0, 0, 10, 8}, true, false);
    EXPECT_EQ(Drawn(frame, 10, 8), (Picture{"sssssssssh", "s#######-h", "s#      -h", "s#      -h",
                                            "s#      -h", "s#      -h", "s--------h", "-hhhhhhhhh"}));
    EXPECT_EQ(frame.Inside, (PixelRect{2, 2, 8, 6}));
}

TEST(PicCommandRulesTest, FramesAPressedButtonWithTheFocus)
{
    const ButtonFrame frame = ButtonFrameOf({0, 0, 10, 8}, true, true);
    EXPECT_EQ(Drawn(frame, 10, 8), (Picture{"##########", "#ssssssss#", "#s------s#", "#s-    -s#",
                                            "#s-    -s#", "#s------s#", "#-sssssss#", "##########"}));
    EXPECT_EQ(frame.Inside, (PixelRect{3, 3, 7, 5}));
}

// The lines themselves, as a host that records what is drawn keeps them.
TEST(PicCommandRulesTest, BeginsWithThePixelThatTheBevelLeavesOut)
{
    const ButtonFrame frame = ButtonFrameOf({0, 0, 10, 8}, false, false);
    EXPECT_EQ(frame.Strokes.front(), (FrameStroke{FrameColor::Face, {{0, 7}, {1, 7}}}));
}

TEST(PicCommandRulesTest, FramesAButtonSomewhereElse)
{
    const ButtonFrame here = ButtonFrameOf({0, 0, 10, 8}, true, true);
    const ButtonFrame there = ButtonFrameOf({5, 7, 15, 15}, true, true);
    ASSERT_EQ(here.Strokes.size(), there.Strokes.size());
    for (std::size_t stroke = 0; stroke < here.Strokes.size(); ++stroke)
        for (std::size_t at = 0; at < here.Strokes[stroke].Points.size(); ++at)
        {
            const PixelPoint point = here.Strokes[stroke].Points[at];
            EXPECT_EQ(there.Strokes[stroke].Points[at], (PixelPoint{point.X + 5, point.Y + 7}));
        }
    EXPECT_EQ(there.Inside, (PixelRect{8, 10, 12, 12}));
}

TEST(PicCommandRulesTest, SaysWhatThePictureMeans)
{
    const std::pair<ButtonIcon, const wchar_t*> rows[] = {
        {ButtonIcon::None, L""},
        {ButtonIcon::Partial, L"partial"},
        {ButtonIcon::CheckMark, L"complete"},
        {ButtonIcon::Plus, L"plus"},
        {ButtonIcon::Minus, L"minus"},
        {ButtonIcon::Note, L"note"},
        {ButtonIcon::Graph, L"graph"},
        {ButtonIcon::WebLink, L"web link"},
    };
    for (const auto& [icon, meaning] : rows)
        EXPECT_STREQ(MeaningOf(icon), meaning);
}

struct ScaledRow
{
    int Percent;
    ButtonPicture Mark;
    ButtonPicture Note;
    ButtonLayout MarkLayout; // in 300 by 60 pixels
    ButtonLayout NoteLayout; // the same, with a caption of 40
    int Frame;               // as wide as all lines of it together, without the focus
};

const ScaledRow ScaledRows[] = {
    {100,
     {ButtonIcon::CheckMark, 15, 10},
     {ButtonIcon::Note, 23, 23},
     {{16, 0, 300, 60}, {3, 25}},
     {{102, 0, 300, 60}, {81, 18}},
     2},
    {125,
     {ButtonIcon::CheckMark, 19, 13},
     {ButtonIcon::Note, 29, 29},
     {{20, 0, 300, 60}, {4, 23}},
     {{106, 0, 300, 60}, {80, 15}},
     2},
    {150,
     {ButtonIcon::CheckMark, 23, 15},
     {ButtonIcon::Note, 35, 35},
     {{25, 0, 300, 60}, {5, 22}},
     {{110, 0, 300, 60}, {78, 12}},
     4},
    {200,
     {ButtonIcon::CheckMark, 30, 20},
     {ButtonIcon::Note, 46, 46},
     {{32, 0, 300, 60}, {6, 20}},
     {{117, 0, 300, 60}, {75, 7}},
     4},
    {300,
     {ButtonIcon::CheckMark, 45, 30},
     {ButtonIcon::Note, 69, 69},
     {{48, 0, 300, 60}, {9, 15}},
     {{132, 0, 300, 60}, {69, -4}},
     6},
    {400,
     {ButtonIcon::CheckMark, 60, 40},
     {ButtonIcon::Note, 92, 92},
     {{64, 0, 300, 60}, {12, 10}},
     {{148, 0, 300, 60}, {64, -16}},
     8},
};

TEST(PicCommandRulesTest, GrowsWithItsPictures)
{
    for (const ScaledRow& row : ScaledRows)
    {
        SCOPED_TRACE(row.Percent);
        const PictureScale scale = {row.Percent};
        EXPECT_EQ(ButtonPictureOf(0, 2, scale), row.Mark);
        EXPECT_EQ(ButtonPictureOf(3, 0, scale), row.Note);
        EXPECT_EQ(ButtonLayoutOf({0, 0, 300, 60}, row.Mark, 0, 40, scale), row.MarkLayout);
        EXPECT_EQ(ButtonLayoutOf({0, 0, 300, 60}, row.Note, 3, 40, scale), row.NoteLayout);
        const int wide = row.Frame;
        EXPECT_EQ(ButtonFrameOf({0, 0, 300, 60}, false, false, scale).Inside,
                  (PixelRect{wide, wide, 300 - wide, 60 - wide}));
        const int focused = wide + wide / 2;
        EXPECT_EQ(ButtonFrameOf({0, 0, 300, 60}, true, true, scale).Inside,
                  (PixelRect{focused, focused, 300 - focused, 60 - focused}));
    }
}

TEST(PicCommandRulesTest, FramesWithLinesOfSeveralPixels)
{
    const PictureScale twice = {200};
    EXPECT_EQ(Drawn(ButtonFrameOf({0, 0, 12, 10}, false, false, twice), 12, 10),
              (Picture{"hhhhhhhhhhh#", "hhhhhhhhhh##", "hh-------s##", "hh------ss##", "hh--    ss##",
                       "hh--    ss##", "hh-sssssss##", "hhssssssss##", "h-##########", "-###########"}));
    EXPECT_EQ(Drawn(ButtonFrameOf({0, 0, 14, 12}, false, true, twice), 14, 12),
              (Picture{"##############", "##############", "##hhhhhhhhh###", "##hhhhhhhh####",
                       "##hh-----s####", "##hh----ss####", "##hh-sssss####", "##hhssssss####",
                       "##h-##########", "##-###########", "##############", "##############"}));
}

// No pixel of the frame is left as another state has drawn it.
TEST(PicCommandRulesTest, FramesLeaveNoGap)
{
    for (const int percent : {100, 125, 150, 200, 300, 400})
    {
        for (const bool pressed : {false, true})
        {
            for (const bool framed : {false, true})
            {
                const ButtonFrame frame = ButtonFrameOf({0, 0, 60, 40}, pressed, framed, {percent});
                const Picture drawn = Drawn(frame, 60, 40);
                for (int y = 0; y < 40; ++y)
                {
                    for (int x = 0; x < 60; ++x)
                    {
                        const bool inside = x >= frame.Inside.Left && x < frame.Inside.Right &&
                                            y >= frame.Inside.Top && y < frame.Inside.Bottom;
                        EXPECT_EQ(drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == ' ',
                                  inside)
                            << percent << " %, at " << x << ", " << y;
                    }
                }
            }
        }
    }
}

} // namespace

} // namespace kiv
