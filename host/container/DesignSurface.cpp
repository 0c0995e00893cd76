#include "host/container/DesignSurface.h"

#include "host/container/Form.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Boundary.h"

#include <windowsx.h>

namespace kiv::host
{

namespace
{

constexpr wchar_t ClassName[] = L"KivDesignSurface";
constexpr int HandleSize = 6;

long Area(const RECT& bounds)
{
    return SizeOf(bounds).cx * SizeOf(bounds).cy;
}

} // namespace

DesignSurface::DesignSurface(Form& form, SIZE gridPixels) : form_(form), grid_(gridPixels)
{
    WNDCLASSEXW surface = {};
    surface.cbSize = sizeof(surface);
    surface.lpfnWndProc = &DesignSurface::WindowProcedure;
    surface.hInstance = GetModuleHandleW(nullptr);
    surface.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    surface.lpszClassName = ClassName;
    if (!RegisterClassExW(&surface) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        ThrowLastError();
    RECT client = {};
    GetClientRect(form.Window(), &client);
    // Transparent: what lies below is painted as if this window were not there.
    window_ =
        CreateWindowExW(WS_EX_TRANSPARENT, ClassName, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, client.right,
                        client.bottom, form.Window(), nullptr, surface.hInstance, nullptr);
    if (!window_)
        ThrowLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DesignSurface::~DesignSurface()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void DesignSurface::KeepOnTop()
{
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void DesignSurface::Select(FormItem* item)
{
    selected_ = item;
    InvalidateRect(form_.Window(), nullptr, TRUE);
}

LRESULT CALLBACK DesignSurface::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam) noexcept
{
    auto* const surface = reinterpret_cast<DesignSurface*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message)
    {
    case WM_LBUTTONDOWN:
        if (surface)
            static_cast<void>(Boundary([&] { surface->OnButtonDown(point); }));
        return 0;
    case WM_MOUSEMOVE:
        if (surface && GetCapture() == window)
            static_cast<void>(Boundary([&] { surface->OnDrag(point); }));
        return 0;
    case WM_LBUTTONUP:
        ReleaseCapture();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void DesignSurface::OnButtonDown(POINT point)
{
    Select(ItemAt(point));
    if (!selected_)
        return;
    const RECT& bounds = selected_->Bounds();
    grabbed_ = {point.x - bounds.left, point.y - bounds.top};
    SetCapture(window_);
}

void DesignSurface::OnDrag(POINT point)
{
    if (!selected_)
        return;
    const auto snapped = [](long position, long step) { return (position + step / 2) / step * step; };
    const RECT& bounds = selected_->Bounds();
    const long left = snapped(std::max(point.x - grabbed_.x, 0L), grid_.cx);
    const long top = snapped(std::max(point.y - grabbed_.y, 0L), grid_.cy);
    if (left != bounds.left || top != bounds.top)
        selected_->Move({left, top, left + SizeOf(bounds).cx, top + SizeOf(bounds).cy});
}

// The smallest one: a frame lies behind what it holds.
FormItem* DesignSurface::ItemAt(POINT point) const
{
    FormItem* found = nullptr;
    for (const auto& item : form_.Items())
        if (item->Visible() && PtInRect(&item->Bounds(), point) &&
            (!found || Area(item->Bounds()) < Area(found->Bounds())))
            found = item.get();
    return found;
}

void DesignSurface::PaintGrid(HDC context) const
{
    RECT client = {};
    GetClientRect(form_.Window(), &client);
    const COLORREF dot = GetSysColor(COLOR_BTNTEXT);
    for (long y = 0; y < client.bottom; y += grid_.cy)
        for (long x = 0; x < client.right; x += grid_.cx)
            SetPixelV(context, x, y, dot);
}

void DesignSurface::PaintHandles(HDC context) const
{
    if (!selected_)
        return;
    // Outside the item, so that a control that repaints itself does not wipe them.
    RECT around = selected_->Bounds();
    InflateRect(&around, HandleSize, HandleSize);
    const long columns[] = {around.left, (around.left + around.right - HandleSize) / 2,
                            around.right - HandleSize};
    const long rows[] = {around.top, (around.top + around.bottom - HandleSize) / 2,
                         around.bottom - HandleSize};
    for (const long x : columns)
        for (const long y : rows)
        {
            const RECT handle = {x, y, x + HandleSize, y + HandleSize};
            if (x != columns[1] || y != rows[1])
                FillRect(context, &handle, GetSysColorBrush(COLOR_HIGHLIGHT));
        }
}

} // namespace kiv::host
