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
    double MissingWidth = 0;
    double MissingHeight = 0;
    double LabelTop = 0;
    double LabelWidth = 0;
    double ButtonLeft = 0;
};
// The button stands at the right edge over the whole height.
EnumListLayout CalcEnumListLayout(double innerWidth, double innerHeight, double buttonWidth,
                                  double labelHeight);

// What the layout of the picker does not change.
struct PickerSizes
{
    double Margin = 0; // the list's left
    double ListTop = 0;
    double ButtonWidth = 0; // of OK and Cancel alike
    double ButtonHeight = 0;
    double FrameHeight = 0;
    bool FrameShown = false;
};

struct PickerColumns
{
    double ListWidth = 0; // also the frame's
    double CancelLeft = 0;
    double OkLeft = 0;
};
// Nothing where the picker is too narrow for its controls to be moved.
std::optional<PickerColumns> CalcPickerColumns(double innerWidth, const PickerSizes& sizes);

struct PickerRows
{
    double ButtonTop = 0;
    double FrameTop = 0;
    double ListHeight = 0;
};
// Nothing where the picker is too low.
std::optional<PickerRows> CalcPickerRows(double innerHeight, const PickerSizes& sizes);

// The outer width of a picker that is about to be shown: what its longest line needs, within the screen, and
// never less than what it has.
double PickerWidth(double outerWidth, double innerWidth, double margin, short maxTextWidth,
                   double screenWidth);

} // namespace kiv
