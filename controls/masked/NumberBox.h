#pragma once

#include "controls/masked/NumberRules.h"
#include "framework/SubClass.h"
#include "framework/SubClassOwner.h"
#include "runtime/forms/StandardControl.h"
#include "runtime/forms/TextBox.h"

#include <KivControls.h>

namespace kiv
{

// A Social Security, federal identification or routing number, or free digits. The masked styles are
// overtyped in txtNumber; routing numbers have a box of their own.
class NumberBox final : public StandardControl<_NumberBox>
{
public:
    static const ControlClass Class;

    explicit NumberBox(IUnknown* outer);

    // _NumberBox, its own part
    HRESULT STDMETHODCALLTYPE get_hwnd(LONG* result) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxLength(short* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxLength(short newLength) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Style(NumberFormatEnums* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Style(NumberFormatEnums newStyle) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Text(BSTR newText) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Value(VARIANT newNumber) noexcept override;
    HRESULT STDMETHODCALLTYPE IsValidInput(VARIANT_BOOL* ShowMessage, VARIANT_BOOL* result) noexcept override;

    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

protected:
    void* FindInterface(REFIID iid) noexcept override;
    HWND FocusWindow() const override { return activeBox_->hWnd(); }

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
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    void FontChanged() override;
    void MaxLength(short newLength);
    void Style(NumberFormat newStyle);
    std::wstring Text() const;
    Variant Value() const;
    void Value(const Variant& newNumber);

    bool IsValidInput(bool ShowMessage);
    void HookActiveBox();

    SubClassOwner<NumberBox> subClass_{*this};
    NumberRules rules_;
    TextBox txtNumber{*this, TheSurface().hWnd()};
    TextBox txtRTN{*this, TheSurface().hWnd()};
    TextBox* activeBox_ = &txtNumber;
    HWND hookedWindow_ = nullptr;
    WndProcSlot PrevWndProc = 0;
};

} // namespace kiv
