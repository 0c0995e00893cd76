#pragma once

#include "runtime/access/AccessibleSource.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kiv::host
{

class ItemOwner;

// Something on a form: a hosted control, or a label, frame or button of the form's own. The form owns it;
// what stands in a frame moves with it, and can be seen and used only where the frame can.
class FormItem
{
public:
    FormItem(const FormItem&) = delete;
    FormItem& operator=(const FormItem&) = delete;
    virtual ~FormItem();

    ItemOwner& Owner() const { return owner_; }
    const std::wstring& Name() const { return name_; }
    // What it stands in; null: on the form itself.
    FormItem* Container() const { return container_; }

    // Pixels of the form, also for what stands in a frame.
    const RECT& Bounds() const { return bounds_; }
    virtual void Move(const RECT& bounds);

    // As the item itself has it.
    bool Visible() const { return visible_; }
    virtual void SetVisible(bool visible);
    virtual bool Enabled() const { return enabled_; }
    virtual void SetEnabled(bool enabled);
    // With all that it stands in. A form that is being designed shows everything.
    bool CanBeSeen() const;
    bool CanBeUsed() const { return Enabled() && ContainerCanBeUsed(); }
    bool ContainerCanBeSeen() const { return !container_ || container_->CanBeSeen(); }
    bool ContainerCanBeUsed() const { return !container_ || container_->CanBeUsed(); }

    short TabIndex() const { return tabIndex_; }
    void SetTabIndex(short index) { tabIndex_ = index; }
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool stop) { tabStop_ = stop; }

    // Whether it can have the focus now; Tab stops where TabStop is set as well.
    virtual bool TakesFocus() const { return false; }
    virtual bool HasFocus() const { return false; }
    virtual void Focus() {}

    // Whether an Alt+key message is this item's; the form then calls OnMnemonic.
    virtual bool HasMnemonic(const MSG&) const { return false; }
    virtual void OnMnemonic(MSG&) {}

    // What assistive tools are told of an item that is no window, or no more than a caption (Accessible), and
    // how it calls the item that comes after it in tab order; empty: it is no label.
    virtual HWND OwnWindow() const { return nullptr; }
    virtual AccessibleInfo Accessible() const;
    virtual std::wstring LabelText() const { return {}; }

    // Draws what has no window of its own.
    virtual void Paint(HDC) {}

protected:
    // tabIndex -1: after all that the form holds already.
    FormItem(ItemOwner& owner, FormItem* container, std::wstring name, const RECT& bounds, short tabIndex);

    // Expires with the item: whatever calls a control may take items off the form.
    std::weak_ptr<const FormItem*> Alive() const { return alive_; }

    // It can be seen or used now, or cannot any more, by itself or by what it stands in.
    virtual void OnContainerChanged();

    RECT bounds_;
    bool visible_ = true;
    bool enabled_ = true;

private:
    bool HoldsFocus() const; // it, or what stands in it
    void ForEachContent(const std::function<void(FormItem&)>& work);

    ItemOwner& owner_;
    FormItem* container_;
    std::shared_ptr<const FormItem*> alive_ = std::make_shared<const FormItem*>(this);
    std::vector<FormItem*> contents_;
    std::wstring name_;
    short tabIndex_;
    bool tabStop_ = true;
};

} // namespace kiv::host
