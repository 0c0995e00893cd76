#include "runtime/constituents/Constituent.h"

#include "runtime/access/WindowText.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/PerThread.h"
#include "runtime/constituents/ParkingWindow.h"
#include "runtime/constituents/StrayMessage.h"
#include "runtime/core/Mnemonic.h"

#include <wrl/client.h>

#include <unordered_map>

namespace kiv
{

namespace
{

// Lead from windows to their constituents. Not the user-data slot, which belongs to the subclassing service,
// and not a window property, whose reading costs more than all else that is done for a message.
struct Constituents
{
    std::unordered_map<HWND, Constituent*> ByWindow;
};

RECT InsideOf(HWND parent)
{
    RECT inside = {};
    GetClientRect(parent, &inside);
    return inside;
}

} // namespace

Constituent::Constituent(ConstituentOwner& owner, HWND parent, const char* windowClass, DWORD style,
                         DWORD extendedStyle) :
    Constituent(owner, parent, windowClass, style, extendedStyle, InsideOf(parent))
{
}

Constituent::Constituent(ConstituentOwner& owner, HWND parent, const char* windowClass, DWORD style,
                         DWORD extendedStyle, const RECT& place) :
    Window(CreateWindowExA(extendedStyle, windowClass, "", WS_CHILD | style, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                           nullptr)),
    owner_(owner)
{
    if (!window_)
        ThrowLastError();
    PerThread<Constituents>().ByWindow[window_] = this;
    // The system's controls keep their texts in Unicode, whatever the window is. Sent to one that is ANSI, or
    // handed to previous_, a text is taken into the code page and back; handed to the class's own procedure
    // as Unicode windows know it, it is not.
    widePrevious_ = reinterpret_cast<WNDPROC>(GetClassLongPtrW(window_, GCLP_WNDPROC));
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Constituent::WndProc)));
}

Constituent::~Constituent()
{
    if (!window_)
        return;
    const HWND window = window_;
    Forget(window);
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
    DestroyWindow(window);
}

// The constituent may be gone by now, or just going.
void Constituent::Forget(HWND window) noexcept
{
    if (Constituent* const constituent = Of(window))
        constituent->window_ = nullptr;
    PerThread<Constituents>().ByWindow.erase(window);
}

Constituent* Constituent::Of(HWND window)
{
    const auto& constituents = PerThread<Constituents>().ByWindow;
    const auto found = constituents.find(window);
    return found == constituents.end() ? nullptr : found->second;
}

Constituent* Constituent::In(HWND parent, LPARAM window)
{
    const auto child = reinterpret_cast<HWND>(window);
    Constituent* const constituent = Of(child);
    return constituent && GetAncestor(child, GA_PARENT) == parent ? constituent : nullptr;
}

bool Constituent::Enabled() const
{
    return IsWindowEnabled(window_) != FALSE;
}

void Constituent::Enabled(bool enabled)
{
    EnableWindow(window_, enabled);
}

