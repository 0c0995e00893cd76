#pragma once

#include "controls/amount/AmountFilter.h"
#include "controls/amount/AmountLayout.h"
#include "controls/entry/EntryControl.h"
#include "runtime/forms/Clipboard.h"
#include "runtime/forms/Color.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/Screen.h"

#include <functional>
#include <optional>

namespace kiv
{

// A control in which the user types a number: txtLeft, which holds it as it was typed, lies over lblRight,
// which shows it while the control does not have the focus. The box is then parked below the control.
template<class Dual>
class AmountBox : public EntryControl<Dual>
{
public:
    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override
    {
        if (msg != WM_PASTE)
            return CallPrevious(this->PrevWndProc, hwnd, msg, wParam, lParam);
        if (const std::optional<Decimal> value = Pasted(Clipboard::GetText(hwnd)))
            Assign(value);
        return 0;
    }

protected:
    // The identifiers of the events that all amounts raise.
    struct Events
    {
        DISPID Change;
        DISPID KeyDown;
        DISPID KeyPress;
        DISPID KeyUp;
    };

    AmountBox(const ControlClass& controlClass, const Events& events, IUnknown* outer) :
        EntryControl<Dual>(controlClass, outer), events_(events)
    {
    }

    const Window& FocusWindow() const override { return txtLeft; }
    const Label* TippedLabel() const override { return isParked_ ? &lblRight : nullptr; }

    // The rules of the amount.
    virtual AmountLayout CalcLayout(const AmountSizes& sizes) const = 0;
    virtual FilteredKey Filter(const BoxState& box, short KeyAscii) const = 0;
    virtual std::optional<Decimal> Pasted(std::wstring_view clipboard) const = 0;
    virtual AmountExit ExitFrom(std::wstring_view text) const = 0;
    virtual bool IsValid(std::wstring_view text) const = 0;
    virtual std::wstring RangeMessage() const = 0;
    virtual std::wstring CaptionOf(std::wstring_view text) const = 0;
    // Value let, of a number or of none.
    virtual void Assign(const std::optional<Decimal>& value) = 0;

    // The control's life, in its order.

    void UserControl_Initialize() override
    {
        txtLeft.OnChange = [this] { txtLeft_Change(); };
        this->Font(CreateDefaultFont());
        this->HookBox(txtLeft);
    }

    void UserControl_Resize() override
    {
        const AmountLayout layout = Layout();
        lblRight.Move(Screen::PixelsX(layout.Label.Left), Screen::PixelsY(layout.Label.Top),
                      Screen::PixelsX(layout.Label.Width), lblRight.LineHeight());
        // Parked even while the user types, until the focus comes anew. Deliberate.
        PlaceBox(layout.Box);
        this->RequestFit([this]() -> std::optional<SIZE> {
            const std::optional<double> height = Layout().Height;
            if (!height)
                return std::nullopt;
            return SIZE{this->TheSurface().OuterSize().cx, Screen::PixelsY(*height)};
        });
    }

    void UserControl_Paint() override { lblRight.Draw(); }

    void UserControl_EnterFocus() override
    {
        AmountPlace place = Layout().Box;
        place.Top = CentredTop(this->TheSurface().ScaleHeight(), BoxHeight());
        PlaceBox(place);
        txtLeft.SelectAll();
    }

    void UserControl_KeyDown(short& KeyCode, short Shift) override
    {
        this->RaiseKeyEvent(events_.KeyDown, KeyCode, Shift);
    }

    void UserControl_KeyPress(short& KeyAscii) override
    {
        this->RaiseKeyEvent(events_.KeyPress, KeyAscii);
        const BoxState typedInto = StateOf(txtLeft);
        const FilteredKey filtered = Filter(typedInto, KeyAscii);
        KeyAscii = filtered.KeyAscii;
        if (filtered.Box.Text == typedInto.Text)
            return;
        // The box itself deletes with the least to draw.
        if (filtered.Box == WithoutSelection(typedInto))
        {
            txtLeft.SelText(L"");
            return;
        }
        txtLeft.Amend(filtered.Box.Text);
        // The host may have answered the change by another text, which then stands.
        if (txtLeft.Text() == filtered.Box.Text)
            txtLeft.SelectAnew({filtered.Box.SelStart, filtered.Box.SelLength});
    }

