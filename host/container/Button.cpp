#include "host/container/Button.h"

#include "host/container/ItemOwner.h"
#include "host/container/Mnemonic.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Boundary.h"
#include "runtime/core/Mnemonic.h"

#include <commctrl.h>

namespace kiv::host
{

Button::Button(ItemOwner& owner, const ButtonOptions& options) :
    FormItem(owner, options.container, options.name, options.bounds, options.tabIndex),
    options_(options),
    window_(CreateWindowExW(0, L"BUTTON", options.caption.c_str(),
                            WS_CHILD | WS_CLIPSIBLINGS | BS_NOTIFY |
                                static_cast<DWORD>(options.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
                            options.bounds.left, options.bounds.top, SizeOf(options.bounds).cx,
                            SizeOf(options.bounds).cy, owner.Page(), nullptr, GetModuleHandleW(nullptr),
                            nullptr))
{
    if (!window_)
        ThrowLastError();
    // Not every system's button says by itself what it is.
    SetWindowSubclass(window_, &Button::WindowProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(owner.Font()), FALSE);
    enabled_ = options.enabled;
    ShowAsItIs();
}

Button::~Button()
{
    RemoveWindowSubclass(window_, &Button::WindowProcedure, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK Button::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR button) noexcept
{
    LRESULT object = 0;
    if (message == WM_GETOBJECT)
        static_cast<void>(Boundary([&] {
            auto& self = *reinterpret_cast<Button*>(button);
            object = self.accessible_.Answer(self, window, window, wParam, lParam);
        }));
    return object != 0 ? object : DefSubclassProc(window, message, wParam, lParam);
}

AccessibleInfo Button::Accessible() const
{
    AccessibleInfo info = FormItem::Accessible();
    info.Role = ROLE_SYSTEM_PUSHBUTTON;
    info.Name = WithoutMnemonic(options_.caption);
    info.DefaultAction = L"Press";
    info.KeyboardShortcut = AccessKeyOf(options_.caption);
    info.State |= (CanBeUsed() ? STATE_SYSTEM_FOCUSABLE : 0) | (HasFocus() ? STATE_SYSTEM_FOCUSED : 0) |
                  (options_.isDefault ? STATE_SYSTEM_DEFAULT : 0);
    return info;
}

// Who asks does not wait for what comes of it.
bool Button::DoDefaultAction(int)
{
    return TakesFocus() && PostMessageW(window_, BM_CLICK, 0, 0);
}

bool Button::TakeAccessibleFocus(int)
{
    if (TakesFocus())
        Focus();
    return HasFocus();
}

void Button::Press()
{
    // The handler may destroy the form, and this button with it.
    if (const auto onClick = options_.onClick)
        onClick();
    else if (options_.isDefault || options_.isCancel)
        Owner().CloseBy(*this);
}

void Button::Move(const RECT& bounds)
{
    FormItem::Move(bounds);
    MoveWindow(window_, bounds.left, bounds.top, SizeOf(bounds).cx, SizeOf(bounds).cy, TRUE);
}

void Button::OnContainerChanged()
{
    FormItem::OnContainerChanged();
    ShowAsItIs();
}

void Button::ShowAsItIs()
{
    ShowWindow(window_, CanBeSeen() ? SW_SHOWNA : SW_HIDE);
    EnableWindow(window_, CanBeUsed());
}

bool Button::TakesFocus() const
{
    return CanBeSeen() && CanBeUsed();
}

bool Button::HasFocus() const
{
    return GetFocus() == window_;
}

void Button::Focus()
{
    SetFocus(window_);
}

bool Button::HasMnemonic(const MSG& message) const
{
    return TakesFocus() && HasMnemonicOf(options_.caption, message);
}

void Button::OnMnemonic(MSG&)
{
    SetFocus(window_);
    Press();
}

} // namespace kiv::host
