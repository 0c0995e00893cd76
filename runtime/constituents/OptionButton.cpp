#include "runtime/constituents/OptionButton.h"

#include "runtime/drawing/Graphics.h"

namespace kiv
{

OptionButton::OptionButton(ConstituentOwner& owner, HWND parent, std::wstring_view caption) :
    Constituent(owner, parent, "BUTTON", WS_VISIBLE | WS_TABSTOP | BS_AUTORADIOBUTTON, 0)
{
    Ask(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Ansi(caption).c_str()));
}

void OptionButton::Value(bool newValue)
{
    if (value_ == newValue)
        return;
    value_ = newValue;
    Show();
    if (!value_)
        return;
    for (HWND other = GetWindow(hWnd(), GW_HWNDFIRST); other; other = GetWindow(other, GW_HWNDNEXT))
    {
        auto* const option = dynamic_cast<OptionButton*>(Of(other));
        if (!option || option == this)
            continue;
        option->value_ = false;
        option->Show();
    }
    if (OnClick)
        OnClick();
}

// Tab stops at the selected button; arrows go on from it.
void OptionButton::Show()
{
    Ask(BM_SETCHECK, value_ ? BST_CHECKED : BST_UNCHECKED);
    AnnounceForSystem(EVENT_OBJECT_STATECHANGE, hWnd());
    const LONG_PTR style = GetWindowLongPtrA(hWnd(), GWL_STYLE);
    SetWindowLongPtrA(hWnd(), GWL_STYLE, value_ ? style | WS_TABSTOP : style & ~WS_TABSTOP);
}

AccessibleInfo OptionButton::Describe(int part) const
{
    AccessibleInfo info = Constituent::Describe(part);
    info.Role = ROLE_SYSTEM_RADIOBUTTON;
    info.State |= value_ ? STATE_SYSTEM_CHECKED : 0;
    info.DefaultAction = L"Select";
    return info;
}

bool OptionButton::DoDefaultAction(int)
{
    return Enabled() && Post(BM_CLICK);
}

// By a click, an arrow or a letter. The system has shown it by then, but what has changed is decided here.
void OptionButton::Notified(WORD code)
{
    if (code == BN_CLICKED)
        Value(true);
}

} // namespace kiv
