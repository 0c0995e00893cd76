#include "tools/pictures/Drawing.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

using Rows = std::vector<std::string>;

Picture Blank(std::size_t width, std::size_t height, PictureKind kind = PictureKind::Icon)
{
    Picture picture;
    picture.kind = kind;
    picture.width = width;
    picture.height = height;
    return picture;
}

// # is red, o is white, x is black and . is transparent.
Rows Shown(const std::string& text, const Picture& first, std::size_t percent)
{
    std::istringstream stream(text);
    const Picture drawn = Drawn(ReadDrawing("x.draw", stream, first.kind), first, percent);
    Rows rows;
    for (std::size_t y = 0; y < drawn.height; ++y)
    {
        std::string row;
        for (std::size_t x = 0; x < drawn.width; ++x)
        {
            const Pixel& pixel = drawn.At(x, y);
            row += !pixel ? '.' : *pixel == Colour{255, 0, 0} ? '#' : *pixel == Colour{} ? 'x' : 'o';
        }
        rows.push_back(row);
    }
    return rows;
}

TEST(DrawnPicture, OfADisc)
{
    EXPECT_EQ(Shown("disc red 3,3 3\n", Blank(6, 6), 100),
              (Rows{".####.", "######", "######", "######", "######", ".####."}));
    EXPECT_EQ(Shown("disc red 3,3 3\n", Blank(6, 6), 150),
              (Rows{"..#####..", ".#######.", "#########", "#########", "#########", "#########", "#########",
                    ".#######.", "..#####.."}));
    // A pixel whose middle is on the edge is not the disc's: it would stand out of it alone.
    EXPECT_EQ(Shown("disc red 2.5,2.5 2\n", Blank(5, 5), 100),
              (Rows{".....", ".###.", ".###.", ".###.", "....."}));
}

TEST(DrawnPicture, OfAnArc)
{
    EXPECT_EQ(Shown("arc red 3,3 3 1 0 90\n", Blank(6, 6), 100),
              (Rows{"...##.", "....##", ".....#", "......", "......", "......"}));
    EXPECT_EQ(Shown("arc red 3,3 3 3 -90 90\n", Blank(6, 6), 100),
              (Rows{"...##.", "...###", "...###", "...###", "...###", "...##."}));
    EXPECT_EQ(Shown("arc red 3,3 3 1 180 360\n", Blank(6, 6), 100),
              (Rows{"......", "......", "......", "#....#", "##..##", ".####."}));
}

TEST(DrawnPicture, OfAPolygon)
{
    // The middles of the pixels on the slope are on the edge, and below it.
    EXPECT_EQ(Shown("polygon red 0,0 4,0 4,4\n", Blank(4, 4), 100), (Rows{".###", "..##", "...#", "...."}));
    EXPECT_EQ(Shown("polygon red 0,0 4,4 0,4\n", Blank(4, 4), 100), (Rows{"#...", "##..", "###.", "####"}));
    EXPECT_EQ(Shown("polygon red 0,0 4,0 4,4\n", Blank(4, 4), 150),
              (Rows{".#####", "..####", "...###", "....##", ".....#", "......"}));
    // With a dent.
    EXPECT_EQ(Shown("polygon red 0,0 4,0 4,4 3,4 3,2 1,2 1,4 0,4\n", Blank(4, 4), 100),
              (Rows{"####", "####", "#..#", "#..#"}));
}

TEST(DrawnPicture, OfALine)
{
    EXPECT_EQ(Shown("line red 1 0.5,1.5 3.5,1.5 3.5,3.5\n", Blank(4, 4), 100),
              (Rows{"....", "####", "...#", "...#"}));
    EXPECT_EQ(Shown("line red 2 1,1 1,1\n", Blank(3, 2), 100), (Rows{"##.", "##."}));
}

// Hairlines are as wide everywhere, other edges are where they belong.
TEST(DrawnPicture, OfRectanglesHasItsEdgesBetweenPixels)
{
    const std::string text = "rectangle red 0,0 1,1\nrectangle red 2,0 3,1\nrectangle red 4,0 5,1\n"
                             "rectangle red 6,0 7,1\nrectangle red 8,0 10,1\n";
    EXPECT_EQ(Shown(text, Blank(10, 1), 100), (Rows{"#.#.#.#.##"}));
    EXPECT_EQ(Shown(text, Blank(10, 1), 125), (Rows{"#..#.#..#.###"}));
    EXPECT_EQ(Shown(text, Blank(10, 1), 150), (Rows{"##.##.##.##.###", "##.##.##.##.###"}));
    EXPECT_EQ(Shown("rectangle red 1,0 1.1,1\n", Blank(3, 1), 100), (Rows{".#."})) << "none is lost";
}

TEST(DrawnPicture, LaterShapesLieOverEarlierOnes)
{
    const std::string text =
        "rectangle red 0,0 4,1\nrectangle white 1,0 3,1\nrectangle transparent 2,0 4,1\n";
    EXPECT_EQ(Shown(text, Blank(4, 1), 100), (Rows{"#o.."}));
}

TEST(DrawnPicture, IsBlackWhereNothingIsDrawnOnABitmap)
{
    EXPECT_EQ(Shown("rectangle white 1,0 2,1\n", Blank(3, 1, PictureKind::Bitmap), 100), (Rows{"xox"}));
}

TEST(DrawnPicture, HasTheSizeThatItGrowsTo)
{
    Picture first = Blank(15, 10);
    first.background = {192, 192, 192};
    std::istringstream text("disc red 5,5 2\n");
    const Drawing drawing = ReadDrawing("x.draw", text, first.kind);
    const std::size_t widths[] = {19, 23, 30, 45, 60};
    const std::size_t heights[] = {13, 15, 20, 30, 40};
    for (std::size_t at = 0; at < std::size(GrownPercents); ++at)
    {
        const Picture drawn = Drawn(drawing, first, GrownPercents[at]);
        EXPECT_EQ(drawn.width, widths[at]);
        EXPECT_EQ(drawn.height, heights[at]);
        EXPECT_EQ(drawn.pixels.size(), widths[at] * heights[at]);
        EXPECT_EQ(drawn.background, first.background);
        EXPECT_EQ(drawn.kind, PictureKind::Icon);
    }
}

} // namespace

} // namespace kiv::test
