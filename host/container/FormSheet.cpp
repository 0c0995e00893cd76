#include "host/container/FormSheet.h"

#include "host/container/ScreenUnits.h"
#include "host/container/WindowClass.h"
#include "runtime/com/Boundary.h"
#include "runtime/core/Scoped.h"

#include <algorithm>

namespace kiv::host
{

namespace
{

constexpr wchar_t ClassName[] = L"KivFormSheet";
// Pixels that an arrow of a scroll bar moves.
constexpr int Line = 24;

SCROLLINFO ScrollState(HWND form, int bar)
{
    SCROLLINFO state = {};
    state.cbSize = sizeof(state);
    state.fMask = SIF_ALL;
    GetScrollInfo(form, bar, &state);
    return state;
}

// How far to go so that from first to last can be seen, or as much of it as there is room for.
int PositionToSee(const SCROLLINFO& state, long first, long last)
{
    const long room = static_cast<long>(state.nPage);
    if (first < state.nPos || last - first > room)
        return static_cast<int>(first);
    return static_cast<int>(std::max<long>(state.nPos, last - room));
}

} // namespace

FormSheet::FormSheet(HWND form, SheetOwner& owner, SIZE size) : form_(form), owner_(owner), size_(size)
{
    RegisterWindowClass(ClassName, &FormSheet::WindowProcedure, GetSysColorBrush(COLOR_BTNFACE));
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, ClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                        0, size.cx, size.cy, form, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!window_)
        ThrowLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    OnFormSized();
}

FormSheet::~FormSheet()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK FormSheet::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const sheet = reinterpret_cast<FormSheet*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (sheet ? message : WM_NULL)
    {
    case WM_PAINT: {
        PAINTSTRUCT paint;
        const HDC context = BeginPaint(window, &paint);
        const int saved = SaveDC(context);
        static_cast<void>(Boundary([&] { sheet->owner_.PaintItems(context); }));
        RestoreDC(context, saved);
        EndPaint(window, &paint);
        return 0;
    }
    case WM_COMMAND:
        static_cast<void>(
            Boundary([&] { sheet->owner_.OnCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam)); }));
        return 0;
    case WM_GETOBJECT: {
        LRESULT object = 0;
        static_cast<void>(Boundary([&] { object = sheet->owner_.OnGetObject(window, wParam, lParam); }));
        return object != 0 ? object : DefWindowProcW(window, message, wParam, lParam);
    }
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void FormSheet::OnFormSized()
{
    // Scroll bars that come and go size the form again.
    if (fitting_)
        return;
    const Scoped<bool> fitting(fitting_, true);
    RECT client = {};
    GetClientRect(form_, &client);
    const SIZE bars = {GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
    // Room without any bars; the one that a direction needs takes some of the other's.
    const SIZE room = {client.right + (HasBar(WS_VSCROLL) ? bars.cx : 0),
                       client.bottom + (HasBar(WS_HSCROLL) ? bars.cy : 0)};
    bool across = size_.cx > room.cx;
    const bool down = size_.cy > room.cy - (across ? bars.cy : 0);
    across = size_.cx > room.cx - (down ? bars.cx : 0);
    SetRange(SB_HORZ, size_.cx, room.cx - (down ? bars.cx : 0));
    SetRange(SB_VERT, size_.cy, room.cy - (across ? bars.cy : 0));
    Place();
}

bool FormSheet::HasBar(LONG style) const
{
    return (GetWindowLongPtrW(form_, GWL_STYLE) & style) != 0;
}

void FormSheet::SetRange(int bar, long whole, long seen)
{
    SCROLLINFO range = {};
    range.cbSize = sizeof(range);
    range.fMask = SIF_RANGE | SIF_PAGE;
    range.nMax = static_cast<int>(std::max(whole, 1L)) - 1;
    range.nPage = static_cast<UINT>(std::max(seen, 0L));
    SetScrollInfo(form_, bar, &range, TRUE);
}

void FormSheet::OnScroll(int bar, WORD request)
{
    const SCROLLINFO state = ScrollState(form_, bar);
    const int page = static_cast<int>(state.nPage);
    switch (request)
    {
    case SB_LINEUP:
        return ScrollTo(bar, state.nPos - Line);
    case SB_LINEDOWN:
        return ScrollTo(bar, state.nPos + Line);
    case SB_PAGEUP:
        return ScrollTo(bar, state.nPos - page);
    case SB_PAGEDOWN:
        return ScrollTo(bar, state.nPos + page);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return ScrollTo(bar, state.nTrackPos);
    case SB_TOP:
        return ScrollTo(bar, state.nMin);
    case SB_BOTTOM:
        return ScrollTo(bar, state.nMax);
    default:
        return;
    }
}

void FormSheet::OnWheel(int bar, int delta)
{
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const SCROLLINFO state = ScrollState(form_, bar);
    const int step =
        lines == WHEEL_PAGESCROLL ? static_cast<int>(state.nPage) : static_cast<int>(lines) * Line;
    ScrollTo(bar, state.nPos - MulDiv(delta, step, WHEEL_DELTA));
}

void FormSheet::Reveal(const RECT& place)
{
    ScrollTo(SB_HORZ, PositionToSee(ScrollState(form_, SB_HORZ), place.left, place.right));
    ScrollTo(SB_VERT, PositionToSee(ScrollState(form_, SB_VERT), place.top, place.bottom));
}

void FormSheet::ScrollTo(int bar, int position)
{
    SCROLLINFO state = {};
    state.cbSize = sizeof(state);
    state.fMask = SIF_POS;
    state.nPos = position; // which the system keeps within the range
    SetScrollInfo(form_, bar, &state, TRUE);
    Place();
}

void FormSheet::Place()
{
    RECT client = {};
    GetClientRect(form_, &client);
    const auto position = [&](int bar, long whole, long seen) {
        return whole > seen ? ScrollState(form_, bar).nPos : 0;
    };
    SetWindowPos(window_, nullptr, -position(SB_HORZ, size_.cx, client.right),
                 -position(SB_VERT, size_.cy, client.bottom), std::max(size_.cx, client.right),
                 std::max(size_.cy, client.bottom), SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace kiv::host
