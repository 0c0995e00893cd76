#include "host/container/ScreenUnits.h"

#include "runtime/core/Units.h"

namespace kiv::host
{

namespace
{

SIZE PixelsPerInch()
{
    const HDC screen = GetDC(nullptr);
    const SIZE found = {GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return found;
}

long ToTwips(long pixels, long perInch)
{
    return MulDiv(static_cast<int>(pixels), TwipsPerInch, static_cast<int>(perInch));
}

// Where a pixel has no whole number of twips, the nearest one: what ToTwips has rounded comes back.
long ToPixels(long twips, long perInch)
{
    if (TwipsPerInch % perInch == 0)
        return twips / (TwipsPerInch / perInch);
    return MulDiv(static_cast<int>(twips), static_cast<int>(perInch), TwipsPerInch);
}

} // namespace

SIZE PixelsToHimetric(SIZE pixels)
{
    const SIZE inch = PixelsPerInch();
    return {kiv::PixelsToHimetric(pixels.cx, inch.cx), kiv::PixelsToHimetric(pixels.cy, inch.cy)};
}

SIZE HimetricToPixels(SIZE himetric)
{
    const SIZE inch = PixelsPerInch();
    return {kiv::HimetricToPixels(himetric.cx, inch.cx), kiv::HimetricToPixels(himetric.cy, inch.cy)};
}

RECT PixelsFromTwips(long left, long top, long width, long height)
{
    const SIZE inch = PixelsPerInch();
    const auto pixels = [](long twips, long perInch) {
        return static_cast<long>(MulDiv(static_cast<int>(twips), static_cast<int>(perInch), TwipsPerInch));
    };
    const long x = pixels(left, inch.cx);
    const long y = pixels(top, inch.cy);
    return {x, y, x + pixels(width, inch.cx), y + pixels(height, inch.cy)};
}

long TwipsX(long pixels)
{
    return ToTwips(pixels, PixelsPerInch().cx);
}

long TwipsY(long pixels)
{
    return ToTwips(pixels, PixelsPerInch().cy);
}

long PixelsX(long twips)
{
    return ToPixels(twips, PixelsPerInch().cx);
}

long PixelsY(long twips)
{
    return ToPixels(twips, PixelsPerInch().cy);
}

} // namespace kiv::host
