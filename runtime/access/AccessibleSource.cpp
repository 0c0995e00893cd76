#include "runtime/access/AccessibleSource.h"

namespace kiv
{

AccessibleInfo AccessibleSource::InfoOf(int part)
{
    if (const HWND window = WindowOf(part))
    {
        AccessibleInfo info;
        info.Role = ROLE_SYSTEM_WINDOW;
        GetWindowRect(window, &info.Place);
        info.State = IsWindowVisible(window) ? 0 : STATE_SYSTEM_INVISIBLE;
        return info;
    }
    if (const AccessibleSource* const source = SourceOf(part))
        return source->Describe(CHILDID_SELF);
    return Describe(part);
}

int AccessibleSource::PartAt(POINT place)
{
    const int count = PartCount();
    for (int part = 1; part <= count; ++part)
    {
        const AccessibleInfo info = InfoOf(part);
        if ((info.State & STATE_SYSTEM_INVISIBLE) == 0 && PtInRect(&info.Place, place))
            return part;
    }
    return 0;
}

} // namespace kiv
