#include "runtime/drawing/MirroredDc.h"

#include "runtime/com/Wine.h"

namespace kiv
{

// A metafile of the older kind has no layout.
bool DrawsMirrored(HDC dc)
{
    const DWORD layout = GetLayout(dc);
    return layout != GDI_ERROR && (layout & LAYOUT_RTL) != 0;
}

UprightPictures::UprightPictures(HDC dc)
{
    if (!DrawsMirrored(dc))
        return;
    saved_.emplace(dc);
    SetLayout(dc, LAYOUT_RTL | LAYOUT_BITMAPORIENTATIONPRESERVED);
    // Wine's pictures then are a pixel too far to the left.
    if (RunsOnWine())
        OffsetViewportOrgEx(dc, -1, 0, nullptr);
}

} // namespace kiv
