#include "tools/pictures/PictureReader.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

constexpr Colour Navy{0, 0, 128};
constexpr Colour Red{255, 0, 0};
constexpr Colour Silver{192, 192, 192};

Picture Read(const std::string& text)
{
    std::istringstream stream(text);
    return ReadPicture("p.pix", stream);
}

} // namespace

TEST(PictureReader, ReadsAnIcon)
{
    const Picture picture = Read("# A comment.\n\nkind icon\nsize 3x2\non silver\ncolour . transparent\n"
                                 "colour # navy\ncolour r red\nrows\n#.r\n..#\n\n");
    EXPECT_EQ(picture.kind, PictureKind::Icon);
    EXPECT_EQ(picture.width, 3u);
    EXPECT_EQ(picture.height, 2u);
    EXPECT_EQ(picture.background, Silver);
    const std::vector<Pixel> expected{Navy, std::nullopt, Red, std::nullopt, std::nullopt, Navy};
    EXPECT_EQ(picture.pixels, expected);
    EXPECT_EQ(picture.At(2, 0), Red);
    EXPECT_EQ(picture.At(2, 1), Navy);
}

TEST(PictureReader, TakesAnyColourInAToolboxImage)
{
    std::string text = "kind toolbox\nsize 16x15\non #C0c0C0\ncolour a #12aBfF\nrows\n";
    for (int row = 0; row < 15; ++row)
        text += "aaaaaaaaaaaaaaaa\n";
    const Picture picture = Read(text);
    EXPECT_EQ(picture.kind, PictureKind::Toolbox);
    EXPECT_EQ(picture.background, Silver);
    EXPECT_EQ(picture.At(15, 14), (Colour{0x12, 0xab, 0xff}));
}

TEST(PictureReader, TakesWindowsLineEndsAndAMissingLastOne)
{
    const Picture picture =
        Read("kind bitmap\r\n\r\nsize 1x2\r\non silver\r\ncolour r red\r\nrows\r\nr\r\nr");
    EXPECT_EQ(picture.kind, PictureKind::Bitmap);
    EXPECT_EQ(picture.pixels, (std::vector<Pixel>{Red, Red}));
}

struct Mistake
{
    const char* name;
    std::string text;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const Mistake& mistake)
{
    return out << mistake.text;
}

class PictureMistakes : public testing::TestWithParam<Mistake>
{
};

TEST_P(PictureMistakes, AreReportedWithTheirLine)
{
    try
    {
        Read(GetParam().text);
        FAIL() << "the mistake was accepted";
    }
    catch (const PictureError& error)
    {
        EXPECT_EQ(error.what(), GetParam().message);
    }
}

// What each mistake is made in: a correct bitmap of one red pixel.
const std::string Kind = "kind bitmap\n";
const std::string Size = Kind + "size 1x1\n";
const std::string On = Size + "on silver\n";
const std::string Letter = On + "colour r red\n";
const std::string NoSize = " is no size; expected two numbers from 1 to 256 such as 15x10";
const std::string NoColour = " is no colour; expected one of the 16 names or #rrggbb";

