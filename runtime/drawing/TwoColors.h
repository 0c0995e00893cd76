#pragma once

#include "runtime/drawing/Gdi.h"

namespace kiv
{

// How a picture is shown where the user wants few colours that stand out: what is white in it is the ground,
// everything else the ink.
struct TwoColors
{
    COLORREF Ink;
    COLORREF Ground;
};

// A copy of a picture in two colours, to be combined with what is below by OR: black, which adds nothing,
// where the mask is white. Null when it cannot be made, or when the two differ in size.
GdiObject<HBITMAP> InTwoColors(HBITMAP picture, HBITMAP mask, const TwoColors& colors);

// An icon in its own size, the right way round on a mirrored form too; in high contrast in two colours.
void DrawSign(HDC dc, POINT place, HICON icon, const TwoColors& inHighContrast);

} // namespace kiv
