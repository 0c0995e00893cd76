#include "host/container/Button.h"

#include "host/container/ItemOwner.h"
#include "host/container/Mnemonic.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Errors.h"

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
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(owner.Font()), FALSE);
    enabled_ = options.enabled;
    ShowAsItIs();
}

Button::~Button()
{
    DestroyWindow(window_);
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
