#pragma once

#include <cstdint>

namespace kiv
{

// Rounds to the nearest whole number, halves to the even neighbour.
std::int32_t RoundHalfEven(double number);

// Pixels in a length of twips: the integer quotient, truncated toward zero, of both operands after each is
// rounded to a whole number. twipsPerPixel must round to 1 or more.
std::int32_t TwipsToPixels(double twips, double twipsPerPixel);

// Lengths between HIMETRIC (hundredths of a millimetre, 2540 to the inch) and pixels, rounded to the nearest.
std::int32_t HimetricToPixels(std::int32_t himetric, int pixelsPerInch);
std::int32_t PixelsToHimetric(std::int32_t pixels, int pixelsPerInch);

constexpr int TwipsPerInch = 1440;
constexpr int HimetricPerInch = 2540;

} // namespace kiv
