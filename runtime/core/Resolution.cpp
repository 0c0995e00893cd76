#include "runtime/core/Resolution.h"

#include "runtime/core/Units.h"

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

} // namespace kiv
