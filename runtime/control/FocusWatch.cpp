#include "runtime/control/FocusWatch.h"

namespace kiv
{

HWND FormOf(HWND window)
{
    while (window && (GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) != 0 &&
           (GetWindowLongPtrA(window, GWL_EXSTYLE) & WS_EX_MDICHILD) == 0)
        window = GetParent(window);
    return window;
}

LRESULT CALLBACK FocusWatch::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    if (code == HCBT_SETFOCUS)
        Listeners::Each([wParam](const Listener& tell) { tell(reinterpret_cast<HWND>(wParam)); });
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace kiv
