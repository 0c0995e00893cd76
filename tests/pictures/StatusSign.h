#pragma once

#include "tools/pictures/Picture.h"

#include <cstddef>
#include <set>
#include <vector>

namespace kiv::test
{

// A pixel of a picture.
struct Dot
{
    int X = 0;
    int Y = 0;

    auto operator<=>(const Dot&) const = default;
};
using Dots = std::set<Dot>;

// The least rectangle around dots; right and bottom are exclusive.
struct Extent
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    bool operator==(const Extent&) const = default;
};
Extent ExtentOf(const Dots& shape);
Dots Moved(const Dots& shape, int right, int down);

// The dots that lie in no square of that side that the shape fills: the points and hairlines of a shape.
Dots OutsideSquares(const Dots& shape, int side);

// How much two shapes have in common, from 0 to 1.
double Likeness(const Dots& one, const Dots& other);

// A mark of how complete something is, taken apart: its stroke has the colour that most of the mark has, the
// rim is all else that is drawn.
struct StatusSign
{
    pictures::Colour StrokeColour;
    Dots Stroke;
    std::vector<pictures::Colour> RimColours;
    Dots Rim;

    Dots Drawn() const;
};
StatusSign SignIn(const pictures::Picture& picture);

// How far apart two colours are in lightness, as the Web Content Accessibility Guidelines measure it: from 1
// to
// 21. They ask for 4.5 where something is to be read.
double Contrast(pictures::Colour one, pictures::Colour other);
constexpr double ReadableContrast = 4.5;

} // namespace kiv::test
