#include "host/container/Button.h"

#include "host/container/ItemOwner.h"
#include "host/container/Mnemonic.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Errors.h"

namespace kiv::host
{

Button::Button(ItemOwner& owner, const ButtonOptions& options) :
    FormItem(owner, options.name, options.bounds, options.tabIndex),
    options_(options),
    window_(CreateWindowExW(0, L"BUTTON", options.caption.c_str(),
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | BS_NOTIFY |
                                static_cast<DWORD>(options.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
                            options.bounds.left, options.bounds.top, SizeOf(options.bounds).cx,
                            SizeOf(options.bounds).cy, owner.Window(), nullptr, GetModuleHandleW(nullptr),
                            nullptr))
{
    if (!window_)
        ThrowLastError();
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(owner.Font()), FALSE);
    if (!options.enabled)
        SetEnabled(false);
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
        SendMessageW(Owner().Window(), WM_CLOSE, 0, 0);
}

void Button::Move(const RECT& bounds)
{
    FormItem::Move(bounds);
    MoveWindow(window_, bounds.left, bounds.top, SizeOf(bounds).cx, SizeOf(bounds).cy, TRUE);
}

void Button::SetVisible(bool visible)
{
    FormItem::SetVisible(visible);
    ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void Button::SetEnabled(bool enabled)
{
    FormItem::SetEnabled(enabled);
    EnableWindow(window_, enabled);
}

bool Button::TakesFocus() const
{
    return Visible() && Enabled();
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
