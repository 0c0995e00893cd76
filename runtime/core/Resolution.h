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

} // namespace kiv
