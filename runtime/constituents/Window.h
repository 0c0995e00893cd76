#pragma once

#include <windows.h>

namespace kiv
{

// A window that may be gone: somebody else can destroy one of ours, a container with its own. Without a
// window nothing happens here, where Windows itself would take "none" for all windows, for the desktop or for
// the whole thread. Every call that does so is made in this class alone.
class Window
{
public:
    explicit Window(HWND window) : window_(window) {}

    // Null once the window is gone.
    HWND hWnd() const { return window_; }

    // The window, or a part of it, is painted anew: by and by, or at once.
    void Invalidate(bool erase = true) const;
    void Invalidate(const RECT& part) const;
    void Redraw() const;
    void InvalidateWithBorder() const;

    void TakeFocus() const;
    void TakeMouse() const;
    // Under another window; not if that one is gone.
    void MoveUnder(HWND parent) const;

    // From right to left: its coordinates count from its right edge. A window made in a mirrored one is
    // mirrored; one that is moved there is not, and what stands in one that is turned keeps its place on the
    // screen: it is to be laid out anew.
    bool IsMirrored() const;
    void Mirror(bool mirrored) const;

    // False when it cannot be.
    bool Post(UINT message, WPARAM wParam = 0) const;
    // Takes back what was posted and has not arrived.
    void TakeBack(UINT message) const;

    // A device context, of the inside or with the border, for its borrower to release; null without a window.
    HDC BorrowDc() const;
    HDC BorrowWholeDc() const;

    // In pixels: the inner size, and that with borders.
    SIZE InnerSize() const;
    SIZE OuterSize() const;
    // The outer edge, in the parent's coordinates.
    RECT Bounds() const;

protected:
    Window() = default;

    HWND window_ = nullptr;
};

} // namespace kiv
