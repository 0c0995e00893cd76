#include "controls/amount/AmountBox.h"

#include "runtime/constituents/Clipboard.h"

namespace kiv
{

namespace
{

BoxState WithoutSelection(BoxState box)
{
    box.Text.erase(static_cast<std::size_t>(box.SelStart), static_cast<std::size_t>(box.SelLength));
    box.SelLength = 0;
    return box;
}

} // namespace

LRESULT AmountBox::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg != WM_PASTE)
        return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
    const std::wstring former = txtLeft.Text();
    if (const std::optional<Decimal> value = Rules()->Pasted(Clipboard::GetText(hwnd)))
    {
        Assign(value);
        txtLeft.CanBecome(former);
    }
    return 0;
}

// The control's life, in its order.

void AmountBox::UserControl_Initialize()
{
    txtLeft.OnChange = [this] { txtLeft_Change(); };
    HookBox(txtLeft);
}

void AmountBox::UserControl_Resize()
{
    const AmountLayout layout = Layout();
    const Resolution& resolution = TheSurface().TheResolution();
    lblRight.Move(resolution.PixelsX(layout.Label.Left), resolution.PixelsY(layout.Label.Top),
                  resolution.PixelsX(layout.Label.Width), lblRight.LineHeight());
    // Parked even while the user types, until the focus comes anew. Deliberate.
    PlaceBox(layout.Box);
    RequestFit([this]() -> std::optional<SIZE> {
        const std::optional<double> height = Layout().Height;
        if (!height)
            return std::nullopt;
        return SIZE{TheSurface().OuterSize().cx, TheSurface().TheResolution().PixelsY(*height)};
    });
}

void AmountBox::UserControl_EnterFocus()
{
    AmountPlace place = Layout().Box;
    place.Top = CentredTop(TheSurface().ScaleHeight(), BoxHeight());
    PlaceBox(place);
    txtLeft.SelectAll();
}

void AmountBox::UserControl_KeyDown(short& KeyCode, short Shift)
{
    RaiseKeyEvent(events_.KeyDown, KeyCode, Shift);
}

void AmountBox::UserControl_KeyPress(short& KeyAscii)
{
    RaiseKeyEvent(events_.KeyPress, KeyAscii);
    if (EditBy(txtLeft, KeyAscii))
        return;
    const BoxState typedInto = StateOf(txtLeft);
    const FilteredKey filtered = Rules()->Filter(typedInto, KeyAscii);
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

void AmountBox::UserControl_KeyUp(short& KeyCode, short Shift)
{
    RaiseKeyEvent(events_.KeyUp, KeyCode, Shift);
}

void AmountBox::UserControl_ExitFocus()
{
    AmountExit exit = Rules()->Exit(txtLeft.Text());
    txtLeft.Text(exit.Text);
    // The host may have answered the change by another text, which is then the one that is left.
    if (const std::wstring answer = txtLeft.Text(); answer != exit.Text)
        exit = Rules()->Exit(answer);
    if (!exit.Parked)
        return;
    PlaceBox(Layout().Box);
    ShowInLabel();
}

void AmountBox::txtLeft_Change()
{
    RaiseEvent(events_.Change);
    PropertyChanged(L"Value");
}

// The properties that most controls have, in the constituents too.

void AmountBox::BackColor(OLE_COLOR newColor)
{
    lblRight.BackColor(newColor);
    txtLeft.BackColor(newColor);
    StandardControl::BackColor(newColor);
}

void AmountBox::ForeColor(OLE_COLOR newColor)
{
    lblRight.ForeColor(newColor);
    txtLeft.ForeColor(newColor);
    StandardControl::ForeColor(newColor);
}

void AmountBox::Enabled(bool newState)
{
    lblRight.Enabled(newState);
    txtLeft.Enabled(newState);
    StandardControl::Enabled(newState);
}

void AmountBox::ApplyFont()
{
    txtLeft.Font(TheSurface().FontHandle());
    UserControl_Resize();
    Refresh();
}

// For assistive tools: the amount as it is shown, at rest too.

AccessibleInfo AmountBox::Accessible() const
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_TEXT;
    info.Value = isParked_ ? lblRight.Caption() : txtLeft.Text();
    const std::unique_ptr<const AmountRules> rules = Rules();
    if (!rules->IsValid(txtLeft.Text()))
        info.Description = rules->RangeMessage();
    return info;
}

bool AmountBox::TakeAccessibleValue(std::wstring_view text)
{
    if (!TakesInput())
        return false;
    const std::optional<Decimal> value = Rules()->Pasted(text);
    if (!value)
        throw ComError(InvalidPropertyValue);
    Assign(value);
    return true;
}

bool AmountBox::IsValidInput(bool ShowMessage)
{
    if (Rules()->IsValid(txtLeft.Text()))
        return true;
    if (ShowMessage)
    {
        AppMsgBox(Rules()->RangeMessage(), MB_ICONEXCLAMATION);
        txtLeft.SelectAll();
    }
    return false;
}

void AmountBox::ShowInLabel()
{
    lblRight.Caption(Caption());
    // Under the box nobody sees it, and painting takes longer than all the rest of a key stroke.
    if (isParked_)
        Refresh();
}

void AmountBox::Clear()
{
    txtLeft.Text(L"");
    lblRight.Caption(L"");
}

double AmountBox::BoxHeight() const
{
    return txtLeft.LeastHeight() * TheSurface().TheResolution().TwipsPerPixelY();
}

AmountLayout AmountBox::Layout() const
{
    const Surface& surface = TheSurface();
    const Resolution& resolution = surface.TheResolution();
    return CalcLayout({.ScaleWidth = surface.ScaleWidth(),
                       .ScaleHeight = surface.ScaleHeight(),
                       .Height = surface.OuterSize().cy * resolution.TwipsPerPixelY(),
                       .BoxHeight = BoxHeight(),
                       .LabelHeight = lblRight.LineHeight() * resolution.TwipsPerPixelY(),
                       .TwipsPerPixelX = resolution.TwipsPerPixelX(),
                       .TwipsPerPixelY = resolution.TwipsPerPixelY()});
}

void AmountBox::PlaceBox(const AmountPlace& place)
{
    isParked_ = place.Top == ParkedTop;
    const Resolution& resolution = TheSurface().TheResolution();
    txtLeft.Move(resolution.PixelsX(place.Left), resolution.PixelsY(place.Top),
                 resolution.PixelsX(place.Width), txtLeft.LeastHeight());
    UpdateToolTip();
}

} // namespace kiv
