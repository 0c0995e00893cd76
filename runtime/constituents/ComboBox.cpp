#include "runtime/constituents/ComboBox.h"

#include "runtime/com/Errors.h"
#include "runtime/com/Wine.h"
#include "runtime/drawing/Graphics.h"
#include "runtime/drawing/MirroredDc.h"
#include "runtime/drawing/WindowResolution.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr WPARAM SelectionField = static_cast<WPARAM>(-1);

} // namespace

ComboBox::ComboBox(ConstituentOwner& owner, HWND parent) :
    Constituent(owner, parent, "COMBOBOX",
                WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                0),
    leastItemHeight_(ItemHeight()),
    leastFieldHeight_(static_cast<int>(Ask(CB_GETITEMHEIGHT, SelectionField))),
    madeAt_(ResolutionOf(hWnd())),
    resolution_(madeAt_)
{
}

int ComboBox::Count() const
{
    return static_cast<int>(Ask(CB_GETCOUNT));
}

std::wstring ComboBox::ItemText(int index) const
{
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = AskWide(CB_GETLBTEXTLEN, item, 0);
    if (length <= 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = AskWide(CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, length)));
    return text;
}

long ComboBox::ItemData(int index) const
{
    return static_cast<long>(Ask(CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

void ComboBox::ItemData(int index, long data)
{
    Ask(CB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int ComboBox::Insert(const std::wstring& text, int index)
{
    const LRESULT inserted =
        AskWide(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
    if (inserted < 0)
        throw ComError(E_OUTOFMEMORY);
    return static_cast<int>(inserted);
}

void ComboBox::Remove(int index)
{
    Ask(CB_DELETESTRING, static_cast<WPARAM>(index));
}

void ComboBox::Clear()
{
    Ask(CB_RESETCONTENT);
}

int ComboBox::Find(const std::wstring& beginning, int index) const
{
    return static_cast<int>(
        AskWide(CB_FINDSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(beginning.c_str())));
}

int ComboBox::Selected() const
{
    return static_cast<int>(Ask(CB_GETCURSEL));
}

void ComboBox::Select(int index)
{
    Ask(CB_SETCURSEL, static_cast<WPARAM>(index));
}

bool ComboBox::IsDropped() const
{
    return Ask(CB_GETDROPPEDSTATE) != 0;
}

void ComboBox::DropDown(bool shown)
{
    SendMessageA(hWnd(), CB_SHOWDROPDOWN, shown, 0);
}

void ComboBox::Close()
{
    if (IsDropped())
        DropDown(false);
    ReleaseMouse();
}

void ComboBox::ReleaseMouse() const
{
    const HWND holder = GetCapture();
    if (holder && (holder == hWnd() || holder == List()))
        ReleaseCapture();
}

void ComboBox::Move(int left, int top, int width, int height, bool repaint)
{
    const RECT place = {left, top, left + width, top + height};
    const RECT bounds = Bounds();
    // The system takes several steps for each, even where it is.
    if (EqualRect(&place, &place_) && bounds.left == left && bounds.top == top &&
        bounds.right - bounds.left == width)
        return;
    place_ = place;
    MoveWindow(hWnd(), left, top, width, height, repaint);
}

int ComboBox::ClosedHeight() const
{
    return InnerSize().cy;
}

int ComboBox::ItemHeight() const
{
    return static_cast<int>(Ask(CB_GETITEMHEIGHT, 0));
}

int ComboBox::LeastHeight(int asMade) const
{
    return MulDiv(asMade, resolution_.Y, madeAt_.Y);
}

void ComboBox::Font(HFONT font)
{
    Constituent::Font(font);
    const int line = LineHeightInPixels(font);
    Ask(CB_SETITEMHEIGHT, 0, std::max(LeastHeight(leastItemHeight_), line));
    Ask(CB_SETITEMHEIGHT, SelectionField, std::max(LeastHeight(leastFieldHeight_), line));
}

bool ComboBox::Received(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_LBUTTONDBLCLK:
        // Wine's combo box opens at the first of two quick clicks only, when Esc closed the list between
        // them.
        Ask(WM_LBUTTONDOWN, wParam, lParam);
        return true;
    case WM_LBUTTONUP:
        Ask(message, wParam, lParam);
        // Wine's combo box gives the mouse to its list when a press on it ends, though the list may have
        // closed.
        if (!IsDropped())
            ReleaseMouse();
        return true;
    default:
        return false;
    }
}

RECT ComboBox::ListPlace() const
{
    RECT place = {};
    GetWindowRect(List(), &place);
    return place;
}

RECT ComboBox::ItemPlace(int index) const
{
    const HWND list = List();
    RECT place = {};
    SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

HWND ComboBox::List() const
{
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    return GetComboBoxInfo(hWnd(), &information) ? information.hwndList : nullptr;
}

// Wine's mirrored combo box clips its field as if the arrow were at the right.
void ComboBox::ClipTo(const DRAWITEMSTRUCT& item)
{
    if ((item.itemState & ODS_COMBOBOXEDIT) == 0 || !DrawsMirrored(item.hDC) ||
        WindowFromDC(item.hDC) != item.hwndItem || !RunsOnWine())
        return;
    SelectClipRgn(item.hDC, nullptr);
    IntersectClipRect(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
}

void ComboBox::FollowDirection(bool mirrored)
{
    Mirror(mirrored);
    Window(List()).Mirror(mirrored);
}

void ComboBox::RepaintItem(int index)
{
    if (index == Selected())
        Invalidate();
    if (!IsDropped())
        return;
    const HWND list = List();
    RECT place = {};
    if (SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place)) !=
        LB_ERR)
        Window(list).Invalidate(place);
}

// Around the items, disabled or not.
HBRUSH ComboBox::Colors(HDC)
{
    return GetSysColorBrush(COLOR_WINDOW);
}

void ComboBox::Draw(HDC dc, const RECT& place) const
{
    RECT inside = place;
    DrawEdge(dc, &inside, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    RECT button = inside;
    button.left = std::max(inside.left, inside.right - SystemMetric(SM_CXVSCROLL, resolution_));
    DrawFrameControl(dc, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | (Enabled() ? 0U : UINT{DFCS_INACTIVE}));
    inside.right = button.left;

    FillSolid(dc, inside, GetSysColor(COLOR_WINDOW));
    InflateRect(&inside, -1, -1);
    const Graphics graphics(nullptr, dc, reinterpret_cast<HFONT>(Ask(WM_GETFONT)),
                            GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
    IntersectClipRect(dc, inside.left, inside.top, inside.right, inside.bottom);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_COMBOBOX;
    item.itemID = static_cast<UINT>(Selected());
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_COMBOBOXEDIT | (Enabled() ? 0U : UINT{ODS_DISABLED});
    item.hwndItem = hWnd();
    item.hDC = dc;
    item.rcItem = inside;
    // The parent draws, as it does for the combo box's window.
    SendMessageA(GetParent(hWnd()), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
}

} // namespace kiv
