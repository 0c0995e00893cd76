#pragma once

#include <windows.h>

namespace kiv::host
{

// Lengths on this screen, whose axes may differ in pixels per inch. Rounded to the nearest.
SIZE PixelsToHimetric(SIZE pixels);
SIZE HimetricToPixels(SIZE himetric);
// The rectangle of a position and size in twips.
RECT PixelsFromTwips(long left, long top, long width, long height);
// Lengths between whole pixels and twips. Pixels come back from their twips; of twips that are not a whole
// number of pixels less than one is lost.
long TwipsX(long pixels);
long TwipsY(long pixels);
long PixelsX(long twips);
long PixelsY(long twips);

inline SIZE SizeOf(const RECT& bounds)
{
    return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

} // namespace kiv::host
