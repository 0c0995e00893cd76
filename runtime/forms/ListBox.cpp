#include "runtime/forms/ListBox.h"

#include "runtime/forms/Graphics.h"

#include <algorithm>
#include <new>

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

int ListBox::AddItem(std::wstring_view text)
{
    const std::wstring shown(text.substr(0, LongestShown));
    // Most texts are the same in every code page, and Wine's list takes several times as long for a wide one.
    const bool isPlain = std::ranges::all_of(shown, [](wchar_t character) { return character < 0x80; });
    const LRESULT index = isPlain ? Ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Ansi(shown).c_str()))
                                  : AskWide(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
    if (index < 0)
        throw std::bad_alloc();
    texts_.emplace_back(text);
    return static_cast<int>(index);
}

void ListBox::Clear()
{
    Ask(LB_RESETCONTENT);
    texts_.clear();
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

void ListBox::Notified(WORD code)
{
    if (code == LBN_SELCHANGE && OnClick)
        OnClick();
    else if (code == LBN_DBLCLK && OnDblClick)
        OnDblClick();
}

} // namespace kiv
