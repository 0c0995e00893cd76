#include "runtime/control/UserControl.h"

#include "runtime/constituents/KeyState.h"
#include "runtime/drawing/WindowResolution.h"

#include <windowsx.h>

namespace kiv
{

namespace
{

struct TwipsPoint
{
    double X = 0;
    double Y = 0;
};

TwipsPoint TwipsOf(LPARAM position, const Resolution& resolution)
{
    return {GET_X_LPARAM(position) * resolution.TwipsPerPixelX(),
            GET_Y_LPARAM(position) * resolution.TwipsPerPixelY()};
}

} // namespace

LRESULT UserControl::SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto key = static_cast<short>(wParam);
    if ((message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_MOUSEHOVER)
        RelayToToolTip({window, message, wParam, lParam, 0, {}});
    switch (message)
    {
    case WM_SIZE:
        FollowResolution();
        FollowWindow();
        if (hasProperties_ && !loading_)
            UserControl_Resize();
        UpdateToolTip();
        return 0;
    case DpiChanged:
    case DpiChangedAfterParent:
        // Under a new parent it comes before the place there.
        if (!activating_)
            FollowResolution();
        return 0;
    case WM_SHOWWINDOW:
        toolTip_.Close();
        break;
    case WM_SYSCOLORCHANGE:
        UserControl_SystemColorsChanged();
        Refresh();
        return 0;
    case WM_DESTROY:
        // With the container's window, or alone. The first may be left: then nothing of the control is lost.
        toolTip_.Close();
        InPlaceDeactivate();
        break;
    case WM_SETFOCUS:
        FocusGained(reinterpret_cast<HWND>(wParam));
        if (FocusWindow().hWnd() != window)
            FocusWindow().TakeFocus();
        return 0;
    case WM_KILLFOCUS:
        FocusLost(reinterpret_cast<HWND>(wParam));
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_LBUTTONDOWN:
        MousePressed(LeftButton, lParam);
        return 0;
    case WM_RBUTTONDOWN:
        MousePressed(RightButton, lParam);
        return 0;
    case WM_MBUTTONDOWN:
        MousePressed(MiddleButton, lParam);
        return 0;
    case WM_LBUTTONUP:
        MouseReleased(LeftButton, wParam, lParam);
        return 0;
    case WM_RBUTTONUP:
        MouseReleased(RightButton, wParam, lParam);
        return 0;
    case WM_MBUTTONUP:
        MouseReleased(MiddleButton, wParam, lParam);
        return 0;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        PreviewKeyDown(key);
        break;
    case WM_CHAR:
        PreviewKeyPress(key);
        return 0;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        PreviewKeyUp(key);
        break;
    case WM_GETOBJECT:
        if (const LRESULT object = *AnswerAccessible(window, wParam, lParam))
            return object;
        break;
    case WM_COMMAND:
        if (Constituent* const constituent = Constituent::In(window, lParam))
            constituent->Notified(HIWORD(wParam));
        return 0;
    case WM_HSCROLL:
        if (Constituent* const constituent = Constituent::In(window, lParam))
            constituent->Notified(LOWORD(wParam));
        return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
        if (Constituent* const constituent = Constituent::In(window, lParam))
        {
            if (const HBRUSH background = constituent->Colors(reinterpret_cast<HDC>(wParam)))
                return reinterpret_cast<LRESULT>(background);
        }
        break;
    default:
        break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// A disabled surface is deaf, and a form being designed is not being answered.
bool UserControl::TakesInput() const
{
    return surface_.Enabled() && hasProperties_ && ambient_.UserMode();
}

void UserControl::PreviewKeyDown(short& keyCode)
{
    if (TakesInput())
        UserControl_KeyDown(keyCode, ShiftState());
    else
        keyCode = 0;
}

void UserControl::PreviewKeyPress(short& keyAscii)
{
    if (TakesInput())
        UserControl_KeyPress(keyAscii);
    else
        keyAscii = 0;
}

void UserControl::PreviewKeyUp(short& keyCode)
{
    if (TakesInput())
        UserControl_KeyUp(keyCode, ShiftState());
    else
        keyCode = 0;
}

void UserControl::ConstituentFocus(bool gained, HWND other)
{
    if (gained)
        FocusGained(other);
    else
        FocusLost(other);
}

void UserControl::MousePressed(short button, LPARAM position)
{
    if (!TakesInput())
        return;
    TakeFocus();
    surface_.TakeMouse();
    const TwipsPoint point = TwipsOf(position, surface_.TheResolution());
    UserControl_MouseDown(button, ShiftState(), point.X, point.Y);
}

void UserControl::MouseReleased(short button, WPARAM keys, LPARAM position)
{
    if (GetCapture() == surface_.hWnd() && (keys & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) == 0)
        ReleaseCapture();
    if (!TakesInput())
        return;
    const TwipsPoint point = TwipsOf(position, surface_.TheResolution());
    UserControl_MouseUp(button, ShiftState(), point.X, point.Y);
}

bool UserControl::IsOwn(HWND window) const
{
    return window && (window == surface_.hWnd() || IsChild(surface_.hWnd(), window));
}

// Told once for each time, however often a window of the control hears that it has the focus: a control may
// send such messages among its own windows.
void UserControl::FocusGained(HWND from)
{
    surface_.UpdateBorder();
    if (IsOwn(from))
        return;
    const bool returns = away_.has_value();
    away_.reset();
    if (std::exchange(hasFocus_, true) && !returns)
        return;
    // A focus that came by a click or a Tab key makes the control the active one.
    if (activity_ == Activity::InPlace && ambient_.UserMode())
        ActivateUi();
    if (returns)
        return;
    UserControl_EnterFocus();
    if (controlSite_)
        Microsoft::WRL::ComPtr<IOleControlSite>(controlSite_)->OnFocus(TRUE);
}

void UserControl::FocusLost(HWND to)
{
    surface_.UpdateBorder();
    if (IsOwn(to) || surface_.ContainsFocus() || !hasFocus_)
        return;
    if (LeavesFor(to))
        Leave();
    else if (!away_)
        away_.emplace([this](HWND next) { FocusGoes(next); });
}

// While another window is in front: it comes back, perhaps by way of a window around the control, or it goes
// elsewhere in the form after all.
void UserControl::FocusGoes(HWND next)
{
    const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
    if (next && !IsOwn(next) && !IsChild(next, surface_.hWnd()) && LeavesFor(next))
        Leave();
}

// Whether the control is left when the focus goes to a window: one of its own form, or none although the form
// stays in front, as when the control is disabled.
bool UserControl::LeavesFor(HWND window) const
{
    return window ? FormOf(window) == FormOf(surface_.hWnd())
                  : GetActiveWindow() == GetAncestor(surface_.hWnd(), GA_ROOT);
}

void UserControl::Leave()
{
    away_.reset();
    if (!std::exchange(hasFocus_, false))
        return;
    UserControl_ExitFocus();
    if (controlSite_)
        Microsoft::WRL::ComPtr<IOleControlSite>(controlSite_)->OnFocus(FALSE);
}

} // namespace kiv
