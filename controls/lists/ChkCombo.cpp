#include "controls/lists/ChkCombo.h"

#include "resources/ResourceIds.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/Graphics.h"

#include <algorithm>
#include <utility>

namespace kiv
{

namespace
{

} // namespace

const ControlClass ChkCombo::Class = {
    CLSID_ChkCombo,          __uuidof(_ChkCombo),  __uuidof(__ChkCombo), L"ChkCombo",
    L"KivControls.ChkCombo", KIV_TOOLBOX_CHKCOMBO, {1800, 330},
};

ChkCombo::ChkCombo(IUnknown* outer) : ChkComboMembers(Class, outer) {}

void* ChkCombo::FindInterface(REFIID iid) noexcept
{
    if (iid == __uuidof(ISubClass))
        return static_cast<ISubClass*>(&subClass_);
    return ChkComboMembers::FindInterface(iid);
}

struct ChkCombo::Properties
{
    static constexpr PropertyTable Table{
        FontProperty(),
        BackColorProperty(SystemColor(COLOR_WINDOW)),
        EnabledProperty(),
        ForeColorProperty(SystemColor(COLOR_BTNTEXT)),
        Unstored<L"hwnd">([](auto& list) { return list.cbo.hWnd(); }),
        Unstored<L"Text">([](auto& list) { return list.cbo.ItemText(list.cbo.Selected()); }),
        Unstored<L"ListIndex">([](auto& list) { return list.HScroll1.Value(); },
                               [](auto& list, short selection) { list.ListIndex(selection); })
            .In(PropertyCategory::List),
        Unstored<L"ListCount">([](auto& list) {
            return static_cast<short>(list.cbo.Count());
        }).In(PropertyCategory::List),
        Unstored<L"NewIndex">([](auto& list) { return list.list_.NewIndex(); }).In(PropertyCategory::List),
        Unstored<L"PreviousIndex">([](auto& list) {
            return list.list_.PreviousIndex();
        }).In(PropertyCategory::List),
    };
};

// --- The control's life ---

void ChkCombo::UserControl_Initialize()
{
    HScroll1.OnChange = [this] { HScroll1_Change(); };
    HScroll1.LargeChange(SelectionPage);
    MoveSelection(-1);
    const SIZE size = TheSurface().PixelSize();
    cbo.Move(0, 0, size.cx, size.cy, false);
    for (const HWND window : {TheSurface().hWnd(), cbo.hWnd(), HScroll1.hWnd()})
        RegisterOwner(window, &subClass_);
    controlPrevWndProc_.HookWindow(TheSurface());
    comboPrevWndProc_.HookWindow(cbo);
    scrollBarPrevWndProc_.HookWindow(HScroll1);
}

void ChkCombo::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
}

void ChkCombo::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
}

// The control is as high as the closed combo box, whose height follows from its items'.
void ChkCombo::UserControl_Resize()
{
    if (resizing_)
        return;
    const Scoped<bool> resizing(resizing_, true);
    const int closed = cbo.ClosedHeight();
    if (closed != TheSurface().PixelSize().cy)
        RequestSize({TheSurface().PixelSize().cx, closed});
    const SIZE size = TheSurface().PixelSize();
    cbo.Move(0, 0, size.cx, size.cy, false);
}

void ChkCombo::UserControl_KeyDown(short& KeyCode, short Shift)
{
    HScroll1_KeyDown(KeyCode, Shift);
}

void ChkCombo::UserControl_KeyPress(short& KeyAscii)
{
    HScroll1_KeyPress(KeyAscii);
}

void ChkCombo::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

// An open list is no child of the control's window, and would stay.
void ChkCombo::UserControl_Hide()
{
    cbo.Close();
}

// The combo box goes with the control, whose part it is.
void ChkCombo::UserControl_Terminate()
{
    controlPrevWndProc_.UnhookWindow();
    comboPrevWndProc_.UnhookWindow();
    scrollBarPrevWndProc_.UnhookWindow();
}

