#pragma once

#include "controls/entry/EntryControl.h"
#include "controls/masked/NumberRules.h"

#include <KivMembers.h>

namespace kiv
{

// A Social Security, federal identification or routing number, or free digits. The masked styles are
// overtyped in txtNumber; routing numbers have a box of their own.
class NumberBox final : public NumberBoxMembers<NumberBox, EntryControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit NumberBox(IUnknown* outer);

    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    using NumberBoxMembers::IsValidInput;
    bool IsValidInput(bool ShowMessage) override;

protected:
    AccessibleInfo Accessible() const override;
    const Window& FocusWindow() const override { return *activeBox_; }

private:
    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_EnterFocus() override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_KeyPress(short& KeyAscii) override;
    void UserControl_KeyUp(short& KeyCode, short Shift) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Terminate() override;
    void Box_Change();

    // Properties.
    OLE_COLOR BackColor() const override { return txtNumber.BackColor(); }
    void BackColor(OLE_COLOR newColor) override;
    OLE_COLOR ForeColor() const override { return txtNumber.ForeColor(); }
    void ForeColor(OLE_COLOR newColor) override;
    using EntryControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    void MaxLength(short newLength);
    void Style(NumberFormat newStyle);
    std::wstring Text() const;
    Variant Value() const override;
    void Value(const Variant& newNumber) override;

    NumberRules rules_;
    TextBox txtNumber{*this, TheSurface().hWnd()};
    TextBox txtRTN{*this, TheSurface().hWnd(), {.IsVisible = false}};
    TextBox* activeBox_ = &txtNumber;
};

} // namespace kiv
