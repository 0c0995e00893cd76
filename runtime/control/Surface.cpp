#include "runtime/control/Surface.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/Module.h"
#include "runtime/constituents/Constituent.h"
#include "runtime/constituents/ParkingWindow.h"
#include "runtime/constituents/StrayMessage.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/BoxBorder.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/WindowResolution.h"

namespace kiv
{

namespace
{

constexpr char ClassName[] = "KivControls.UserControl";

// The window class, there while the module is.
class WindowClass
{
public:
    explicit WindowClass(WNDPROC procedure)
    {
        WNDCLASSEXA description = {};
        description.cbSize = sizeof description;
        // Content is laid out anew for each size.
        description.style = CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = procedure;
        // The surface's pointer lives here: the user-data slot belongs to the subclassing service.
        description.cbWndExtra = sizeof(Surface*);
        description.hInstance = ModuleInstance();
        description.hCursor = LoadCursorA(nullptr, reinterpret_cast<const char*>(IDC_ARROW));
        description.lpszClassName = ClassName;
        if (RegisterClassExA(&description) == 0)
            ThrowLastError();
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassA(ClassName, ModuleInstance()); }
};

} // namespace

Surface::Surface(SurfaceEvents& events, SIZE size, bool bordered) :
    events_(events), bordered_(bordered), resolution_(ResolutionOf(ParkingWindow()))
{
    Reset();
    static const WindowClass windowClass(&Surface::WndProc);
    if (!CreateWindowExA(bordered ? WS_EX_CLIENTEDGE : 0, ClassName, "",
                         WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0, size.cx, size.cy,
                         ParkingWindow(), nullptr, ModuleInstance(), this))
        ThrowLastError();
}

Surface::~Surface()
{
    if (const HWND window = std::exchange(window_, nullptr))
    {
        // From here on its messages find no surface.
        SetWindowLongPtrA(window, 0, 0);
        DestroyWindow(window);
    }
}

void Surface::Enabled(bool enabled)
{
    enabled_ = enabled;
    UpdateBorder();
}

void Surface::Reset()
{
    backColor_ = SystemColor(COLOR_BTNFACE);
    foreColor_ = SystemColor(COLOR_BTNTEXT);
    enabled_ = true;
    EnableWindow(window_, TRUE);
}

void Surface::Place(const RECT& position, const RECT& clip, bool show)
{
    const SIZE size = {position.right - position.left, position.bottom - position.top};
    RECT visible = {};
    const bool clipped = !IsRectEmpty(&clip) &&
                         (!IntersectRect(&visible, &position, &clip) || !EqualRect(&visible, &position));
    if (clipped)
    {
        // Regions count from the side that the window itself begins at.
        const bool fromOtherSide = IsMirrored() != IsSurroundingMirrored();
        OffsetRect(&visible, fromOtherSide ? position.right - visible.left - visible.right : -position.left,
                   -position.top);
        // The window takes the region over.
        SetWindowRgn(window_, CreateRectRgnIndirect(&visible), TRUE);
    }
    else if (clipped_)
    {
        SetWindowRgn(window_, nullptr, TRUE);
    }
    clipped_ = clipped;
    SetWindowPos(window_, nullptr, position.left, position.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE | (show ? UINT{SWP_SHOWWINDOW} : 0U));
}

void Surface::Show(bool shown)
{
    // What is hidden has no focus: not every system takes it from a window inside the hidden one.
    if (!shown && ContainsFocus())
        Window(GetParent(window_)).TakeFocus();
    ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE);
}

void Surface::Park()
{
    if (!window_)
        return;
    Show(false);
    MoveUnder(ParkingWindowFor(window_));
}

bool Surface::IsSurroundingMirrored() const
{
    return !IsParked(window_) && Window(GetAncestor(window_, GA_PARENT)).IsMirrored();
}

bool Surface::FollowDirection()
{
    const bool mirrored = IsSurroundingMirrored();
    if (!window_ || mirrored == IsMirrored())
        return false;
    Mirror(mirrored);
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (Constituent* const constituent = Constituent::Of(child))
            constituent->FollowDirection(mirrored);
    return true;
}

bool Surface::ContainsFocus() const
{
    const HWND focus = GetFocus();
    return window_ && focus && (focus == window_ || IsChild(window_, focus));
}

bool Surface::RenewResolution()
{
    if (!window_ || IsParked(window_))
        return false;
    const Resolution former = std::exchange(resolution_, ResolutionOf(window_));
    return resolution_ != former;
}

double Surface::ScaleWidth() const
{
    return PixelSize().cx * resolution_.TwipsPerPixelX();
}

