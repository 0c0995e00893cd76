#include "runtime/constituents/Window.h"

namespace kiv
{

void Window::Invalidate(bool erase) const
{
    if (window_)
        InvalidateRect(window_, nullptr, erase);
}

void Window::Invalidate(const RECT& part) const
{
    if (window_)
        InvalidateRect(window_, &part, TRUE);
}

void Window::Redraw() const
{
    if (window_)
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void Window::InvalidateWithBorder() const
{
    if (window_)
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_NOCHILDREN);
}

void Window::TakeFocus() const
{
    if (window_)
        SetFocus(window_);
}

void Window::TakeMouse() const
{
    if (window_)
        SetCapture(window_);
}

void Window::MoveUnder(HWND parent) const
{
    if (window_ && parent)
        SetParent(window_, parent);
}

bool Window::IsMirrored() const
{
    return window_ && (GetWindowLongPtrA(window_, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

void Window::Mirror(bool mirrored) const
{
    if (!window_ || mirrored == IsMirrored())
        return;
    SetWindowLongPtrA(window_, GWL_EXSTYLE, GetWindowLongPtrA(window_, GWL_EXSTYLE) ^ WS_EX_LAYOUTRTL);
    // Scroll bars change sides.
    SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    Invalidate();
}

bool Window::Post(UINT message, WPARAM wParam) const
{
    return window_ && PostMessageA(window_, message, wParam, 0);
}

void Window::TakeBack(UINT message) const
{
    MSG posted = {};
    if (window_)
        PeekMessageA(&posted, window_, message, message, PM_REMOVE | (QS_POSTMESSAGE << 16));
}

HDC Window::BorrowDc() const
{
    return window_ ? GetDC(window_) : nullptr;
}

HDC Window::BorrowWholeDc() const
{
    return window_ ? GetWindowDC(window_) : nullptr;
}

SIZE Window::InnerSize() const
{
    RECT inner = {};
    GetClientRect(window_, &inner);
    return {inner.right, inner.bottom};
}

SIZE Window::OuterSize() const
{
    RECT outer = {};
    GetWindowRect(window_, &outer);
    return {outer.right - outer.left, outer.bottom - outer.top};
}

RECT Window::Bounds() const
{
    RECT place = {};
    GetWindowRect(window_, &place);
    if (const HWND parent = GetParent(window_))
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

} // namespace kiv
