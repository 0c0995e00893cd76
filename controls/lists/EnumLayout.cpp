#include "controls/lists/EnumLayout.h"

#include "runtime/core/Units.h"

#include <algorithm>

namespace kiv
{

namespace
{

// Up to this inner width or height the picker leaves its controls where they are.
constexpr double LeastMovingSize = 3500;

// What the picker needs beside its longest line: the column of codes, the scroll bar and some air.
constexpr double RoomBesideText = 1350;

} // namespace

EnumListLayout CalcEnumListLayout(double innerWidth, double innerHeight, double buttonWidth,
                                  double labelHeight)
{
    const double besideButton = innerWidth - buttonWidth;
    return {.MissingWidth = std::max(0.0, buttonWidth - innerWidth),
            .MissingHeight = std::max(0.0, labelHeight - innerHeight),
            .LabelTop = (innerHeight - labelHeight) / 2,
            .LabelWidth = besideButton,
            .ButtonLeft = besideButton};
}

std::optional<PickerColumns> CalcPickerColumns(double innerWidth, const PickerSizes& sizes)
{
    if (innerWidth <= LeastMovingSize)
        return std::nullopt;
    const double cancelLeft = innerWidth - sizes.ButtonWidth - sizes.Margin;
    return PickerColumns{.ListWidth = innerWidth - 2 * sizes.Margin,
                         .CancelLeft = cancelLeft,
                         .OkLeft = cancelLeft - sizes.ButtonWidth - sizes.Margin};
}

std::optional<PickerRows> CalcPickerRows(double innerHeight, const PickerSizes& sizes)
{
    if (innerHeight <= LeastMovingSize)
        return std::nullopt;
    const double buttonTop = innerHeight - sizes.ButtonHeight - sizes.Margin;
    const double frameTop = buttonTop - sizes.FrameHeight - sizes.Margin;
    const double below = sizes.FrameShown ? frameTop : buttonTop;
    return PickerRows{
        .ButtonTop = buttonTop, .FrameTop = frameTop, .ListHeight = below - sizes.Margin - sizes.ListTop};
}

double PickerWidth(double outerWidth, double innerWidth, double margin, short maxTextWidth,
                   double screenWidth)
{
    const double needed = RoundHalfEven(outerWidth - innerWidth + 2 * margin + maxTextWidth + RoomBesideText);
    return std::max(outerWidth, std::min(needed, screenWidth));
}

} // namespace kiv
