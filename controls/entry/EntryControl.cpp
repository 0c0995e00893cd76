#include "controls/entry/EntryControl.h"

#include <algorithm>

namespace kiv
{

BoxState StateOf(const TextBox& box)
{
    const TextBox::Selection selected = box.Selected();
    return {box.Text(), selected.Start, selected.Length};
}

void* EntryControl::FindInterface(REFIID iid) noexcept
{
    if (iid == __uuidof(ISubClass))
        return static_cast<ISubClass*>(&subClass_);
    return StandardControl::FindInterface(iid);
}

void EntryControl::FontChanged()
{
    ApplyFont();
    PropertyChanged(L"Font");
}

// As if the host had set it, except that only a user who could type it can have it set.
bool EntryControl::TakeAccessibleValue(std::wstring_view text)
{
    if (!TakesInput())
        return false;
    Value(Variant(text));
    return true;
}

void EntryControl::CoverWith(std::initializer_list<TextBox*> boxes)
{
    const SIZE size = TheSurface().PixelSize();
    LONG needed = 0;
    for (TextBox* box : boxes)
    {
        box->Move(0, 0, size.cx, size.cy);
        needed = std::max(needed, box->OuterSize().cy);
    }
    // Once: a container that insists on its own size is not asked for each box.
    if (needed > size.cy)
        RequestSize({size.cx, needed});
}

bool EntryControl::EditBy(TextBox& box, short& KeyAscii)
{
    switch (KeyAscii)
    {
    case CtrlA:
        box.SelectAll();
        break;
    case CtrlZ:
        box.Undo();
        break;
    default:
        return false;
    }
    KeyAscii = 0;
    return true;
}

void EntryControl::HookBox(const TextBox& box)
{
    UnhookBox();
    hookedWindow_ = box.hWnd();
    RegisterOwner(hookedWindow_, &subClass_);
    if (!ErrorPending())
        PrevWndProc.HookWindow(box);
}

} // namespace kiv
