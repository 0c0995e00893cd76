#include "bench/BareWindow.h"

#include "runtime/com/Errors.h"

namespace kiv::bench
{

namespace
{

ATOM RegisterWindowClass(WNDPROC procedure)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "KivBench.BareWindow";
    return RegisterClassA(&description);
}

} // namespace

BareWindow::BareWindow(HWND parent, const RECT& place, Painter painter) : painter_(painter)
{
    static const ATOM windowClass = RegisterWindowClass(&BareWindow::Procedure);
    window_ = CreateWindowExA(0, reinterpret_cast<const char*>(static_cast<UINT_PTR>(windowClass)), "",
                              WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, place.left,
                              place.top, place.right - place.left, place.bottom - place.top, parent, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    if (!window_)
        ThrowLastError();
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

BareWindow::~BareWindow()
{
    DestroyWindow(window_);
}

LRESULT CALLBACK BareWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_ERASEBKGND)
        return TRUE;
    const auto* const bare = reinterpret_cast<const BareWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message != WM_PAINT || !bare)
        return DefWindowProcA(window, message, wParam, lParam);
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(window, &paint);
    bare->painter_(window, dc);
    EndPaint(window, &paint);
    return 0;
}

void Repaint(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

} // namespace kiv::bench