    void UserControl_KeyUp(short& KeyCode, short Shift) override
    {
        this->RaiseKeyEvent(events_.KeyUp, KeyCode, Shift);
    }

    void UserControl_ExitFocus() override
    {
        AmountExit exit = ExitFrom(txtLeft.Text());
        txtLeft.Text(exit.Text);
        // The host may have answered the change by another text, which is then the one that is left.
        if (const std::wstring answer = txtLeft.Text(); answer != exit.Text)
            exit = ExitFrom(answer);
        if (!exit.Parked)
            return;
        PlaceBox(Layout().Box);
        ShowInLabel();
    }

    void UserControl_Terminate() override { this->UnhookBox(); }

    virtual void txtLeft_Change()
    {
        this->RaiseEvent(events_.Change);
        this->PropertyChanged(L"Value");
    }

    // The properties that most controls have, in the constituents too.

    using StandardControl<Dual>::BackColor;
    void BackColor(OLE_COLOR newColor) override
    {
        lblRight.BackColor(newColor);
        txtLeft.BackColor(newColor);
        StandardControl<Dual>::BackColor(newColor);
    }
    using StandardControl<Dual>::ForeColor;
    void ForeColor(OLE_COLOR newColor) override
    {
        lblRight.ForeColor(newColor);
        txtLeft.ForeColor(newColor);
        StandardControl<Dual>::ForeColor(newColor);
    }
    using StandardControl<Dual>::Enabled;
    void Enabled(bool newState) override
    {
        lblRight.Enabled(newState);
        txtLeft.Enabled(newState);
        StandardControl<Dual>::Enabled(newState);
    }
    void ApplyFont() override
    {
        txtLeft.Font(this->TheSurface().FontHandle());
        UserControl_Resize();
        this->Refresh();
    }
    bool IsValidInput(bool ShowMessage) override
    {
        if (IsValid(txtLeft.Text()))
            return true;
        if (ShowMessage)
        {
            AppMsgBox(RangeMessage(), MB_ICONEXCLAMATION);
            txtLeft.SelectAll();
        }
        return false;
    }

    void ShowInLabel()
    {
        lblRight.Caption(CaptionOf(txtLeft.Text()));
        // Under the box nobody sees it, and painting takes longer than all the rest of a key stroke.
        if (isParked_)
            this->Refresh();
    }
    void Clear()
    {
        txtLeft.Text(L"");
        lblRight.Caption(L"");
    }

    static constexpr OLE_COLOR DefaultBackColor = SystemColor(COLOR_WINDOW);
    static constexpr OLE_COLOR DefaultForeColor = SystemColor(COLOR_WINDOWTEXT);

    TextBox txtLeft{*this, this->TheSurface().hWnd(), {.HasBorder = false, .AlignsRight = true}};
    Label lblRight{this->TheSurface(), Label::Alignment::Right, Label::Content::Amount};

private:
    static BoxState WithoutSelection(BoxState box)
    {
        box.Text.erase(static_cast<std::size_t>(box.SelStart), static_cast<std::size_t>(box.SelLength));
        box.SelLength = 0;
        return box;
    }

    double BoxHeight() const { return txtLeft.LeastHeight() * Screen::TwipsPerPixelY(); }

    AmountLayout Layout() const
    {
        const Surface& surface = this->TheSurface();
        return CalcLayout({.ScaleWidth = surface.ScaleWidth(),
                           .ScaleHeight = surface.ScaleHeight(),
                           .Height = surface.OuterSize().cy * Screen::TwipsPerPixelY(),
                           .BoxHeight = BoxHeight(),
                           .LabelHeight = lblRight.LineHeight() * Screen::TwipsPerPixelY(),
                           .TwipsPerPixelX = Screen::TwipsPerPixelX(),
                           .TwipsPerPixelY = Screen::TwipsPerPixelY()});
    }

    void PlaceBox(const AmountPlace& place)
    {
        isParked_ = place.Top == ParkedTop;
        txtLeft.Move(Screen::PixelsX(place.Left), Screen::PixelsY(place.Top), Screen::PixelsX(place.Width),
                     txtLeft.LeastHeight());
        this->UpdateToolTip();
    }

    const Events events_;
    bool isParked_ = true;
};

} // namespace kiv
