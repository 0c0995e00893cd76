#pragma once

#include "tests/support/Pixels.h"

#include <windows.h>

namespace kiv::test
{

// How a YesNo is to look, painted once more from what is documented of it and independent of the library's
// code; only the three option bitmaps are the library's.

struct YesNoLook
{
    SIZE Size = {};
    long Value = 0;
    bool Enabled = true;
    COLORREF BackColor = 0;
    COLORREF ForeColor = 0;
    HFONT Font = nullptr;
};

// In pixels.
struct YesNoRegions
{
    int YesRight = 0;
    int NoLeft = 0;
};

enum class FocusAt
{
    None,
    Yes,
    No,
    Both // a rectangle at each option
};

YesNoRegions RegionsOf(const YesNoLook& look);
Pixels PaintYesNo(const YesNoLook& look, FocusAt focus);

// Where a focus rectangle shows on a picture of a control with that look: "None", "Yes", "No" or "Both"; for
// any other picture how it differs from one without a rectangle.
std::string FocusOn(const Pixels& picture, const YesNoLook& look);

} // namespace kiv::test
