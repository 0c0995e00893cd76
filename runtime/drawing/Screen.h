#pragma once

namespace kiv
{

// The screen's resolution, as the system told it when the library was first asked in this process.
struct Screen
{
    static int PixelsPerInchX();
    static int PixelsPerInchY();
    static double TwipsPerPixelX();
    static double TwipsPerPixelY();
    // A distance in whole pixels.
    static int PixelsX(double twips);
    static int PixelsY(double twips);
};

} // namespace kiv