double Surface::ScaleHeight() const
{
    return PixelSize().cy * resolution_.TwipsPerPixelY();
}

double Surface::TextWidth(std::wstring_view text) const
{
    return TextWidthInPixels(text, FontHandle()) * resolution_.TwipsPerPixelX();
}

void Surface::Resize(SIZE outerSize)
{
    SetWindowPos(window_, nullptr, 0, 0, outerSize.cx, outerSize.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Graphics Surface::AcquireGraphics(HFONT font) const
{
    const bool painting = paintDc_ != nullptr;
    return Graphics(painting ? nullptr : window_, painting ? paintDc_ : BorrowDc(),
                    font ? font : FontHandle(), ResolvedColor(foreColor_), ResolvedColor(backColor_));
}

void Surface::Paint(HDC dc)
{
    const Scoped<HDC> painting(paintDc_, dc);
    const SIZE size = PixelSize();
    const RECT whole = {0, 0, size.cx, size.cy};
    FillSolid(dc, whole, ResolvedColor(backColor_));
    events_.SurfacePaint();
}

void Surface::PaintWithConstituents(HDC dc)
{
    Paint(dc);
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    {
        const Constituent* const constituent = Constituent::Of(child);
        if (!constituent || !constituent->Visible())
            continue;
        constituent->Draw(dc, constituent->Bounds());
    }
}

void Surface::PaintWithBorder(HDC dc)
{
    if (bordered_)
    {
        const SIZE size = OuterSize();
        RECT inside = {0, 0, size.cx, size.cy};
        DrawBoxBorder(window_, dc, inside, enabled_ ? BoxState::Usual : BoxState::Disabled, HasThemeBorder());
        IntersectClipRect(dc, inside.left, inside.top, inside.right, inside.bottom);
        OffsetWindowOrgEx(dc, -inside.left, -inside.top, nullptr);
    }
    PaintWithConstituents(dc);
}

void Surface::PaintWindow()
{
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(window_, &paint);
    if (dc)
        Paint(dc);
    EndPaint(window_, &paint);
}

// Where the system's own controls have one: they look alike, and all have one constituent at least.
bool Surface::HasThemeBorder() const
{
    return bordered_ && IsThemed(GetWindow(window_, GW_CHILD));
}

bool Surface::PaintThemeBorder() const
{
    if (!HasThemeBorder())
        return false;
    const SIZE size = OuterSize();
    const BoxState state = !enabled_ || !IsWindowEnabled(window_) ? BoxState::Disabled
                           : ContainsFocus()                      ? BoxState::Focused
                                                                  : BoxState::Usual;
    const HDC dc = BorrowWholeDc();
    const bool painted = dc && DrawThemeBorder(window_, dc, {0, 0, size.cx, size.cy}, state);
    if (dc)
        ReleaseDC(window_, dc);
    return painted;
}

void Surface::UpdateBorder() const
{
    if (HasThemeBorder())
        InvalidateWithBorder();
}

LRESULT Surface::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_ERASEBKGND:
        return TRUE; // painting fills the background
    case WM_PAINT:
        PaintWindow();
        return 0;
    case WM_NCPAINT:
        if (!PaintThemeBorder())
            return events_.SurfaceMessage(window_, message, wParam, lParam);
        return 0;
    case WM_ENABLE:
        UpdateBorder();
        return events_.SurfaceMessage(window_, message, wParam, lParam);
    case WM_PRINTCLIENT:
        if (wParam != 0)
            PaintWithConstituents(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(FontHandle());
    default:
        return events_.SurfaceMessage(window_, message, wParam, lParam);
    }
}

// Nothing may unwind through a window procedure: an error ends the message, with nothing done.
LRESULT CALLBACK Surface::WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* surface = reinterpret_cast<Surface*>(GetWindowLongPtrA(window, 0));
    if (!surface)
    {
        const auto* creation = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        if (message == WM_NCCREATE && creation && creation->lpCreateParams)
        {
            surface = static_cast<Surface*>(creation->lpCreateParams);
            surface->window_ = window;
            SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(surface));
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (IsStray(message, lParam))
        return 0;
    if (message == WM_NCDESTROY)
    {
        surface->window_ = nullptr;
        SetWindowLongPtrA(window, 0, 0);
        return DefWindowProcA(window, message, wParam, lParam);
    }
    const Microsoft::WRL::ComPtr<IUnknown> held(surface->events_.SurfaceOwner());
    LRESULT result = 0;
    Boundary([&] { result = surface->Handle(message, wParam, lParam); });
    return result;
}

} // namespace kiv
