#include "tools/pictures/Drawing.h"
#include "tools/pictures/PictureReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

Drawing Read(const std::string& text, PictureKind kind = PictureKind::Icon)
{
    std::istringstream stream(text);
    return ReadDrawing("x.draw", stream, kind);
}

std::string MistakeIn(const std::string& text, PictureKind kind = PictureKind::Icon)
{
    try
    {
        Read(text, kind);
        return "none";
    }
    catch (const PictureError& error)
    {
        return error.what();
    }
}

constexpr Colour Red{255, 0, 0};

TEST(DrawingReader, ReadsEveryShape)
{
    const Drawing drawing = Read("# a comment\n\n"
                                 "disc red 1.5,2 3\n"
                                 "arc lime 9,8 7 1.25 -45 180\n"
                                 "polygon navy 0,0 1,0 1,-1.5\n"
                                 "line #ff0000 2 0,0 5,5 9,5\n"
                                 "rectangle transparent 1,2 3,4\n");
    ASSERT_EQ(drawing.size(), 5u);
    EXPECT_EQ(drawing[0].colour, Red);
    const auto& disc = std::get<Disc>(drawing[0].form);
    EXPECT_EQ(disc.centre.x, 1.5);
    EXPECT_EQ(disc.centre.y, 2);
    EXPECT_EQ(disc.radius, 3);
    const auto& arc = std::get<Arc>(drawing[1].form);
    EXPECT_EQ(arc.centre.x, 9);
    EXPECT_EQ(arc.radius, 7);
    EXPECT_EQ(arc.width, 1.25);
    EXPECT_EQ(arc.from, -45);
    EXPECT_EQ(arc.to, 180);
    const auto& polygon = std::get<Polygon>(drawing[2].form);
    ASSERT_EQ(polygon.corners.size(), 3u);
    EXPECT_EQ(polygon.corners[2].y, -1.5);
    const auto& line = std::get<Line>(drawing[3].form);
    EXPECT_EQ(line.width, 2);
    EXPECT_EQ(line.points.size(), 3u);
    EXPECT_FALSE(drawing[4].colour);
    const auto& rectangle = std::get<Rectangle>(drawing[4].form);
    EXPECT_EQ(rectangle.topLeft.y, 2);
    EXPECT_EQ(rectangle.bottomRight.x, 3);
}

struct MistakeRow
{
    const char* Text;
    const char* Mistake;
};

const MistakeRow Mistakes[] = {
    {"", "x.draw:0: the file has no shape"},
    {"# nothing\n", "x.draw:1: the file has no shape"},
    {"oval red 1,1 2\n", "x.draw:1: 'oval' is no shape; expected disc, arc, polygon, line or rectangle"},
    {"\ndisc\n", "x.draw:2: the colour is missing"},
    {"disc pink 1,1 2\n", "x.draw:1: 'pink' is none of the 16 standard colours"},
    {"disc #123456 1,1 2\n", "x.draw:1: '#123456' is none of the 16 standard colours"},
    {"disc red\n", "x.draw:1: a point is missing"},
    {"disc red 1 2\n", "x.draw:1: '1' is no point; expected two numbers such as 3,4.5"},
    {"disc red 1,x 2\n", "x.draw:1: 'x' is no number"},
    {"disc red 1,nan 2\n", "x.draw:1: 'nan' is no number"},
    {"disc red 1,1\n", "x.draw:1: the radius is missing"},
    {"disc red 1,1 0\n", "x.draw:1: the radius is not more than 0"},
    {"disc red 1,1 2 3\n", "x.draw:1: '3' is too much on this line"},
    {"arc red 1,1 2 -1 0 90\n", "x.draw:1: the width is not more than 0"},
    {"arc red 1,1 2 1 90 0\n",
     "x.draw:1: the second angle is less than the first, or more than a turn from it"},
    {"arc red 1,1 2 1 0 361\n",
     "x.draw:1: the second angle is less than the first, or more than a turn from it"},
    {"polygon red 1,1 2,2\n", "x.draw:1: at least 3 points are needed"},
    {"line red 1 2,2\n", "x.draw:1: at least 2 points are needed"},
    {"rectangle red 1,1 1,2\n", "x.draw:1: the second point is not below and right of the first"},
    {"rectangle red 1,1 2,1\n", "x.draw:1: the second point is not below and right of the first"},
};

TEST(DrawingReader, SaysWhatIsWrongAndWhere)
{
    for (const MistakeRow& row : Mistakes)
        EXPECT_EQ(MistakeIn(row.Text), row.Mistake) << row.Text;
}

TEST(DrawingReader, OnlyAnIconCanBeTransparent)
{
    EXPECT_EQ(MistakeIn("disc transparent 1,1 2\n", PictureKind::Bitmap),
              "x.draw:1: 'transparent' is none of the 16 standard colours");
}

} // namespace

} // namespace kiv::test
