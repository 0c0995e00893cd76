#pragma once

#include "runtime/drawing/TextLine.h"

namespace kiv
{

// A line as it is shown in a place that may be too narrow for it.
struct FittedLine
{
    TextLine Line;
    // What stays free behind a line at the right of its place, in pixels.
    int RightMargin = 0;
    // Whether it is less than there is to be shown.
    bool IsCut = false;
};

// An amount, or number signs as many as there is room for, but one at least: without its first digits an
// amount would read as another one. What is shown lies wholly within so many pixels, and a digit's columns
// depend on nothing but the characters at its right.
FittedLine FitAmount(HFONT font, std::wstring_view amount, int width);

// A line of text, which ends in an ellipsis where it is not all, or where more lines follow that are not
// shown.
FittedLine FitText(HFONT font, std::wstring_view line, int width, bool isFollowed);

} // namespace kiv
