#pragma once

#include "tools/pictures/Picture.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

namespace kiv::pictures
{

// A picture as the shapes that it consists of, from which it is made in any size. Lengths are those of the
// picture in its first size, in pixels; fractions are welcome.

struct Point
{
    double x = 0;
    double y = 0;
};

struct Disc
{
    Point centre;
    double radius = 0;
};

// A part of a ring, from one angle to a larger one: degrees from the right, counter-clockwise.
struct Arc
{
    Point centre;
    double radius = 0; // the outer one
    double width = 0;
    double from = 0;
    double to = 0;
};

struct Polygon
{
    std::vector<Point> corners;
};

// A stroke from point to point, with round ends and corners.
struct Line
{
    double width = 0;
    std::vector<Point> points;
};

// Its edges lie between pixels whatever the size, and no side of it is ever lost: hairlines that are equal in
// the first size are equal in all.
struct Rectangle
{
    Point topLeft;
    Point bottomRight;
};

struct Shape
{
    Pixel colour;
    std::variant<Disc, Arc, Polygon, Line, Rectangle> form;
};

// Each shape lies over those before it.
using Drawing = std::vector<Shape>;

// Reads a drawing's text; throws PictureError at the first mistake. kind: of its picture, since only an icon
// can be transparent.
Drawing ReadDrawing(const std::string& fileName, std::istream& text, PictureKind kind);

// The sizes that pictures are made in beside their first one, in percent of it.
constexpr std::size_t GrownPercents[] = {125, 150, 200, 300, 400};

// A length of the first size in another one: the nearest whole number, halves upwards.
constexpr std::size_t Grown(std::size_t length, std::size_t percent)
{
    return (length * percent + 50) / 100;
}

// The picture that a drawing makes in a size: of the kind and on the background of first, which is the same
// one in its first size. A pixel belongs to what lies over its middle. What nothing is drawn on is
// transparent in an icon, black in a bitmap.
Picture Drawn(const Drawing& drawing, const Picture& first, std::size_t percent);

} // namespace kiv::pictures
