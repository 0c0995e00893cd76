// The messages of the three windows of a ChkCombo, and what it draws.

#include "controls/lists/ChkCombo.h"

#include "framework/subclass/ModuleData.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/MirroredDc.h"
#include "runtime/drawing/TwoColors.h"

namespace kiv
{

namespace
{

constexpr UINT ItemTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

HICON PictureFor(ItemIcon icon, PictureScale scale)
{
    const auto shared = [scale](Picture SharedPictures::*picture) {
        return IconOf(PictureIn(scale, picture));
    };
    switch (icon)
    {
    case ItemIcon::Partial:
        return shared(&SharedPictures::chkcmb_par);
    case ItemIcon::PartialSelected:
        return shared(&SharedPictures::chkcmb_par_sel);
    case ItemIcon::Complete:
        return shared(&SharedPictures::chkcmb_chk);
    case ItemIcon::CompleteSelected:
        return shared(&SharedPictures::chkcmb_chk_sel);
    default:
        return nullptr;
    }
}

COLORREF Resolved(const ItemColor& color)
{
    return color.IsSystem ? GetSysColor(static_cast<int>(color.Value)) : color.Value;
}

} // namespace

bool ChkCombo::Hooks(HWND hwnd) const
{
    return hwnd == cbo.hWnd() || hwnd == HScroll1.hWnd() || hwnd == TheSurface().hWnd();
}

// Errors are trapped by the service: they must not unwind through the window procedure.
LRESULT ChkCombo::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (hwnd == cbo.hWnd())
        return ComboMessage(hwnd, msg, wParam, lParam);
    if (hwnd == HScroll1.hWnd())
        return ScrollBarMessage(hwnd, msg, wParam, lParam);
    return ControlMessage(hwnd, msg, wParam, lParam);
}

LRESULT ChkCombo::ComboMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    // The focus goes on to the control, and from there to HScroll1, which tells the combo box in turn that it
    // has the focus: only once, or that would not end.
    if (msg == WM_SETFOCUS && focusDebounce_.HandsOn(GetTickCount()))
        SendMessageA(TheSurface().hWnd(), WM_SETFOCUS, 0, 0);
    const Scoped<bool> opening(leftMeanwhile_, false);
    const LRESULT result = CallPrevious(comboPrevWndProc_, hwnd, msg, wParam, lParam);
    // Whichever message opened the list: only now is it there to be closed.
    if (leftMeanwhile_)
        cbo.Close();
    return result;
}

LRESULT ChkCombo::ScrollBarMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    switch (msg)
    {
    case WM_SETFOCUS:
        cbo.Post(WM_SETFOCUS);
        break;
    case WM_KILLFOCUS: {
        // One that is still on its way would take the focus back.
        cbo.TakeBack(WM_SETFOCUS);
        SendMessageA(cbo.hWnd(), WM_KILLFOCUS, 0, 0);
        // Left for good, with the button still held down perhaps.
        if (!IsChild(TheSurface().hWnd(), reinterpret_cast<HWND>(wParam)))
            cbo.Close();
        break;
    }
    case WM_SYSKEYDOWN:
        if ((wParam == VK_DOWN || wParam == VK_UP) && TakesInput())
        {
            cbo.DropDown(!cbo.IsDropped());
            return 0;
        }
        break;
    case WM_GETDLGCODE:
        // A dialog would take Enter and Esc for its buttons.
        if (lParam != 0 && Wants(reinterpret_cast<const MSG*>(lParam)->wParam))
            return DLGC_WANTARROWS | DLGC_WANTMESSAGE;
        break;
    default:
        break;
    }
    return CallPrevious(scrollBarPrevWndProc_, hwnd, msg, wParam, lParam);
}

LRESULT ChkCombo::ControlMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    switch (msg)
    {
    case WM_SHOWWINDOW: {
        VARIANT_BOOL visible = wParam != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        VARIANT_BOOL enabled = Enabled() ? VARIANT_TRUE : VARIANT_FALSE;
        const Variant arguments[] = {Variant::ByReference(VT_BOOL, &visible),
                                     Variant::ByReference(VT_BOOL, &enabled)};
        RaiseEvent(ChkComboEvents::ActiveStateChanged, arguments);
        break;
    }
    case WM_DRAWITEM:
        if (lParam == 0)
            break;
        DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        return TRUE; // the height is left as the system computes it
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == cbo.hWnd())
            Combo_Notified(HIWORD(wParam));
        break;
    default:
        break;
    }
    return CallPrevious(controlPrevWndProc_, hwnd, msg, wParam, lParam);
}

