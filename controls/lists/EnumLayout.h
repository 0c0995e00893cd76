#pragma once

#include <optional>

namespace kiv
{

// Where the parts of an EnumList and of its picker lie. All lengths in twips.

// The description beside the button, or the size that the control has to take first.
struct EnumListLayout
{
    // What the control's inside lacks for its button's width and its label's height. Nothing else has a
    // meaning until it has grown by that.
    double MissingWidth;
    double MissingHeight;
    double LabelTop;
    double LabelWidth;
    double ButtonLeft;
};
// The button stands at the right edge over the whole height.
EnumListLayout CalcEnumListLayout(double innerWidth, double innerHeight, double buttonWidth,
                                  double labelHeight);

// What the layout of the picker does not change.
struct PickerSizes
{
    double Margin; // the list's left
    double ListTop;
    double ButtonWidth; // of OK and Cancel alike
    double ButtonHeight;
    double FrameHeight;
    bool FrameShown;
};

struct PickerColumns
{
    double ListWidth; // also the frame's
    double CancelLeft;
    double OkLeft;
};
// Nothing where the picker is too narrow for its controls to be moved.
std::optional<PickerColumns> CalcPickerColumns(double innerWidth, const PickerSizes& sizes);

struct PickerRows
{
    double ButtonTop;
    double FrameTop;
    double ListHeight;
};
// Nothing where the picker is too low.
std::optional<PickerRows> CalcPickerRows(double innerHeight, const PickerSizes& sizes);

// The outer width of a picker that is about to be shown: what its longest line needs, within the screen, and
// never less than what it has.
double PickerWidth(double outerWidth, double innerWidth, double margin, short maxTextWidth,
                   double screenWidth);

} // namespace kiv
