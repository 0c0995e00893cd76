#include "runtime/constituents/ListBox.h"

#include "runtime/drawing/Graphics.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kiv
{

namespace
{

// The system measures and draws an item's whole text each time, of which no screen shows more than this.
constexpr std::size_t LongestShown = 4096;

} // namespace

// The list ends where its place does, with part of an item if need be.
ListBox::ListBox(ConstituentOwner& owner, HWND parent) :
    Constituent(owner, parent, "LISTBOX",
                WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_USETABSTOPS |
                    LBS_NOINTEGRALHEIGHT,
                WS_EX_CLIENTEDGE)
{
}

int ListBox::AddItem(std::wstring text)
{
    ReserveRoom();
    const std::wstring beginning =
        text.size() <= LongestShown ? std::wstring() : text.substr(0, LongestShown);
    const std::wstring& shown = beginning.empty() ? text : beginning;
    // Most texts are the same in every code page, and Wine's list on the screen takes several times as long
    // for a wide one.
    const bool isPlain = std::ranges::all_of(shown, [](wchar_t character) { return character < 0x80; });
    const LRESULT index = isPlain ? Ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Ansi(shown).c_str()))
                                  : AskWide(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
    if (index < 0)
        throw std::bad_alloc();
    texts_.push_back(std::move(text));
    return static_cast<int>(index);
}

// Twice as many each time: left to itself the window makes room for a few more again and again, and moves all
// items each time.
void ListBox::ReserveRoom()
{
    constexpr std::size_t few = 64;
    if (texts_.size() < std::max(reserved_, few))
        return;
    reserved_ = 2 * texts_.size();
    Ask(LB_INITSTORAGE, texts_.size());
}

void ListBox::Clear()
{
    Ask(LB_RESETCONTENT);
    texts_.clear();
    reserved_ = 0;
}

std::wstring_view ListBox::List(int index) const
{
    return index >= 0 && index < ListCount() ? std::wstring_view(texts_[static_cast<std::size_t>(index)])
                                             : std::wstring_view();
}

int ListBox::ItemData(int index) const
{
    return static_cast<int>(Ask(LB_GETITEMDATA, static_cast<WPARAM>(index)));
}

void ListBox::ItemData(int index, int data)
{
    Ask(LB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int ListBox::ListIndex() const
{
    return static_cast<int>(Ask(LB_GETCURSEL));
}

void ListBox::ListIndex(int index)
{
    Ask(LB_SETCURSEL, static_cast<WPARAM>(index));
    AnnounceSelection();
}

void ListBox::AnnounceSelection() const
{
    const int item = ListIndex() + 1;
    if (GetFocus() == hWnd())
        AnnounceForSystem(EVENT_OBJECT_FOCUS, hWnd(), item);
    AnnounceForSystem(EVENT_OBJECT_SELECTION, hWnd(), item);
}

int ListBox::TopIndex() const
{
    return static_cast<int>(Ask(LB_GETTOPINDEX));
}

void ListBox::TopIndex(int index)
{
    Ask(LB_SETTOPINDEX, static_cast<WPARAM>(index));
}

void ListBox::TabStop(int dialogUnits)
{
    Ask(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&dialogUnits));
}

ListBox::Batch::Batch(const ListBox& list) : list_(list)
{
    list_.Ask(WM_SETREDRAW, FALSE);
}

ListBox::Batch::~Batch()
{
    list_.Ask(WM_SETREDRAW, TRUE);
    list_.Invalidate();
}

AccessibleInfo ListBox::Describe(int part) const
{
    AccessibleInfo list = Constituent::Describe(CHILDID_SELF);
    list.Role = ROLE_SYSTEM_LIST;
    if (part == CHILDID_SELF)
        return list;
    const int index = part - 1;
    AccessibleInfo item;
    item.Role = ROLE_SYSTEM_LISTITEM;
    item.DefaultAction = L"Double Click";
    item.State = STATE_SYSTEM_SELECTABLE | (list.State & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE));
    if (index == ListIndex())
        item.State |= STATE_SYSTEM_SELECTED | (list.State & STATE_SYSTEM_FOCUSED);
    Ask(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item.Place));
    MapWindowPoints(hWnd(), nullptr, reinterpret_cast<POINT*>(&item.Place), 2);
    RECT seen = {};
    if ((list.State & STATE_SYSTEM_INVISIBLE) != 0 || !IntersectRect(&seen, &item.Place, &list.Place))
        item.State |= STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    return item;
}

std::wstring ListBox::NameOf(int part) const
{
    if (part == CHILDID_SELF)
        return SpokenName;
    const std::wstring_view text = List(part - 1);
    return SpokenItem ? SpokenItem(text) : std::wstring(text);
}

int ListBox::PartAt(POINT place)
{
    POINT inside = place;
    ScreenToClient(hWnd(), &inside);
    const LRESULT found = Ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(inside.x, inside.y));
    return HIWORD(found) == 0 && LOWORD(found) < ListCount() ? LOWORD(found) + 1 : 0;
}

bool ListBox::DoDefaultAction(int part)
{
    if (part == CHILDID_SELF || !TakeAccessibleSelection(part) || !OnDblClick)
        return false;
    OnDblClick();
    return true;
}

bool ListBox::TakeAccessibleSelection(int part)
{
    if (part == CHILDID_SELF || !Enabled())
        return false;
    ListIndex(part - 1);
    if (OnClick)
        OnClick();
    return true;
}

void ListBox::Notified(WORD code)
{
    if (code == LBN_SELCHANGE)
        AnnounceSelection();
    if (code == LBN_SELCHANGE && OnClick)
        OnClick();
    else if (code == LBN_DBLCLK && OnDblClick)
        OnDblClick();
}

} // namespace kiv
