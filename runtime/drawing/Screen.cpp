#include "runtime/drawing/Screen.h"

#include "runtime/core/Units.h"

#include <windows.h>

namespace kiv
{

namespace
{

struct Resolution
{
    int X = 96;
    int Y = 96;

    Resolution()
    {
        const HDC screen = GetDC(nullptr);
        if (!screen)
            return;
        X = GetDeviceCaps(screen, LOGPIXELSX);
        Y = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
    }
};

const Resolution& ScreenResolution()
{
    static const Resolution resolution;
    return resolution;
}

} // namespace

int Screen::PixelsPerInchX()
{
    return ScreenResolution().X;
}

int Screen::PixelsPerInchY()
{
    return ScreenResolution().Y;
}

double Screen::TwipsPerPixelX()
{
    return static_cast<double>(TwipsPerInch) / PixelsPerInchX();
}

double Screen::TwipsPerPixelY()
{
    return static_cast<double>(TwipsPerInch) / PixelsPerInchY();
}

int Screen::PixelsX(double twips)
{
    return TwipsToPixels(twips, TwipsPerPixelX());
}

int Screen::PixelsY(double twips)
{
    return TwipsToPixels(twips, TwipsPerPixelY());
}

} // namespace kiv
