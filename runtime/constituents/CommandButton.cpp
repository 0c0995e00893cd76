#include "runtime/constituents/CommandButton.h"

#include "runtime/core/Mnemonic.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/Graphics.h"

namespace kiv
{

CommandButton::CommandButton(ConstituentOwner& owner, HWND parent, std::wstring_view caption) :
    Constituent(owner, parent, "BUTTON", WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0)
{
    Caption(caption);
}

void CommandButton::Caption(std::wstring_view caption)
{
    caption_ = caption;
    Ask(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Ansi(caption).c_str()));
}

void CommandButton::Value(bool newValue)
{
    if (!newValue)
        return;
    const Scoped<bool> pressed(value_, true);
    if (OnClick)
        OnClick();
}

void CommandButton::Move(int left, int top, int width, int height, bool repaint)
{
    Place({left, top, left + width, top + height}, repaint);
}

void CommandButton::Notified(WORD code)
{
    if (code == BN_CLICKED)
        Value(true);
}

AccessibleInfo CommandButton::Describe(int part) const
{
    AccessibleInfo info = Constituent::Describe(part);
    info.Role = ROLE_SYSTEM_PUSHBUTTON;
    info.DefaultAction = L"Press";
    return info;
}

std::wstring CommandButton::NameOf(int) const
{
    return WithoutMnemonic(caption_);
}

// Who asks does not wait for what comes of it.
bool CommandButton::DoDefaultAction(int)
{
    return Enabled() && Post(BM_CLICK);
}

void CommandButton::Draw(HDC dc, const RECT& place) const
{
    const auto font = reinterpret_cast<HFONT>(Ask(WM_GETFONT));
    if ((GetWindowLongPtrA(hWnd(), GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW)
    {
        // The parent draws, as it does for the button's window.
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_BUTTON;
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = Enabled() ? 0U : UINT{ODS_DISABLED};
        item.hwndItem = hWnd();
        item.hDC = dc;
        item.rcItem = place;
        SendMessageA(GetParent(hWnd()), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
        return;
    }
    RECT inside = place;
    DrawFrameControl(dc, &inside, DFC_BUTTON, DFCS_BUTTONPUSH);
    const Graphics graphics(nullptr, dc, font, GetSysColor(Enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT),
                            GetSysColor(COLOR_BTNFACE));
    DrawTextA(dc, Ansi(caption_).c_str(), -1, &inside, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

bool CommandButton::Received(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_KEYDOWN && wParam == VK_RETURN)
    {
        Value(true);
        return true;
    }
    if (message == WM_SYSKEYDOWN && wParam == VK_DOWN && OnDropDown)
    {
        // The system first, which takes an Alt that it saw nothing come between for the menu's.
        Ask(message, wParam, lParam);
        OnDropDown();
        return true;
    }
    if (message == WM_LBUTTONDBLCLK)
    {
        // The second of two quick clicks is one like the first; an owner-drawn button would take it for a
        // double click and do nothing.
        Ask(WM_LBUTTONDOWN, wParam, lParam);
        return true;
    }
    return false;
}

} // namespace kiv
