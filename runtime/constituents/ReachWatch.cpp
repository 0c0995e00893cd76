#include "runtime/constituents/ReachWatch.h"

namespace kiv
{

bool IsWithinReach(HWND window)
{
    if (!IsWindowVisible(window))
        return false;
    for (HWND around = window; around; around = GetAncestor(around, GA_PARENT))
    {
        if (!IsWindowEnabled(around))
            return false;
    }
    return true;
}

// The two messages by which a window learns that it has been hidden or disabled.
LRESULT CALLBACK ReachWatch::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto* handled = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && (handled->message == WM_ENABLE || handled->message == WM_WINDOWPOSCHANGED))
    {
        Listeners::Each([hwnd = handled->hwnd](const Watched& watched) {
            const bool concerned = watched.Window == hwnd || IsChild(hwnd, watched.Window);
            if (concerned && !IsWithinReach(watched.Window))
                watched.Tell();
        });
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace kiv