void ChkCombo::HScroll1_Change()
{
    if (internalChange_)
        return;
    list_.PreviousIndex(static_cast<short>(cbo.Selected()));
    cbo.Select(HScroll1.Value());
    MoveSelection(HScroll1.Value());
    RaiseClick();
}

void ChkCombo::HScroll1_KeyDown(short& KeyCode, short Shift)
{
    if (KeyCode == VK_F4 && Shift == 0)
    {
        KeyCode = 0;
        cbo.DropDown(!cbo.IsDropped());
    }
    else if (KeyCode == VK_HOME && HScroll1.Value() < 0)
    {
        KeyCode = VK_DOWN; // one step from nothing selected is the first item, too
    }
}

void ChkCombo::HScroll1_KeyPress(short& KeyAscii)
{
    if (KeyAscii == VK_ESCAPE || (KeyAscii == VK_RETURN && cbo.IsDropped()))
    {
        KeyAscii = 0;
        cbo.DropDown(false);
    }
    else if (KeyAscii > ' ')
    {
        SelectNext(std::exchange(KeyAscii, short{0}));
    }
}

// The next item that begins with the character, as the system's list goes there, and as the arrow keys do it.
void ChkCombo::SelectNext(short KeyAscii)
{
    const char character = static_cast<char>(KeyAscii);
    const int found = cbo.Find(Wide({&character, 1}), cbo.Selected());
    if (found >= 0 && found < ChkComboList::MostItems)
        HScroll1.Value(static_cast<short>(found));
}

// With the list open, Enter and Esc close it instead of pressing the form's buttons.
bool ChkCombo::Wants(WPARAM key) const
{
    return (key == VK_RETURN || key == VK_ESCAPE) && cbo.IsDropped();
}

// --- Properties ---

void ChkCombo::Enabled(bool newState)
{
    // From a window that is being disabled the system takes the focus, and with it the keys that lead
    // elsewhere.
    if (!newState && GetFocus() == cbo.hWnd())
        HScroll1.TakeFocus();
    TheSurface().Enabled(newState);
    cbo.Enabled(newState);
    // Closes an open list, of which the host hears: whatever it answers is what stands.
    EnableWindow(TheSurface().hWnd(), newState);
    PropertyChanged(L"Enabled");
    UserControl::Refresh();
}

void ChkCombo::ApplyFont()
{
    cbo.At(TheSurface().TheResolution());
    cbo.Font(TheSurface().FontHandle());
    UserControl_Resize();
}

void ChkCombo::FontChanged()
{
    ApplyFont();
    PropertyChanged(L"Font");
}

// Selecting what is selected already raises nothing, but becomes what was selected before.
void ChkCombo::ListIndex(short newSelection)
{
    Follow();
    if (!list_.CanSelect(newSelection))
        throw ComError(InvalidPropertyValue);
    list_.PreviousIndex(HScroll1.Value());
    if (newSelection == HScroll1.Value())
        return;
    MoveSelection(newSelection);
    cbo.Select(newSelection);
    RaiseClick();
}

HRESULT ChkCombo::get_List(short Index, BSTR* result) noexcept
{
    return Get(result, [&] {
        RequireItem(Index);
        return Bstr(cbo.ItemText(Index)).Detach();
    });
}

HRESULT ChkCombo::put_List(short Index, BSTR newText) noexcept
{
    return Member([&] { List(Index, Bstr::ViewOf(newText)); });
}

// A combo box cannot change a text, so another item takes the place. The new one comes before the old one
// goes: when there is no room for it nothing has changed.
void ChkCombo::List(short Index, std::wstring_view newText)
{
    RequireItem(Index);
    const long data = cbo.ItemData(Index);
    cbo.Insert(std::wstring(newText), Index);
    cbo.ItemData(Index, data);
    cbo.Remove(Index + 1);
    FollowShift(HScroll1.Value());
    cbo.RepaintItem(Index);
}

HRESULT ChkCombo::get_ItemData(short Index, LONG* result) noexcept
{
    return Get(result, [&] {
        RequireItem(Index);
        return cbo.ItemData(Index);
    });
}

