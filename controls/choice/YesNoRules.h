#pragma once

#include "runtime/core/Resolution.h"

namespace kiv
{

// The rules of YesNo that need no window. Options and answers are numbers as the control publishes them:
// 1 Yes, 2 No, 0 neither.

// The two regions, in pixels: Yes from 0 to YesRight, No from NoLeft to the right edge.
struct YesNoLayout
{
    int YesRight;
    int NoLeft;

    bool operator==(const YesNoLayout&) const = default;
};

// All in twips: the surface's inner width and the widths of both captions.
YesNoLayout CalcYesNoLayout(double scaleWidth, double yesWidth, double noWidth, double twipsPerPixelX,
                            PictureScale scale = {});

// Height and width of the option images in their first size, in pixels.
constexpr int OptionImageSize = 14;

// Where the option images begin, in pixels from the top, so that they are centred; truncated toward zero, and
// negative on a surface that is lower than they are.
int OptionImageTop(double scaleHeight, double twipsPerPixelY, PictureScale scale = {});

// The option at a place (twips), 0 between the options. Where they overlap, Yes wins.
long OptionAt(const YesNoLayout& layout, double x, double twipsPerPixelX);

// The option that a character stands for, 0 for none.
long OptionOfCharacter(short keyAscii);

// The answer after an option is chosen by space bar or mouse: choosing the selected one clears it.
long Toggled(long answer, long option);

} // namespace kiv
