#pragma once

#include "controls/amount/AmountLayout.h"
#include "controls/amount/AmountRules.h"
#include "controls/entry/EntryControl.h"
#include "runtime/constituents/Label.h"
#include "runtime/drawing/Color.h"

#include <memory>
#include <optional>

namespace kiv
{

// A control in which the user types a number: txtLeft, which holds it as it was typed, lies over lblRight,
// which shows it while the control does not have the focus. The box is then parked below the control.
class AmountBox : public EntryControl
{
public:
    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    bool IsValidInput(bool ShowMessage) override;

protected:
    // The identifiers of the events that all amounts raise.
    struct AmountEvents
    {
        DISPID Change;
        DISPID KeyDown;
        DISPID KeyPress;
        DISPID KeyUp;
    };
    template<class Events>
    static constexpr AmountEvents EventsOf()
    {
        return {Events::Change, Events::KeyDown, Events::KeyPress, Events::KeyUp};
    }

    AmountBox(const ControlClass& controlClass, const AmountEvents& events, IUnknown* outer) :
        EntryControl(controlClass, outer), events_(events)
    {
    }

    const Window& FocusWindow() const override { return txtLeft; }
    AccessibleInfo Accessible() const override;
    bool TakeAccessibleValue(std::wstring_view text) override;
    const Label* TippedLabel() const override { return isParked_ ? &lblRight : nullptr; }

    virtual AmountLayout CalcLayout(const AmountSizes& sizes) const = 0;
    // What the label shows.
    virtual std::wstring Caption() const = 0;
    // As limits and the user's settings are now, which the system is asked for each time.
    virtual std::unique_ptr<const AmountRules> Rules() const = 0;
    // Value let, of a number or of none.
    virtual void Assign(const std::optional<Decimal>& value) = 0;

    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_Resize() override;
    void UserControl_Paint() override { lblRight.Draw(); }
    void UserControl_EnterFocus() override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_KeyPress(short& KeyAscii) override;
    void UserControl_KeyUp(short& KeyCode, short Shift) override;
    void UserControl_ExitFocus() override;
    void UserControl_Terminate() override { UnhookBox(); }
    virtual void txtLeft_Change();

    // The properties that most controls have, in the constituents too.
    using StandardControl::BackColor;
    void BackColor(OLE_COLOR newColor) override;
    using StandardControl::ForeColor;
    void ForeColor(OLE_COLOR newColor) override;
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;

    void ShowInLabel();
    void Clear();

    static constexpr OLE_COLOR DefaultBackColor = SystemColor(COLOR_WINDOW);
    static constexpr OLE_COLOR DefaultForeColor = SystemColor(COLOR_WINDOWTEXT);

    TextBox txtLeft{*this, TheSurface().hWnd(), {.HasBorder = false, .AlignsRight = true}};
    Label lblRight{TheSurface(), Label::Alignment::Right, Label::Content::Amount};

private:
    double BoxHeight() const;
    AmountLayout Layout() const;
    void PlaceBox(const AmountPlace& place);

    const AmountEvents events_;
    bool isParked_ = true;
};

} // namespace kiv