HRESULT ChkCombo::put_ItemData(short Index, LONG newData) noexcept
{
    return Member([&] {
        RequireRunTime();
        RequireItem(Index);
        cbo.ItemData(Index, newData);
    });
}

HRESULT ChkCombo::get_ListCompletionStatus(short Index, DetailStatusEnums* result) noexcept
{
    return Get(result, [&] {
        RequireRunTime();
        RequireItem(Index);
        return static_cast<DetailStatusEnums>(list_.Status(Index));
    });
}

HRESULT ChkCombo::put_ListCompletionStatus(short Index, DetailStatusEnums newStatus) noexcept
{
    return Member([&] {
        RequireRunTime();
        RequireItem(Index);
        list_.Status(Index, newStatus);
        if (Index == HScroll1.Value())
            Announce(EVENT_OBJECT_DESCRIPTIONCHANGE);
        cbo.RepaintItem(Index);
    });
}

// --- Methods ---

HRESULT ChkCombo::AddItem(BSTR Item, short Index) noexcept
{
    return Member([&] { Insert(Bstr::ViewOf(Item), Index); });
}

void ChkCombo::Insert(std::wstring_view Item, short Index)
{
    // At the end, the place that the item gets tells how many there were: the combo box need not be asked.
    const bool atEnd = Index < 0;
    if (!atEnd)
        Follow();
    if (!list_.CanInsert(Index))
        throw ComError(InvalidPropertyIndex);
    if (!atEnd && list_.IsFull())
        throw ComError(Overflow);
    const int place = cbo.Insert(std::wstring(Item), Index);
    if (place >= ChkComboList::MostItems)
    {
        cbo.Remove(place);
        throw ComError(Overflow);
    }
    if (atEnd)
        list_.Follow(place);
    const auto inserted = static_cast<short>(place);
    list_.Inserted(inserted);
    const short selected = AfterInsertion(HScroll1.Value(), inserted);
    if (selected == HScroll1.Value())
        MoveSelection(selected); // behind it: there is more to reach
    else
        FollowShift(selected);
}

HRESULT ChkCombo::RemoveItem(short Index) noexcept
{
    return Member([&] { Remove(Index); });
}

void ChkCombo::Remove(short Index)
{
    RequireItem(Index);
    cbo.Remove(Index);
    list_.Removed(Index);
    FollowShift(AfterRemoval(HScroll1.Value(), Index));
}

HRESULT ChkCombo::Clear() noexcept
{
    return Member([&] { RemoveAll(); });
}

void ChkCombo::RemoveAll()
{
    list_.Cleared();
    cbo.Clear();
    MoveSelection(-1);
}

// The items take up new colours this way.
HRESULT ChkCombo::Refresh() noexcept
{
    return Member([&] {
        UserControl::Refresh();
        cbo.Invalidate();
    });
}

// --- Items and selection ---

// Somebody else may have sent messages to the combo box, or to its list.
void ChkCombo::Follow()
{
    list_.Follow(std::min(cbo.Count(), ChkComboList::MostItems));
}

void ChkCombo::RequireItem(short Index)
{
    Follow();
    if (!list_.Holds(Index))
        throw ComError(InvalidPropertyIndex);
}

void ChkCombo::RequireRunTime() const
{
    if (!Ambient().UserMode())
        throw ComError(NotPermittedAtDesignTime);
}

// HScroll1 takes an index over without a Click.
void ChkCombo::MoveSelection(short index)
{
    const Scoped<bool> internalChange(internalChange_, true);
    const SelectionRange range = ReachableSelections(index, list_.Count());
    HScroll1.Range(range.Min, range.Max);
    HScroll1.Value(index);
}

// Keeps the selected item selected, where it is now.
void ChkCombo::FollowShift(short index)
{
    MoveSelection(index);
    if (cbo.Selected() != index)
        cbo.Select(index);
}

void ChkCombo::RaiseClick()
{
    RaiseEvent(ChkComboEvents::Click);
}

} // namespace kiv
