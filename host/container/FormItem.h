#pragma once

#include <windows.h>

#include <string>

namespace kiv::host
{

class ItemOwner;

// Something on a form: a hosted control, or a label, frame or button of the form's own. The form owns it.
class FormItem
{
public:
    FormItem(const FormItem&) = delete;
    FormItem& operator=(const FormItem&) = delete;
    virtual ~FormItem() = default;

    ItemOwner& Owner() const { return owner_; }
    const std::wstring& Name() const { return name_; }

    // Pixels of the form's client area.
    const RECT& Bounds() const { return bounds_; }
    virtual void Move(const RECT& bounds);

    bool Visible() const { return visible_; }
    virtual void SetVisible(bool visible);
    virtual bool Enabled() const { return enabled_; }
    virtual void SetEnabled(bool enabled);

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

    // Draws what has no window of its own.
    virtual void Paint(HDC) {}

protected:
    // tabIndex -1: after all that the form holds already.
    FormItem(ItemOwner& owner, std::wstring name, const RECT& bounds, short tabIndex);

    RECT bounds_;
    bool visible_ = true;
    bool enabled_ = true;

private:
    ItemOwner& owner_;
    std::wstring name_;
    short tabIndex_;
    bool tabStop_ = true;
};

} // namespace kiv::host
