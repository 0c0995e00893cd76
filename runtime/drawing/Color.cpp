#include "runtime/drawing/Color.h"

#include "runtime/com/Wine.h"

#include <olectl.h>

namespace kiv
{

COLORREF ResolvedColor(DWORD oleColor)
{
    COLORREF resolved = 0;
    return SUCCEEDED(OleTranslateColor(oleColor, nullptr, &resolved)) ? resolved : RGB(0, 0, 0);
}

// Wine keeps no record of that setting: there a scheme stands for it that has one ground for everything and
// frames in the colour of texts, as those for high contrast do.
bool InHighContrast()
{
    if (RunsOnWine())
    {
        const DWORD ground = GetSysColor(COLOR_WINDOW);
        return ground == GetSysColor(COLOR_BTNFACE) && ground == GetSysColor(COLOR_MENU) &&
               ground == GetSysColor(COLOR_INFOBK) && ground == GetSysColor(COLOR_SCROLLBAR) &&
               GetSysColor(COLOR_WINDOWFRAME) == GetSysColor(COLOR_WINDOWTEXT);
    }
    HIGHCONTRASTW settings = {};
    settings.cbSize = sizeof settings;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0) &&
           (settings.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace kiv
