#include "runtime/drawing/Color.h"

#include <olectl.h>

namespace kiv
{

COLORREF ResolvedColor(DWORD oleColor)
{
    COLORREF resolved = 0;
    return SUCCEEDED(OleTranslateColor(oleColor, nullptr, &resolved)) ? resolved : RGB(0, 0, 0);
}

} // namespace kiv
