#include "runtime/core/Resolution.h"

#include "runtime/core/Units.h"

#include <algorithm>

namespace kiv
{

double Resolution::TwipsPerPixelX() const
{
    return static_cast<double>(TwipsPerInch) / X;
}

double Resolution::TwipsPerPixelY() const
{
    return static_cast<double>(TwipsPerInch) / Y;
}

std::int32_t Resolution::PixelsX(double twips) const
{
    return TwipsToPixels(twips, TwipsPerPixelX());
}

std::int32_t Resolution::PixelsY(double twips) const
{
    return TwipsToPixels(twips, TwipsPerPixelY());
}

PictureScale PictureScaleAt(const Resolution& resolution)
{
    constexpr int unscaled = 96;
    const int perInch = std::min(resolution.X, resolution.Y);
    for (const int percent : {400, 300, 200, 150, 125})
    {
        if (perInch * 100 >= percent * unscaled)
            return {percent};
    }
    return {};
}

} // namespace kiv
