// What assistive tools are told of a ChkCombo: a combo box with a list of items, each with its status.

#include "controls/lists/ChkCombo.h"

namespace kiv
{

AccessibleInfo ChkCombo::Accessible() const
{
    const int selected = HScroll1.Value();
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_COMBOBOX;
    info.Value = cbo.ItemText(selected);
    info.Description = list_.Holds(selected) ? StatusInWords(list_.Status(selected)) : L"";
    info.KeyboardShortcut = L"Alt+Down";
    info.DefaultAction = cbo.IsDropped() ? L"Close" : L"Open";
    info.State = STATE_SYSTEM_HASPOPUP | (cbo.IsDropped() ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
    return info;
}

// Who asks does not wait for what the host makes of it.
bool ChkCombo::DoDefaultAction(int)
{
    if (!TakesInput())
        return false;
    TakeFocus();
    return cbo.Post(CB_SHOWDROPDOWN, !cbo.IsDropped());
}

std::wstring ChkCombo::Items::NameOf(int item) const
{
    return item == CHILDID_SELF ? combo_.AccessibleName() : combo_.cbo.ItemText(item - 1);
}

AccessibleInfo ChkCombo::Items::Describe(int item) const
{
    const ComboBox& box = combo_.cbo;
    const bool isOpen = box.IsDropped();
    AccessibleInfo info;
    if (item == CHILDID_SELF)
    {
        info.Role = ROLE_SYSTEM_LIST;
        info.Place = box.ListPlace();
        info.State = isOpen ? 0 : STATE_SYSTEM_INVISIBLE;
        return info;
    }
    const int index = item - 1;
    info.Role = ROLE_SYSTEM_LISTITEM;
    info.Description = combo_.list_.Holds(index) ? StatusInWords(combo_.list_.Status(index)) : L"";
    info.DefaultAction = L"Double Click";
    info.Place = box.ItemPlace(index);
    info.State = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    if (item == SelectedPart())
        info.State |= STATE_SYSTEM_SELECTED | (isOpen ? STATE_SYSTEM_FOCUSED : 0);
    const RECT list = box.ListPlace();
    RECT seen = {};
    if (!isOpen || !IntersectRect(&seen, &info.Place, &list))
        info.State |= STATE_SYSTEM_INVISIBLE;
    return info;
}

// As the arrow keys do it, which the host hears of.
bool ChkCombo::Items::TakeAccessibleSelection(int item)
{
    if (item == CHILDID_SELF || !combo_.TakesInput())
        return false;
    combo_.TakeFocus();
    combo_.HScroll1.Value(static_cast<short>(item - 1));
    return true;
}

} // namespace kiv
