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

int TwipsPerPixelX()
{
    return TwipsPerInch / static_cast<int>(PixelsPerInch().cx);
}

int TwipsPerPixelY()
{
    return TwipsPerInch / static_cast<int>(PixelsPerInch().cy);
}

} // namespace kiv::host
