#include "tests/gui/SignOnScreen.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

pictures::Colour ColourOf(COLORREF color)
{
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

} // namespace

ShownContrast ContrastShown(const Pixels& shown, const StatusSign& sign, POINT place, COLORREF ground)
{
    const auto least = [&](const Dots& dots) {
        double result = dots.empty() ? 1 : 21;
        for (const Dot dot : dots)
            result = std::min(
                result, Contrast(ColourOf(shown.At(place.x + dot.X, place.y + dot.Y)), ColourOf(ground)));
        return result;
    };
    return {least(sign.Stroke), least(sign.Rim)};
}

} // namespace kiv::test
