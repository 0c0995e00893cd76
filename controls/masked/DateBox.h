#pragma once

#include "controls/masked/DateRules.h"
#include "framework/SubClass.h"
#include "framework/SubClassOwner.h"
#include "runtime/forms/StandardControl.h"
#include "runtime/forms/TextBox.h"

#include <KivControls.h>

namespace kiv
{

// A date in one of eight layouts, overtyped in txtDate and checked against a period.
class DateBox final : public StandardControl<_DateBox>
{
public:
    static const ControlClass Class;

    explicit DateBox(IUnknown* outer);

    // _DateBox, its own part
    HRESULT STDMETHODCALLTYPE get_AllowVarious(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_AllowVarious(VARIANT_BOOL newState) noexcept override;
    HRESULT STDMETHODCALLTYPE get_hwnd(LONG* result) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Style(DateFormatEnums* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Style(DateFormatEnums newStyle) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxDate(DATE* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxDate(DATE newDate) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MinDate(DATE* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MinDate(DATE newDate) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Value(VARIANT newDate) noexcept override;
    HRESULT STDMETHODCALLTYPE InitStyle() noexcept override;
    HRESULT STDMETHODCALLTYPE IsValidInput(VARIANT_BOOL* ShowMessage, VARIANT_BOOL* result) noexcept override;

    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

protected:
    void* FindInterface(REFIID iid) noexcept override;
    HWND FocusWindow() const override { return txtDate.hWnd(); }

private:
    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_KeyPress(short& KeyAscii) override;
    void UserControl_KeyUp(short& KeyCode, short Shift) override;
    void UserControl_ExitFocus() override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Terminate() override;
    void txtDate_Change();
    void txtDate_Click();
    void txtDate_GotFocus();

    // Properties.
    OLE_COLOR BackColor() const override { return txtDate.BackColor(); }
    void BackColor(OLE_COLOR newColor) override;
    OLE_COLOR ForeColor() const override { return txtDate.ForeColor(); }
    void ForeColor(OLE_COLOR newColor) override;
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    void FontChanged() override;
    Variant Value() const;
    void Value(const Variant& newDate);

    void TakeStyle(DateFormat newStyle);
    bool IsValidInput(bool ShowMessage);

    SubClassOwner<DateBox> subClass_{*this};
    DateRules rules_;
    TextBox txtDate{*this, TheSurface().hWnd()};
    WndProcSlot PrevWndProc = 0;
};

} // namespace kiv
