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
    EnumListLayout layout;
    layout.ButtonLeft = innerWidth - buttonWidth;
    layout.MissingWidth = std::max(0.0, buttonWidth - innerWidth);
    layout.MissingHeight = std::max(0.0, labelHeight - innerHeight);
    layout.LabelTop = (innerHeight - labelHeight) / 2;
    layout.LabelWidth = innerWidth - buttonWidth;
    return layout;
}

std::optional<PickerColumns> CalcPickerColumns(double innerWidth, const PickerSizes& sizes)
{
    if (innerWidth <= LeastMovingSize)
        return std::nullopt;
    PickerColumns columns;
    columns.ListWidth = innerWidth - 2 * sizes.Margin;
    columns.CancelLeft = innerWidth - sizes.ButtonWidth - sizes.Margin;
    columns.OkLeft = columns.CancelLeft - sizes.ButtonWidth - sizes.Margin;
    return columns;
}

std::optional<PickerRows> CalcPickerRows(double innerHeight, const PickerSizes& sizes)
{
    if (innerHeight <= LeastMovingSize)
        return std::nullopt;
    PickerRows rows;
    rows.ButtonTop = innerHeight - sizes.ButtonHeight - sizes.Margin;
    rows.FrameTop = rows.ButtonTop - sizes.FrameHeight - sizes.Margin;
    const double below = sizes.FrameShown ? rows.FrameTop : rows.ButtonTop;
    rows.ListHeight = below - sizes.Margin - sizes.ListTop;
    return rows;
}

double PickerWidth(double outerWidth, double innerWidth, double margin, short maxTextWidth,
                   double screenWidth)
{
    const double needed = RoundHalfEven(outerWidth - innerWidth + 2 * margin + maxTextWidth + RoomBesideText);
    return std::max(outerWidth, std::min(needed, screenWidth));
}

} // namespace kiv
