#pragma once

#include "tests/pictures/StatusSign.h"
#include "tests/support/Pixels.h"

namespace kiv::test
{

// How far the mark's pixels, as they are shown with the mark's picture at a place, are from the ground: the
// least of its stroke and the least of its rim.
struct ShownContrast
{
    double Stroke = 0;
    double Rim = 0;
};
ShownContrast ContrastShown(const Pixels& shown, const StatusSign& sign, POINT place, COLORREF ground);

} // namespace kiv::test
