#include "tests/pictures/StatusSign.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace kiv::test
{

using pictures::Colour;
using pictures::Picture;

namespace
{

double Luminance(Colour colour)
{
    const auto linear = [](std::uint8_t part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

} // namespace

Extent ExtentOf(const Dots& shape)
{
    if (shape.empty())
        return {};
    constexpr int most = std::numeric_limits<int>::max();
    Extent extent{most, most, -most, -most};
    for (const Dot dot : shape)
    {
        extent.Left = std::min(extent.Left, dot.X);
        extent.Top = std::min(extent.Top, dot.Y);
        extent.Right = std::max(extent.Right, dot.X + 1);
        extent.Bottom = std::max(extent.Bottom, dot.Y + 1);
    }
    return extent;
}

Dots Moved(const Dots& shape, int right, int down)
{
    Dots moved;
    for (const Dot dot : shape)
        moved.insert({dot.X + right, dot.Y + down});
    return moved;
}

Dots OutsideSquares(const Dots& shape, int side)
{
    Dots outside = shape;
    for (const Dot corner : shape)
    {
        Dots square;
        for (int i = 0; i < side * side; ++i)
            square.insert({corner.X + i % side, corner.Y + i / side});
        if (!std::ranges::includes(shape, square))
            continue;
        for (const Dot dot : square)
            outside.erase(dot);
    }
    return outside;
}

double Likeness(const Dots& one, const Dots& other)
{
    const auto common = std::ranges::count_if(one, [&](Dot dot) { return other.contains(dot); });
    const auto all = static_cast<std::ptrdiff_t>(one.size() + other.size()) - common;
    return all == 0 ? 1 : static_cast<double>(common) / static_cast<double>(all);
}

Dots StatusSign::Drawn() const
{
    Dots drawn = Stroke;
    drawn.insert(Rim.begin(), Rim.end());
    return drawn;
}

StatusSign SignIn(const Picture& picture)
{
    std::vector<std::pair<Colour, Dots>> byColour;
    for (std::size_t i = 0; i < picture.pixels.size(); ++i)
    {
        if (!picture.pixels[i])
            continue;
        auto found = std::ranges::find(byColour, *picture.pixels[i], &std::pair<Colour, Dots>::first);
        if (found == byColour.end())
            found = byColour.insert(found, {*picture.pixels[i], {}});
        found->second.insert({static_cast<int>(i % picture.width), static_cast<int>(i / picture.width)});
    }
    std::ranges::stable_sort(
        byColour, [](const auto& one, const auto& other) { return one.second.size() > other.second.size(); });
    StatusSign sign;
    for (std::size_t i = 0; i < byColour.size(); ++i)
    {
        const auto& [colour, dots] = byColour[i];
        if (i == 0)
        {
            sign.StrokeColour = colour;
            sign.Stroke = dots;
            continue;
        }
        sign.RimColours.push_back(colour);
        sign.Rim.insert(dots.begin(), dots.end());
    }
    return sign;
}

double Contrast(Colour one, Colour other)
{
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace kiv::test
