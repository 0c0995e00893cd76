#include "runtime/form/Form.h"

#include "runtime/access/WindowText.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/Module.h"
#include "runtime/constituents/CommandButton.h"
#include "runtime/constituents/StrayMessage.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/WindowResolution.h"

#include <algorithm>
#include <utility>

namespace kiv
{

namespace
{

constexpr wchar_t ClassName[] = L"KivControls.Form";
constexpr DWORD Style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
constexpr DWORD ExtendedStyle = WS_EX_DLGMODALFRAME;

// The window class, there while the module is. In Unicode, other than the surface's: the caption is the
// host's, with letters that the code page may lack.
class WindowClass
{
public:
    explicit WindowClass(WNDPROC procedure)
    {
        WNDCLASSEXW description = {};
        description.cbSize = sizeof description;
        description.lpfnWndProc = procedure;
        description.cbWndExtra = sizeof(Form*);
        description.hInstance = ModuleInstance();
        description.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
        description.lpszClassName = ClassName;
        if (RegisterClassExW(&description) == 0)
            ThrowLastError();
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(ClassName, ModuleInstance()); }
};

} // namespace

// --- Loading ---

Form::Loaded::Loaded(Form& form, HWND owner, std::wstring_view caption) : form_(form)
{
    try
    {
        form_.Load(owner, caption);
    }
    catch (...)
    {
        form_.Destroy();
        throw;
    }
}

Form::Loaded::~Loaded()
{
    form_.Destroy();
}

Form::~Form()
{
    Destroy();
}

void Form::Load(HWND owner, std::wstring_view caption)
{
    static const WindowClass windowClass(&Form::WndProc);
    owner_ = owner;
    unloaded_ = false;
    // On the owner's part of the screen, whose resolution it then has.
    RECT over = {};
    GetWindowRect(owner, &over);
    const DWORD direction = Window(owner).IsMirrored() ? WS_EX_LAYOUTRTL : 0;
    if (!CreateWindowExW(ExtendedStyle | direction, ClassName, std::wstring(caption).c_str(), Style,
                         over.left, over.top, 0, 0, owner, nullptr, ModuleInstance(), this))
        ThrowLastError();
    const Resolution resolution = ResolutionOf(window_);
    const SIZE inner = {resolution.PixelsX(innerWidth_), resolution.PixelsY(innerHeight_)};
    ResizeInside(inner);
    surface_.emplace(static_cast<SurfaceEvents&>(*this), inner, false);
    surface_->MoveUnder(window_);
    surface_->FollowDirection();
    surface_->RenewResolution();
    surface_->Place({0, 0, inner.cx, inner.cy}, {}, true);
    Form_Load();
}

// The frame is as wide as the system has it at the window's resolution.
void Form::ResizeInside(SIZE size)
{
    RECT outer = {0, 0, size.cx, size.cy};
    AdjustWindowRectEx(&outer, Style, FALSE, ExtendedStyle);
    SIZE needed = {outer.right - outer.left, outer.bottom - outer.top};
    const auto resize = [&] {
        SetWindowPos(window_, nullptr, 0, 0, needed.cx, needed.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    resize();
    const SIZE got = Window(window_).InnerSize();
    needed = {needed.cx + size.cx - got.cx, needed.cy + size.cy - got.cy};
    resize();
}

void Form::Destroy() noexcept
{
    accessible_.reset();
    Form_Unload();
    surface_.reset();
    focus_ = nullptr;
    if (const HWND window = std::exchange(window_, nullptr))
    {
        // From here on its messages find no form.
        SetWindowLongPtrW(window, 0, 0);
        DestroyWindow(window);
    }
}

// --- Size and controls ---

double Form::OuterWidth() const
{
    RECT outer = {};
    GetWindowRect(window_, &outer);
    return (outer.right - outer.left) * TheResolution().TwipsPerPixelX();
}

void Form::OuterWidth(double width)
{
    RECT outer = {};
    GetWindowRect(window_, &outer);
    SetWindowPos(window_, nullptr, 0, 0, TheResolution().PixelsX(width), outer.bottom - outer.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

FormPlace Form::PlaceOf(const Constituent& control) const
{
    const RECT place = control.Bounds();
    const double x = TheResolution().TwipsPerPixelX();
    const double y = TheResolution().TwipsPerPixelY();
    return {place.left * x, place.top * y, (place.right - place.left) * x, (place.bottom - place.top) * y};
}

void Form::Move(const Constituent& control, const FormPlace& place) const
{
    SetWindowPos(control.hWnd(), nullptr, TheResolution().PixelsX(place.Left),
                 TheResolution().PixelsY(place.Top), TheResolution().PixelsX(place.Width),
                 TheResolution().PixelsY(place.Height), SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::Move(Label& label, const FormPlace& place) const
{
    label.Move(TheResolution().PixelsX(place.Left), TheResolution().PixelsY(place.Top),
               TheResolution().PixelsX(place.Width), TheResolution().PixelsY(place.Height));
}

// The numbers by which the system's dialog keys know the two buttons.
void Form::DefaultButton(const CommandButton& button)
{
    SetWindowLongPtrA(button.hWnd(), GWLP_ID, IDOK);
    SendMessageA(button.hWnd(), BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE);
}

void Form::CancelButton(const CommandButton& button)
{
    SetWindowLongPtrA(button.hWnd(), GWLP_ID, IDCANCEL);
}

// --- On the screen ---

void Form::ShowModal(const std::function<void(bool enabled)>& tellOwner)
{
    if (!window_ || unloaded_)
        return;
    const HWND formerFocus = GetFocus();
    Center();
    Form_Resize();
    tellOwner_ = tellOwner;
    const Scoped<bool> shown(shown_, true);
    if (tellOwner_)
        tellOwner_(false);
    // A container that has disabled the window by itself is left to enable it as well.
    ownerDisabled_ = owner_ && IsWindowEnabled(owner_);
    if (ownerDisabled_)
        EnableWindow(owner_, FALSE);
    ShowWindow(window_, SW_SHOW);
    TakeFocus();
    RunLoop();
    Unload();
    if (IsWindow(formerFocus) && IsWindowEnabled(owner_) && IsWindowVisible(formerFocus))
        Window(formerFocus).TakeFocus();
}

// Enabled again before the form goes, the owner is what the system activates next.
void Form::Unload()
{
    if (std::exchange(unloaded_, true) || !shown_)
        return;
    if (const auto tellOwner = std::exchange(tellOwner_, nullptr))
        tellOwner(true);
    if (std::exchange(ownerDisabled_, false))
        EnableWindow(owner_, TRUE);
    if (window_)
        ShowWindow(window_, SW_HIDE);
    // Wakes the loop: this may have been called by a message that another thread sent.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void Form::RunLoop()
{
    MSG message = {};
    while (window_ && !unloaded_)
    {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == -1)
            return;
        if (got == 0)
        {
            // The end of the program is the host's own loop's to act on.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!IsDialogMessageW(surface_->hWnd(), &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

// Over the middle of its owner, as far as the screen allows.
void Form::Center()
{
    RECT place = {};
    GetWindowRect(window_, &place);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& screen = monitor.rcWork;
    RECT middle = screen;
    if (owner_ && !IsIconic(owner_))
        GetWindowRect(owner_, &middle);
    const LONG left = std::min((middle.left + middle.right - width) / 2, screen.right - width);
    const LONG top = std::min((middle.top + middle.bottom - height) / 2, screen.bottom - height);
    SetWindowPos(window_, nullptr, std::max(left, screen.left), std::max(top, screen.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// To the control that had it last, at first to the first one in tab order.
void Form::TakeFocus()
{
    if (!surface_)
        return;
    if (!focus_ || !IsWindow(focus_))
        focus_ = GetNextDlgTabItem(surface_->hWnd(), nullptr, FALSE);
    Window(focus_).TakeFocus();
}

void Form::ConstituentFocus(bool gained, HWND)
{
    if (gained)
        focus_ = GetFocus();
}

// --- For assistive tools ---

LRESULT Form::AnswerFor(HWND window, WPARAM wParam, LPARAM lParam)
{
    if (!accessible_ && surface_)
        accessible_.emplace();
    return accessible_ ? accessible_->Answer(*this, window, window_, wParam, lParam) : 0;
}

AccessibleInfo Form::Describe(int) const
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_DIALOG;
    GetWindowRect(window_, &info.Place);
    info.State = STATE_SYSTEM_FOCUSABLE | (IsWindowVisible(window_) ? 0 : STATE_SYSTEM_INVISIBLE);
    return info;
}

std::wstring Form::NameOf(int) const
{
    return CaptionOf(window_);
}

int Form::PartCount() const
{
    int count = 0;
    while (WindowOf(count + 1))
        ++count;
    return count;
}

int Form::FocusedPart() const
{
    const HWND focus = GetFocus();
    int part = 1;
    for (HWND window = WindowOf(part); window; window = WindowOf(++part))
        if (window == focus || IsChild(window, focus))
            return part;
    return 0;
}

// In tab order.
HWND Form::WindowOf(int part) const
{
    HWND window = surface_ ? GetWindow(surface_->hWnd(), GW_CHILD) : nullptr;
    for (int at = 1; window && at < part; ++at)
        window = GetWindow(window, GW_HWNDNEXT);
    return part > 0 ? window : nullptr;
}

// --- Messages ---

LRESULT Form::SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_COMMAND:
        if (Constituent* const constituent = Constituent::In(window, lParam))
            constituent->Notified(HIWORD(wParam));
        return 0;
    case WM_GETOBJECT:
        if (const LRESULT object = AnswerFor(window, wParam, lParam))
            return object;
        return DefWindowProcA(window, message, wParam, lParam);
    case DM_GETDEFID:
        return MAKELRESULT(IDOK, DC_HASDEFID);
    case WM_SETFOCUS:
        TakeFocus();
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

// The surface fills the window, as large as that is by now.
void Form::Resized()
{
    RECT inside = {};
    GetClientRect(window_, &inside);
    if (surface_)
        surface_->Place(inside, {}, true);
    if (shown_)
        Form_Resize();
}

// suggested: where the system would have the window, of the same size in inches; may be null.
void Form::FollowResolution(const RECT* suggested)
{
    if (!surface_ || !surface_->RenewResolution())
        return;
    Form_ResolutionChanged();
    if (suggested)
        SetWindowPos(window_, nullptr, suggested->left, suggested->top, suggested->right - suggested->left,
                     suggested->bottom - suggested->top, SWP_NOZORDER | SWP_NOACTIVATE);
    if (shown_)
        Form_Resize();
    surface_->Invalidate();
}

LRESULT Form::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SIZE:
        Resized();
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE || HIWORD(wParam) != 0)
            break;
        TakeFocus();
        return 0;
    case DpiChanged:
        FollowResolution(reinterpret_cast<const RECT*>(lParam));
        return 0;
    case WM_CLOSE:
        Form_QueryUnload();
        return 0;
    case WM_GETOBJECT:
        if (const LRESULT object = AnswerFor(window_, wParam, lParam))
            return object;
        break;
    default:
        break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

// Nothing may unwind through a window procedure: an error ends the message, with nothing done.
LRESULT CALLBACK Form::WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, 0));
    if (!form)
    {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        if (message == WM_NCCREATE && creation && creation->lpCreateParams)
        {
            form = static_cast<Form*>(creation->lpCreateParams);
            form->window_ = window;
            SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(form));
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (IsStray(message, lParam))
        return 0;
    if (message == WM_NCDESTROY)
    {
        // The owner has gone and has taken its window with it.
        form->window_ = nullptr;
        Boundary([&] { form->Unload(); });
        return DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    Boundary([&] { result = form->Handle(message, wParam, lParam); });
    return result;
}

} // namespace kiv