void ChkCombo::Combo_Notified(WORD code)
{
    switch (code)
    {
    case CBN_SELCHANGE:
        Combo_SelChange();
        break;
    case CBN_DBLCLK:
        RaiseEvent(ChkComboEvents::DblClick);
        break;
    case CBN_DROPDOWN:
        choosing_ = false;
        Combo_DropDown();
        break;
    case CBN_SELENDOK:
        choosing_ = true;
        break;
    case CBN_CLOSEUP:
        Combo_CloseUp();
        break;
    default:
        break;
    }
}

void ChkCombo::Combo_SelChange()
{
    list_.PreviousIndex(HScroll1.Value());
    MoveSelection(static_cast<short>(cbo.Selected()));
    RaiseClick();
}

void ChkCombo::Combo_DropDown()
{
    const SIZE size = TheSurface().PixelSize();
    cbo.Move(0, 0, size.cx, DropDownHeight(size.cy, cbo.ItemHeight(), cbo.Count()), true);
    const bool hadFocus = TheSurface().ContainsFocus();
    Announce(EVENT_OBJECT_STATECHANGE);
    RaiseEvent(ChkComboEvents::DropDown);
    // The host may have put the control away, or have moved the focus: the list opens all the same, and is
    // not to stay. Neither is it when that happens later.
    const bool lostFocus = hadFocus && !TheSurface().ContainsFocus();
    leftMeanwhile_ = lostFocus || !IsWithinReach(TheSurface().hWnd());
    if (leftMeanwhile_)
        return;
    watch_.emplace(TheSurface().hWnd(), [this] {
        const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
        cbo.Close();
    });
}

void ChkCombo::Combo_CloseUp()
{
    watch_.reset();
    Announce(EVENT_OBJECT_STATECHANGE);
    // What the pointer merely passed over is not selected. A choice is yet to be told.
    if (!choosing_)
        FollowShift(HScroll1.Value());
    RaiseEvent(ChkComboEvents::CloseUp);
}

void ChkCombo::DrawItem(const DRAWITEMSTRUCT& item) const
{
    ComboBox::ClipTo(item);
    if ((item.itemAction & (ODA_DRAWENTIRE | ODA_SELECT)) != 0)
        DrawContent(item);
    if ((item.itemAction & ODA_FOCUS) != 0)
        DrawFocusIfFocused(item, 0);
}

void ChkCombo::DrawContent(const DRAWITEMSTRUCT& item) const
{
    const HDC dc = item.hDC;
    RECT place = item.rcItem;
    FillSolid(dc, place, GetSysColor(COLOR_WINDOW));
    const auto index = static_cast<int>(item.itemID);
    if (!list_.Holds(index))
        return;
    const std::wstring text = cbo.ItemText(index);

    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    const COLORREF background =
        selected ? GetSysColor(COLOR_HIGHLIGHT) : Resolved(ItemBackground(TheSurface().BackColor()));
    const COLORREF foreground = (item.itemState & ODS_DISABLED) != 0 ? GetSysColor(COLOR_GRAYTEXT)
                                : selected                           ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                           : Resolved(ItemForeground(TheSurface().ForeColor()));
    SetBkColor(dc, background);
    FillSolid(dc, place, background);
    SetTextColor(dc, foreground);

    const ItemIcon icon = ItemIconFor(list_.Status(index), selected);
    const PictureScale scale = PictureScaleAt(TheSurface().TheResolution());
    if (const HICON picture = PictureFor(icon, scale))
    {
        const UprightPictures upright(dc);
        DrawSign(dc,
                 {upright.LeftOf(place.left, scale.Of(ItemIconSize), scale.Of(SharedIconSize)),
                  ItemIconTop(place.top, place.bottom, scale)},
                 picture, selected ? TwoColors{background, foreground} : TwoColors{foreground, background});
    }
    place.left = ItemTextLeft(place.left, icon, scale);
    DrawTextW(dc, text.c_str(), -1, &place, ItemTextFormat);
}

} // namespace kiv
