#include "runtime/drawing/Color.h"

#include <olectl.h>

namespace kiv
{

COLORREF ResolvedColor(DWORD oleColor)
{
    COLORREF resolved = 0;
    return SUCCEEDED(OleTranslateColor(oleColor, nullptr, &resolved)) ? resolved : RGB(0, 0, 0);
}

bool InHighContrast()
{
    HIGHCONTRASTW settings = {};
    settings.cbSize = sizeof settings;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0) &&
           (settings.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace kiv
