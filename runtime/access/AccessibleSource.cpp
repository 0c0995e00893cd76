#include "runtime/access/AccessibleSource.h"

namespace kiv
{

int AccessibleSource::PartAt(POINT place) const
{
    for (int part = 1; part <= PartCount(); ++part)
    {
        RECT bounds = {};
        if (const HWND window = WindowOf(part))
        {
            if (IsWindowVisible(window))
                GetWindowRect(window, &bounds);
        }
        else if (const AccessibleInfo info = Describe(part); (info.State & STATE_SYSTEM_INVISIBLE) == 0)
        {
            bounds = info.Place;
        }
        if (PtInRect(&bounds, place))
            return part;
    }
    return 0;
}

} // namespace kiv
