#pragma once

#include "tools/pictures/Colour.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kiv::pictures
{

enum class PictureKind
{
    Icon,    // 16 colours, transparent where nothing is drawn; becomes an icon of 32x32 at least
    Bitmap,  // 16 colours
    Toolbox, // 24-bit colours, 16x15: what a form designer shows for a control
};

// Nothing where the picture is transparent.
using Pixel = std::optional<Colour>;

struct Picture
{
    PictureKind kind = PictureKind::Bitmap;
    std::size_t width = 0;
    std::size_t height = 0;
    Colour background;         // what the picture is drawn on, for those who look at it
    std::vector<Pixel> pixels; // row by row, top-left first

    const Pixel& At(std::size_t x, std::size_t y) const { return pixels.at(y * width + x); }
};

} // namespace kiv::pictures
