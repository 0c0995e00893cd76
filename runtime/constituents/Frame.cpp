#include "runtime/constituents/Frame.h"

#include "runtime/drawing/Graphics.h"

namespace kiv
{

Frame::Frame(ConstituentOwner& owner, HWND parent, std::wstring_view caption) :
    Constituent(owner, parent, "BUTTON", WS_VISIBLE | WS_GROUP | WS_CLIPCHILDREN | BS_GROUPBOX,
                WS_EX_CONTROLPARENT)
{
    Ask(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Ansi(caption).c_str()));
}

AccessibleInfo Frame::Describe(int part) const
{
    AccessibleInfo info = Constituent::Describe(part);
    info.Role = ROLE_SYSTEM_GROUPING;
    info.State &= ~STATE_SYSTEM_FOCUSABLE;
    return info;
}

// A group box leaves its inside to the window behind it, which does not paint over its children.
bool Frame::Received(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ERASEBKGND)
    {
        RECT inside = {};
        GetClientRect(hWnd(), &inside);
        FillRect(reinterpret_cast<HDC>(wParam), &inside, GetSysColorBrush(COLOR_BTNFACE));
        return true;
    }
    if (message == WM_COMMAND)
    {
        if (Constituent* const inFrame = In(hWnd(), lParam))
            inFrame->Notified(HIWORD(wParam));
        return true;
    }
    return false;
}

} // namespace kiv
