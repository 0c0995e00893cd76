#include "host/container/DesignSurface.h"

#include "host/container/Form.h"
#include "host/container/ScreenUnits.h"
#include "host/container/WindowClass.h"
#include "runtime/com/Boundary.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

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

long Snapped(long position, long step)
{
    // Towards the nearest line, also left of and above the first.
    const long nearest = position + step / 2;
    return (nearest - ((nearest % step) + step) % step);
}

bool IsMirrored(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

struct Handle
{
    RECT Place;
    GrabbedEdges Edges;
};

// Outside the item, so that a control that repaints itself does not wipe them.
std::vector<Handle> HandlesOf(const FormItem& item)
{
    RECT around = item.Bounds();
    InflateRect(&around, HandleSize, HandleSize);
    const long columns[] = {around.left, (around.left + around.right - HandleSize) / 2,
                            around.right - HandleSize};
    const long rows[] = {around.top, (around.top + around.bottom - HandleSize) / 2,
                         around.bottom - HandleSize};
    std::vector<Handle> handles;
    for (int column = 0; column < 3; ++column)
        for (int row = 0; row < 3; ++row)
            if (column != 1 || row != 1)
                handles.push_back(
                    {{columns[column], rows[row], columns[column] + HandleSize, rows[row] + HandleSize},
                     {.Left = column == 0, .Top = row == 0, .Right = column == 2, .Bottom = row == 2}});
    return handles;
}

} // namespace

DesignSurface::DesignSurface(Form& form, SIZE gridPixels) : form_(form), grid_(gridPixels)
{
    RegisterWindowClass(ClassName, &DesignSurface::WindowProcedure, nullptr);
    RECT client = {};
    GetClientRect(form.Page(), &client);
    // Transparent: what lies below is painted as if this window were not there.
    window_ =
        CreateWindowExW(WS_EX_TRANSPARENT, ClassName, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, client.right,
                        client.bottom, form.Page(), nullptr, GetModuleHandleW(nullptr), nullptr);
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
    InvalidateRect(form_.Page(), nullptr, TRUE);
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
    case WM_SETCURSOR:
        if (surface && LOWORD(lParam) == HTCLIENT && surface->ShowCursor())
            return TRUE;
        return DefWindowProcW(window, message, wParam, lParam);
    case WM_ERASEBKGND:
        return 1;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void DesignSurface::OnButtonDown(POINT point)
{
    const std::optional<GrabbedEdges> handle = HandleAt(point);
    if (!handle)
        Select(ItemAt(point));
    if (!selected_)
        return;
    grabbedAt_ = point;
    grabbedBounds_ = selected_->Bounds();
    grabbedEdges_ = handle.value_or(GrabbedEdges{true, true, true, true});
    dragging_ = false;
    SetCapture(window_);
}

void DesignSurface::OnDrag(POINT point)
{
    if (!selected_)
        return;
    const POINT by = {point.x - grabbedAt_.x, point.y - grabbedAt_.y};
    // A hand that clicks is not quite still.
    if (std::abs(by.x) >= GetSystemMetrics(SM_CXDRAG) || std::abs(by.y) >= GetSystemMetrics(SM_CYDRAG))
        dragging_ = true;
    if (!dragging_)
        return;
    const RECT bounds = grabbedEdges_.Left && grabbedEdges_.Right ? Moved(by) : Sized(by);
    if (!EqualRect(&bounds, &selected_->Bounds()))
        selected_->Move(bounds);
}

RECT DesignSurface::Room(const FormItem& item) const
{
    if (item.Container())
        return item.Container()->Bounds();
    RECT whole = {};
    GetClientRect(form_.Page(), &whole);
    return whole;
}

RECT DesignSurface::Moved(POINT by) const
{
    const RECT room = Room(*selected_);
    const SIZE size = SizeOf(grabbedBounds_);
    const long left =
        std::max(std::min(Snapped(grabbedBounds_.left + by.x, grid_.cx), room.right - size.cx), room.left);
    const long top =
        std::max(std::min(Snapped(grabbedBounds_.top + by.y, grid_.cy), room.bottom - size.cy), room.top);
    return {left, top, left + size.cx, top + size.cy};
}

RECT DesignSurface::Sized(POINT by) const
{
    const RECT room = Room(*selected_);
    RECT bounds = grabbedBounds_;
    // No smaller than a step of the grid, so that it can still be seen and grabbed.
    if (grabbedEdges_.Left)
        bounds.left =
            std::min(std::max(Snapped(bounds.left + by.x, grid_.cx), room.left), bounds.right - grid_.cx);
    if (grabbedEdges_.Top)
        bounds.top =
            std::min(std::max(Snapped(bounds.top + by.y, grid_.cy), room.top), bounds.bottom - grid_.cy);
    if (grabbedEdges_.Right)
        bounds.right =
            std::max(std::min(Snapped(bounds.right + by.x, grid_.cx), room.right), bounds.left + grid_.cx);
    if (grabbedEdges_.Bottom)
        bounds.bottom =
            std::max(std::min(Snapped(bounds.bottom + by.y, grid_.cy), room.bottom), bounds.top + grid_.cy);
    return bounds;
}

// The smallest one: a frame lies behind what it holds.
FormItem* DesignSurface::ItemAt(POINT point) const
{
    FormItem* found = nullptr;
    for (const auto& item : form_.Items())
        if (item->CanBeSeen() && PtInRect(&item->Bounds(), point) &&
            (!found || Area(item->Bounds()) <= Area(found->Bounds())))
            found = item.get();
    return found;
}

std::optional<GrabbedEdges> DesignSurface::HandleAt(POINT point) const
{
    if (selected_)
        for (const Handle& handle : HandlesOf(*selected_))
            if (PtInRect(&handle.Place, point))
                return handle.Edges;
    return std::nullopt;
}

// False where the arrow is right.
bool DesignSurface::ShowCursor() const
{
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    const std::optional<GrabbedEdges> edges = HandleAt(point);
    if (!edges)
        return false;
    auto shape = IDC_SIZENESW;
    if (!edges->Left && !edges->Right)
        shape = IDC_SIZENS;
    else if (!edges->Top && !edges->Bottom)
        shape = IDC_SIZEWE;
    else if ((edges->Left == edges->Top) != IsMirrored(window_))
        shape = IDC_SIZENWSE;
    SetCursor(LoadCursor(nullptr, shape));
    return true;
}

void DesignSurface::PaintGrid(HDC context) const
{
    RECT client = {};
    GetClientRect(form_.Page(), &client);
    const COLORREF dot = GetSysColor(COLOR_BTNTEXT);
    for (long y = 0; y < client.bottom; y += grid_.cy)
        for (long x = 0; x < client.right; x += grid_.cx)
            SetPixelV(context, x, y, dot);
}

void DesignSurface::PaintHandles(HDC context) const
{
    if (selected_)
        for (const Handle& handle : HandlesOf(*selected_))
            FillRect(context, &handle.Place, GetSysColorBrush(COLOR_HIGHLIGHT));
}

} // namespace kiv::host
