#include "controls/choice/YesNoRules.h"

#include "runtime/core/Units.h"

namespace kiv
{

YesNoLayout CalcYesNoLayout(double scaleWidth, double yesWidth, double noWidth, double twipsPerPixelX,
                            PictureScale scale)
{
    // 20 and 19 differ on purpose: the right edge of one region and the left edge of the other.
    return {TwipsToPixels(yesWidth, twipsPerPixelX) + scale.Of(20),
            TwipsToPixels(scaleWidth - noWidth, twipsPerPixelX) - scale.Of(19)};
}

int OptionImageTop(double scaleHeight, double twipsPerPixelY, PictureScale scale)
{
    return RoundHalfEven(scaleHeight / twipsPerPixelY - scale.Of(OptionImageSize)) / 2;
}

long OptionAt(const YesNoLayout& layout, double x, double twipsPerPixelX)
{
    const int xpx = TwipsToPixels(x, twipsPerPixelX);
    if (xpx <= layout.YesRight)
        return 1;
    if (xpx >= layout.NoLeft)
        return 2;
    return 0;
}

long OptionOfCharacter(short keyAscii)
{
    // Folds lower case onto upper case. It drops bit 7 as well, so that 217 and 249 act as Y, 206 and 238 as
    // N: deliberate, hosts have always seen it so.
    const int folded = keyAscii & 0x5F;
    if (folded == 'Y')
        return 1;
    if (folded == 'N')
        return 2;
    return 0;
}

long Toggled(long answer, long option)
{
    return answer == option ? 0 : option;
}

} // namespace kiv
