#include "controls/amount/AmountLayout.h"

namespace kiv
{

namespace
{

AmountLayout CalcAmountLayout(const AmountSizes& sizes, double centredHeight)
{
    AmountLayout layout = {
        .Label = {2 * sizes.TwipsPerPixelX, CentredTop(sizes.ScaleHeight, centredHeight),
                  sizes.ScaleWidth - 4 * sizes.TwipsPerPixelX},
        .Box = {sizes.TwipsPerPixelX, ParkedTop, sizes.ScaleWidth - 2 * sizes.TwipsPerPixelX},
        .Height = {}};
    // One pixel above the box and one below. Compared in single precision, as hosts store their sizes.
    const auto needed = static_cast<float>(sizes.BoxHeight + 2 * sizes.TwipsPerPixelY);
    if (needed > static_cast<float>(sizes.ScaleHeight))
    {
        const double border = sizes.Height - sizes.ScaleHeight;
        layout.Height = sizes.BoxHeight + border + 2 * sizes.TwipsPerPixelY;
    }
    return layout;
}

} // namespace

AmountLayout CalcCurrencyLayout(const AmountSizes& sizes)
{
    return CalcAmountLayout(sizes, sizes.BoxHeight);
}

AmountLayout CalcPercentLayout(const AmountSizes& sizes)
{
    return CalcAmountLayout(sizes, sizes.LabelHeight);
}

} // namespace kiv
