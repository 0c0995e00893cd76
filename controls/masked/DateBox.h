#pragma once

#include "controls/entry/EntryControl.h"
#include "controls/masked/DateRules.h"

#include <KivMembers.h>

namespace kiv
{

// A date in one of eight layouts, overtyped in txtDate and checked against a period.
class DateBox final : public DateBoxMembers<DateBox, EntryControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit DateBox(IUnknown* outer);

    // _DateBox: members with arguments of their own
    HRESULT STDMETHODCALLTYPE InitStyle() noexcept override;

    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    using DateBoxMembers::IsValidInput;
    bool IsValidInput(bool ShowMessage) override;

protected:
    AccessibleInfo Accessible() const override;
    const Window& FocusWindow() const override { return txtDate; }

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
    void UserControl_ExitFocus() override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Terminate() override;
    void txtDate_Change();
    void txtDate_Click();

    // Properties.
    OLE_COLOR BackColor() const override { return txtDate.BackColor(); }
    void BackColor(OLE_COLOR newColor) override;
    OLE_COLOR ForeColor() const override { return txtDate.ForeColor(); }
    void ForeColor(OLE_COLOR newColor) override;
    using EntryControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    Variant Value() const override;
    void Value(const Variant& newDate) override;

    void TakeStyle(DateFormat newStyle);
    void Let(const wchar_t* name, bool (DateRules::*store)(double), double date);

    DateRules rules_;
    TextBox txtDate{*this, TheSurface().hWnd()};
};

} // namespace kiv
