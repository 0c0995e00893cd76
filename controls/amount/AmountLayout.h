#pragma once

#include <optional>

namespace kiv
{

// The measures of a control that shows a text box over a label; all in twips.
struct AmountSizes
{
    // The surface inside the border.
    double ScaleWidth;
    double ScaleHeight;
    // The control with its border.
    double Height;
    double BoxHeight;
    double LabelHeight;
    double TwipsPerPixelX;
    double TwipsPerPixelY;
};

// Where a constituent goes, in twips. Its height, which follows its font, stays as it is.
struct AmountPlace
{
    double Left;
    double Top;
    double Width;

    bool operator==(const AmountPlace&) const = default;
};

struct AmountLayout
{
    AmountPlace Label;
    // Parked.
    AmountPlace Box;
    // What the control's Height has to become so that the box fits; none if it fits. Never less than it is.
    std::optional<double> Height;

    bool operator==(const AmountLayout&) const = default;
};

// Out of sight, below any control.
constexpr double ParkedTop = 10000;

// The top that centres something of a height; negative when it is higher than the surface.
constexpr double CentredTop(double scaleHeight, double height)
{
    return (scaleHeight - height) / 2;
}

// The label is centred by the box's height in a CurrencyBox, by its own in a PercentBox.
AmountLayout CalcCurrencyLayout(const AmountSizes& sizes);
AmountLayout CalcPercentLayout(const AmountSizes& sizes);

} // namespace kiv
