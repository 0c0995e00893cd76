#pragma once

#include "runtime/drawing/Gdi.h"

namespace kiv
{

// A new bitmap of the same format, with every pixel of exactly the mask colour in the replace colour. Null
// when the source is no bitmap or cannot be read now. Throws ComError (run-time error 6) for a bitmap wider
// or higher than 32768 pixels.
GdiObject<HBITMAP> Recolored(HBITMAP source, COLORREF mask, COLORREF replace);

// Whether the bitmap is the one that is selected into the device context. Only 32 bits of a handle count, and
// picture objects hand out no more.
bool Holds(HDC dc, HBITMAP bitmap);

} // namespace kiv
