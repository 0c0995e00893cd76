// What assistive tools are told of a form: of its labels and frames all, of its controls and buttons where
// they are.

#include "host/container/Form.h"
#include "runtime/access/WindowText.h"

#include <algorithm>

namespace kiv::host
{

LRESULT Form::OnGetObject(HWND sheet, WPARAM wParam, LPARAM lParam)
{
    return accessible_.Answer(*this, sheet, sheet, wParam, lParam);
}

std::vector<FormItem*> Form::ShownItems() const
{
    std::vector<FormItem*> items = TabOrder();
    std::erase_if(items, [](const FormItem* item) { return !item->CanBeSeen(); });
    return items;
}

FormItem* Form::ShownItem(int part) const
{
    const std::vector<FormItem*> items = ShownItems();
    const auto place = static_cast<std::size_t>(part - 1);
    return place < items.size() ? items[place] : nullptr;
}

AccessibleInfo Form::Describe(int part) const
{
    if (const FormItem* const item = ShownItem(part))
        return item->Accessible();
    AccessibleInfo info;
    info.Name = CaptionOf(window_);
    GetWindowRect(Page(), &info.Place);
    info.State = STATE_SYSTEM_FOCUSABLE | (IsWindowVisible(Page()) ? 0 : STATE_SYSTEM_INVISIBLE);
    return info;
}

int Form::FocusedPart() const
{
    const std::vector<FormItem*> items = ShownItems();
    const auto focused = std::ranges::find(items, FocusedItem());
    return focused == items.end() ? 0 : static_cast<int>(focused - items.begin()) + 1;
}

// The last one there: what stands in a frame comes behind it.
int Form::PartAt(POINT place)
{
    const std::vector<FormItem*> items = ShownItems();
    const auto there = std::find_if(items.rbegin(), items.rend(), [&](const FormItem* item) {
        const RECT bounds = item->Accessible().Place;
        return PtInRect(&bounds, place) != FALSE;
    });
    return static_cast<int>(items.rend() - there);
}

HWND Form::WindowOf(int part) const
{
    const FormItem* const item = ShownItem(part);
    return item ? item->OwnWindow() : nullptr;
}

std::wstring Form::LabelBefore(const FormItem& item) const
{
    const std::vector<FormItem*> items = ShownItems();
    const auto place = std::ranges::find(items, &item);
    return place == items.end() || place == items.begin() ? std::wstring() : (*(place - 1))->LabelText();
}

} // namespace kiv::host
