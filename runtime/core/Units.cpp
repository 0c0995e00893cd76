#include "runtime/core/Units.h"

#include <cmath>
#include <limits>

namespace kiv
{

namespace
{

// number * to / from to the nearest whole number, held inside 32 bits: extents come from hosts and files.
std::int32_t Scale(std::int32_t number, std::int32_t to, std::int32_t from)
{
    const double scaled = static_cast<double>(number) * to / from;
    const double lowest = std::numeric_limits<std::int32_t>::min();
    const double highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::fmin(std::fmax(std::round(scaled), lowest), highest));
}

} // namespace

std::int32_t RoundHalfEven(double number)
{
    const double below = std::floor(number);
    const double fraction = number - below;
    const bool belowIsOdd = std::fmod(below, 2.0) != 0.0;
    const bool up = fraction > 0.5 || (fraction == 0.5 && belowIsOdd);
    return static_cast<std::int32_t>(up ? below + 1.0 : below);
}

std::int32_t TwipsToPixels(double twips, double twipsPerPixel)
{
    if (std::floor(twipsPerPixel) == twipsPerPixel)
        return RoundHalfEven(twips) / static_cast<std::int32_t>(twipsPerPixel);
    // What calculating in fractions can lack of a whole pixel.
    constexpr double hair = 1.0 / 1024;
    const double pixels = twips / twipsPerPixel;
    return static_cast<std::int32_t>(pixels + std::copysign(hair, pixels));
}

std::int32_t HimetricToPixels(std::int32_t himetric, int pixelsPerInch)
{
    return Scale(himetric, pixelsPerInch, HimetricPerInch);
}

std::int32_t PixelsToHimetric(std::int32_t pixels, int pixelsPerInch)
{
    return Scale(pixels, HimetricPerInch, pixelsPerInch);
}

} // namespace kiv
