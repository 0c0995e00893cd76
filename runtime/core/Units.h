#pragma once

#include <cstdint>

namespace kiv
{

// Rounds to the nearest whole number, halves to the even neighbour.
std::int32_t RoundHalfEven(double number);

// Whole pixels in a length of twips, truncated toward zero. Where a pixel has a whole number of twips the
// length is rounded to whole ones first. Where it has not, neither is: at 192 pixels to the inch 8 twips
// for 7.5 would lose every sixteenth pixel. There what was counted in pixels is as many pixels again.
// twipsPerPixel must be 1 or more.
std::int32_t TwipsToPixels(double twips, double twipsPerPixel);

// Lengths between HIMETRIC (hundredths of a millimetre, 2540 to the inch) and pixels, rounded to the nearest.
std::int32_t HimetricToPixels(std::int32_t himetric, int pixelsPerInch);
std::int32_t PixelsToHimetric(std::int32_t pixels, int pixelsPerInch);

constexpr int TwipsPerInch = 1440;
constexpr int HimetricPerInch = 2540;

} // namespace kiv
