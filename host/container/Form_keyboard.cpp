// Where keys go: to the active control first, then to the form's own navigation.

#include "host/container/DesignSurface.h"
#include "host/container/Form.h"
#include "host/container/FormFrame.h"

#include <oleidl.h>

#include <algorithm>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

bool Held(int key)
{
    return GetKeyState(key) < 0;
}

} // namespace

bool Form::Translate(MSG& message)
{
    if (!window_ || design_ || (message.hwnd != window_ && !IsChild(window_, message.hwnd)))
        return false;
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    if (active_)
    {
        // A control that never announced itself to the frame may still answer.
        ComPtr<IOleInPlaceActiveObject> object = frame_->ActiveObject();
        if (!object)
            object = active_->Query<IOleInPlaceActiveObject>();
        if (object && object->TranslateAccelerator(&message) == S_OK)
            return true;
    }
    return window_ && Navigate(message);
}

bool Form::Navigate(MSG& message)
{
    if (message.message == WM_SYSCHAR || message.message == WM_SYSKEYDOWN)
        return RunMnemonic(message);
    if (message.message != WM_KEYDOWN || Held(VK_CONTROL) || Held(VK_MENU))
        return false;
    // Arrows move between the form's own buttons; in a control they are the control's.
    const bool onButton = FindButton(GetFocus()) != nullptr;
    switch (message.wParam)
    {
    case VK_TAB:
        FocusNext(Held(VK_SHIFT));
        return true;
    case VK_RETURN:
        return !(active_ && active_->EatsReturn()) && Enter();
    case VK_ESCAPE:
        return !(active_ && active_->EatsEscape()) && Escape();
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (onButton)
            FocusNext(message.wParam == VK_LEFT || message.wParam == VK_UP);
        return onButton;
    default:
        return false;
    }
}

std::vector<FormItem*> Form::TabOrder() const
{
    std::vector<FormItem*> order;
    for (const auto& item : items_)
        order.push_back(item.get());
    std::stable_sort(order.begin(), order.end(), [](const FormItem* one, const FormItem* other) {
        return one->TabIndex() < other->TabIndex();
    });
    return order;
}

short Form::NextTabIndex() const
{
    short next = 0;
    for (const auto& item : items_)
        next = std::max(next, static_cast<short>(item->TabIndex() + 1));
    return next;
}

FormItem* Form::FocusedItem() const
{
    for (const auto& item : items_)
        if (item->HasFocus())
            return item.get();
    return nullptr;
}

void Form::FocusNext(bool backward)
{
    std::vector<FormItem*> order = TabOrder();
    if (backward)
        std::reverse(order.begin(), order.end());
    // Start behind the item that has the focus, so that one full turn ends on it.
    const auto focused = std::find(order.begin(), order.end(), FocusedItem());
    if (focused != order.end())
        std::rotate(order.begin(), focused + 1, order.end());
    const auto next = std::find_if(order.begin(), order.end(), [](const FormItem* item) {
        return item->TabStop() && item->TakesFocus();
    });
    if (next != order.end())
        (*next)->Focus();
}

void Form::FocusAfter(const FormItem& item)
{
    const std::vector<FormItem*> order = TabOrder();
    const auto next = std::find_if(std::find(order.begin(), order.end(), &item), order.end(),
                                   [](const FormItem* each) { return each->TakesFocus(); });
    if (next != order.end())
        (*next)->Focus();
}

bool Form::Enter()
{
    Button* pressed = FindButton(GetFocus());
    for (const auto& item : items_)
        if (auto* const button = dynamic_cast<Button*>(item.get()); button && !pressed && button->IsDefault())
            pressed = button;
    if (!pressed || !pressed->TakesFocus())
        return false;
    pressed->Press();
    return true;
}

Button* Form::CancelButton() const
{
    for (const auto& item : items_)
        if (auto* const button = dynamic_cast<Button*>(item.get());
            button && button->IsCancel() && button->TakesFocus())
            return button;
    return nullptr;
}

bool Form::Escape()
{
    Button* const button = CancelButton();
    if (button)
        button->Press();
    return button != nullptr;
}

bool Form::RunMnemonic(MSG& message)
{
    std::vector<FormItem*> order = TabOrder();
    // Several items may share a letter: the search goes on from the one that has the focus.
    const auto focused = std::find(order.begin(), order.end(), FocusedItem());
    if (focused != order.end())
        std::rotate(order.begin(), focused + 1, order.end());
    for (FormItem* item : order)
        if (item->CanBeSeen() && item->HasMnemonic(message))
        {
            item->OnMnemonic(message);
            return true;
        }
    return false;
}

void Form::UpdateDefaultButton()
{
    // The button with the focus is the one that Enter presses; without one it is the form's default button.
    const Button* const focused = FindButton(GetFocus());
    for (const auto& item : items_)
        if (const auto* const button = dynamic_cast<Button*>(item.get()))
        {
            const bool isDefault = focused ? button == focused : button->IsDefault();
            const auto style = static_cast<WPARAM>(isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
            SendMessageW(button->Window(), BM_SETSTYLE, style, TRUE);
        }
}

} // namespace kiv::host
