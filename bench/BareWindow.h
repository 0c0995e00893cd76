#pragma once

#include <windows.h>

namespace kiv::bench
{

// The window that a control needs at least, and the picture that it shows, with nothing around them.
class BareWindow
{
public:
    using Painter = void (*)(HWND window, HDC dc);

    BareWindow(HWND parent, const RECT& place, Painter painter); // throws ComError
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;
    ~BareWindow();

    HWND Handle() const { return window_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    Painter painter_;
    HWND window_;
};

// Paints a window, now.
void Repaint(HWND window);

} // namespace kiv::bench
