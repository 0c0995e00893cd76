#pragma once

#include <cstdint>

namespace kiv
{

// How many pixels go to the inch of a screen, as a window on it sees them. 96 is what all lengths in pixels
// are meant for.
struct Resolution
{
    int X = 96;
    int Y = 96;

    bool operator==(const Resolution&) const = default;

    // A whole number at 96, 120, 144, 240 and 288 pixels to the inch, and at few others.
    double TwipsPerPixelX() const;
    double TwipsPerPixelY() const;
    // A length of twips in whole pixels.
    std::int32_t PixelsX(double twips) const;
    std::int32_t PixelsY(double twips) const;
};

// A size of the library's own pictures, in percent of their first one. Lengths that are counted in pixels of
// those pictures grow with them, and so do the lines beside them.
struct PictureScale
{
    int Percent = 100;

    bool operator==(const PictureScale&) const = default;

    // A length in pixels of the first size, in pixels of this one: the nearest whole number, halves upwards.
    constexpr int Of(int pixels) const { return (pixels * Percent + 50) / 100; }
};

// The largest of the sizes that are there which a resolution has room for: 100, 125, 150, 200, 300 or 400 %.
PictureScale PictureScaleAt(const Resolution& resolution);

} // namespace kiv