bool Constituent::Visible() const
{
    return (GetWindowLongPtrA(window_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void Constituent::Visible(bool visible)
{
    ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void Constituent::Font(HFONT font)
{
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void Constituent::HelpContextID(long topic)
{
    SetWindowContextHelpId(window_, static_cast<DWORD>(topic));
}

void Constituent::Place(const RECT& place, bool repaint)
{
    const RECT former = Bounds();
    if (!EqualRect(&place, &former))
        SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0U : UINT{SWP_NOREDRAW}));
}

LRESULT Constituent::Ask(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return window_ ? CallWindowProcA(previous_, window_, message, wParam, lParam) : 0;
}

LRESULT Constituent::AskWide(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return window_ ? CallWindowProcW(widePrevious_, window_, message, wParam, lParam) : 0;
}

void Constituent::Notified(WORD) {}

void Constituent::Draw(HDC dc, const RECT& place) const
{
    POINT former = {};
    OffsetWindowOrgEx(dc, -place.left, -place.top, &former);
    SendMessageA(window_, WM_PRINT, reinterpret_cast<WPARAM>(dc),
                 PRF_NONCLIENT | PRF_CLIENT | PRF_ERASEBKGND | PRF_CHILDREN);
    SetWindowOrgEx(dc, former.x, former.y, nullptr);
}

HBRUSH Constituent::Colors(HDC)
{
    return nullptr;
}

bool Constituent::Received(UINT, WPARAM, LPARAM)
{
    return false;
}

LRESULT Constituent::AnswerAccessible(WPARAM wParam, LPARAM lParam)
{
    if (const std::optional<LRESULT> answer = owner_.AnswerAccessible(window_, wParam, lParam))
        return *answer;
    return accessible_.Answer(*this, window_, window_, wParam, lParam);
}

// What can be seen of any window.
AccessibleInfo Constituent::Describe(int) const
{
    AccessibleInfo info;
    GetWindowRect(window_, &info.Place);
    info.State = IsWindowVisible(window_) ? 0 : STATE_SYSTEM_INVISIBLE;
    info.State |= IsWindowEnabled(window_) ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE;
    if (GetFocus() == window_)
        info.State |= STATE_SYSTEM_FOCUSED;
    return info;
}

std::wstring Constituent::NameOf(int) const
{
    return WithoutMnemonic(CaptionOf(window_));
}

bool Constituent::TakeAccessibleFocus(int)
{
    TakeFocus();
    return GetFocus() == window_;
}

// Returns true when the message goes no further. A key may go on as another one.
bool Constituent::Handle(UINT message, WPARAM& wParam, LPARAM lParam)
{
    auto key = static_cast<short>(wParam);
    switch (message)
    {
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
        // With Alt: while the control is deaf they are the form's all the same (its menu, its closing).
        if (!owner_.TakesInput())
            return Received(message, wParam, lParam);
        message == WM_SYSKEYDOWN ? owner_.PreviewKeyDown(key) : owner_.PreviewKeyUp(key);
        break;
    case WM_KEYDOWN:
        owner_.PreviewKeyDown(key);
        break;
    case WM_CHAR:
        owner_.PreviewKeyPress(key);
        break;
    case WM_KEYUP:
        owner_.PreviewKeyUp(key);
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
        return !owner_.TakesInput() || Received(message, wParam, lParam);
    case WM_DESTROY:
        // The container's window may go without this one.
        return IsParked(GetParent(window_)) || Received(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        owner_.ConstituentFocus(message == WM_SETFOCUS, reinterpret_cast<HWND>(wParam));
        return Received(message, wParam, lParam);
    default:
        return Received(message, wParam, lParam);
    }
    wParam = static_cast<WPARAM>(static_cast<WORD>(key));
    return key == 0 || Received(message, wParam, lParam);
}

// Nothing may unwind through a window procedure: an error leaves the message to the system's control.
LRESULT CALLBACK Constituent::WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    Constituent* constituent = nullptr;
    Boundary([&] { constituent = Of(window); });
    if (!constituent)
        return DefWindowProcA(window, message, wParam, lParam);
    if (IsStray(message, lParam))
        return 0;
    const WNDPROC previous = constituent->previous_;
    const Microsoft::WRL::ComPtr<IUnknown> held(constituent->owner_.ConstituentHolder());
    if (message == WM_NCDESTROY)
    {
        // The system's control may still send messages, to itself and to its parent.
        const LRESULT result = CallWindowProcA(previous, window, message, wParam, lParam);
        Forget(window);
        return result;
    }
    if (message == WM_GETOBJECT)
    {
        LRESULT answer = 0;
        Boundary([&] { answer = constituent->AnswerAccessible(wParam, lParam); });
        return answer != 0 ? answer : CallWindowProcA(previous, window, message, wParam, lParam);
    }
    bool handled = false;
    Boundary([&] { handled = constituent->Handle(message, wParam, lParam); });
    return handled ? 0 : CallWindowProcA(previous, window, message, wParam, lParam);
}

} // namespace kiv