const Mistake Mistakes[]{
    {"Empty", "", "p.pix:1: the file ends without the picture's rows"},
    {"NoRows", Letter, "p.pix:5: the file ends without the picture's rows"},
    {"UnknownKeyword", "kid icon\n", "p.pix:1: 'kid' is unknown; expected kind, size, on, colour or rows"},
    {"BlankLine", " \n", "p.pix:1: '' is unknown; expected kind, size, on, colour or rows"},
    {"KindMissing", "kind\n", "p.pix:1: the kind (icon, bitmap or toolbox) is missing"},
    {"KindUnknown", "\nkind photo\n",
     "p.pix:2: 'photo' is no kind of picture; expected icon, bitmap or toolbox"},
    {"KindTwice", Kind + Kind, "p.pix:2: kind is given twice"},
    {"KindTooMuch", "kind icon icon\n", "p.pix:1: 'icon' is too much on this line"},
    {"SizeBeforeKind", "size 1x1\n", "p.pix:1: kind must come before size"},
    {"SizeTwice", Size + "size 1x1\n", "p.pix:3: size is given twice"},
    {"SizeMissing", Kind + "size\n", "p.pix:2: the size (such as 15x10) is missing"},
    {"SizeWithoutCross", Kind + "size 15\n", "p.pix:2: '15'" + NoSize},
    {"SizeZero", Kind + "size 0x4\n", "p.pix:2: '0x4'" + NoSize},
    {"SizeNegative", Kind + "size 4x-4\n", "p.pix:2: '4x-4'" + NoSize},
    {"SizeTooLarge", Kind + "size 4x257\n", "p.pix:2: '4x257'" + NoSize},
    {"SizeEnormous", Kind + "size 99999999999999999999999x4\n",
     "p.pix:2: '99999999999999999999999x4'" + NoSize},
    {"SizeNotNumbers", Kind + "size 4x4x\n", "p.pix:2: '4x4x'" + NoSize},
    {"SizeOnlyCross", Kind + "size x\n", "p.pix:2: 'x'" + NoSize},
    {"SizeTooMuch", Kind + "size 4x4 4\n", "p.pix:2: '4' is too much on this line"},
    {"IconTooLarge", "kind icon\nsize 33x4\n", "p.pix:2: an icon's picture is at most 32x32, not 33x4"},
    {"ToolboxSize", "kind toolbox\nsize 16x16\n", "p.pix:2: a toolbox image is 16x15, not 16x16"},
    {"OnMissing", Size + "on\n", "p.pix:3: the colour that the picture is drawn on is missing"},
    {"OnUnknown", Size + "on grey\n", "p.pix:3: 'grey'" + NoColour},
    {"OnTwice", On + "on silver\n", "p.pix:4: on is given twice"},
    {"ColourBeforeKind", "colour r red\n", "p.pix:1: kind must come before colour"},
    {"LetterMissing", On + "colour\n", "p.pix:4: the letter that stands for the colour is missing"},
    {"LetterTooLong", On + "colour rr red\n", "p.pix:4: 'rr' is no single letter"},
    {"LetterTwice", Letter + "colour r navy\n", "p.pix:5: letter 'r' already stands for a colour"},
    {"ColourMissing", On + "colour r\n", "p.pix:4: the colour is missing"},
    {"ColourUnknown", On + "colour r rot\n", "p.pix:4: 'rot'" + NoColour},
    {"ColourShort", On + "colour r #12345\n", "p.pix:4: '#12345'" + NoColour},
    {"ColourNoDigits", On + "colour r #12345g\n", "p.pix:4: '#12345g'" + NoColour},
    {"ColourTooMuch", On + "colour r red blue\n", "p.pix:4: 'blue' is too much on this line"},
    {"ColourNotStandard", On + "colour r #123456\n", "p.pix:4: #123456 is none of the 16 standard colours"},
    {"BitmapTransparent", On + "colour r transparent\n", "p.pix:4: only an icon can be transparent"},
    {"ColourUnused", Letter + "colour n navy\nrows\nr\n", "p.pix:5: colour 'n' is not used in the picture"},
    {"RowsBeforeKind", "rows\n", "p.pix:1: kind must come before rows"},
    {"RowsBeforeSize", Kind + "rows\n", "p.pix:2: size must come before rows"},
    {"RowsBeforeOn", Size + "rows\n", "p.pix:3: on must come before rows"},
    {"RowsTooMuch", Letter + "rows 1\n", "p.pix:5: '1' is too much on this line"},
    {"RowsEndEarly", Letter + "rows\n", "p.pix:6: the picture ends after 0 of its 1 rows"},
    {"RowTooLong", Letter + "rows\nrr\n", "p.pix:6: the row has 2 letters instead of 1"},
    {"RowTooShort", Letter + "rows\n\n", "p.pix:6: the row has 0 letters instead of 1"},
    {"RowUnknownLetter", Letter + "rows\nx\n", "p.pix:6: letter 'x' stands for no colour"},
    {"TooManyRows", Letter + "rows\nr\nr\n", "p.pix:7: the picture has more rows than its size says"},
};

INSTANTIATE_TEST_SUITE_P(PictureReader, PictureMistakes, testing::ValuesIn(Mistakes),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace kiv::test
