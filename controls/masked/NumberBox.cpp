#include "controls/masked/NumberBox.h"

#include "controls/masked/MaskedBox.h"
#include "resources/ResourceIds.h"
#include "runtime/constituents/KeyState.h"
#include "runtime/drawing/Color.h"

namespace kiv
{

namespace
{

} // namespace

const ControlClass NumberBox::Class = {
    CLSID_NumberBox,          __uuidof(_NumberBox),  __uuidof(__NumberBox), L"NumberBox",
    L"KivControls.NumberBox", KIV_TOOLBOX_NUMBERBOX, {1440, 285},
};

NumberBox::NumberBox(IUnknown* outer) : NumberBoxMembers(Class, outer) {}

struct NumberBox::Properties
{
    static constexpr PropertyTable Table{
        BackColorProperty(SystemColor(COLOR_WINDOW)),
        EnabledProperty(),
        ForeColorProperty(SystemColor(COLOR_WINDOWTEXT)).ReadAt(1),
        Property<L"Style">([](auto& box) { return box.rules_.Style(); },
                           [](auto& box, NumberFormat style) { box.Style(style); }, NumberFormat::SSN)
            .In(PropertyCategory::Behavior),
        // Without a default: the one that it is read with is the box's own length, which says nothing here.
        Property<L"MaxLength">([](auto& box) { return box.txtNumber.MaxLength(); },
                               [](auto& box, short length) { box.MaxLength(length); },
                               [](auto& box) { return box.txtNumber.MaxLength(); })
            .OnlyIf([](auto& box) { return box.rules_.Style() == NumberFormat::Custom; })
            .Written(WithoutDefault())
            .In(PropertyCategory::Limits),
        FontProperty().ReadAt(3),
        Unstored<L"hwnd">([](auto& box) { return box.HookedWindow(); }),
        Unstored<L"Text">([](auto& box) { return box.Text(); },
                          [](auto& box, std::wstring_view text) { box.Value(Variant(text)); }),
        ValueProperty(),
    };
};

// --- The control's life ---

void NumberBox::UserControl_Initialize()
{
    for (TextBox* box : {&txtNumber, &txtRTN})
        box->OnChange = [this] { Box_Change(); };
    HookBox(*activeBox_);
}

void NumberBox::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
}

void NumberBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
}

void NumberBox::UserControl_Resize()
{
    CoverWith({&txtNumber, &txtRTN});
}

void NumberBox::UserControl_EnterFocus()
{
    activeBox_->SelectAll();
}

void NumberBox::UserControl_KeyDown(short& KeyCode, short Shift)
{
    RaiseKeyEvent(NumberBoxEvents::KeyDown, KeyCode, Shift);
    // Delete with Shift is the older key for cutting.
    if (KeyCode == DeleteKey && Shift != ShiftHeld)
        Apply(rules_.KeyDown(StateOf(*activeBox_), KeyCode), *activeBox_, KeyCode);
}

void NumberBox::UserControl_KeyPress(short& KeyAscii)
{
    RaiseKeyEvent(NumberBoxEvents::KeyPress, KeyAscii);
    if (!EditBy(*activeBox_, KeyAscii))
        Apply(rules_.KeyPress(StateOf(*activeBox_), KeyAscii), *activeBox_, KeyAscii);
}

void NumberBox::UserControl_KeyUp(short& KeyCode, short Shift)
{
    RaiseKeyEvent(NumberBoxEvents::KeyUp, KeyCode, Shift);
}

void NumberBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

void NumberBox::UserControl_Terminate()
{
    UnhookBox();
}

void NumberBox::Box_Change()
{
    PropertyChanged(L"Value");
    RaiseEvent(NumberBoxEvents::Change);
}

LRESULT NumberBox::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    const auto pasted = [this](std::wstring_view clipboard) { return rules_.Pasted(clipboard); };
    if (HandleClipboardMessage(msg, *activeBox_, rules_.Mask(), pasted))
        return 0;
    return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
}

// --- Properties ---

void NumberBox::BackColor(OLE_COLOR newColor)
{
    for (TextBox* box : {&txtNumber, &txtRTN})
        box->BackColor(newColor);
    PropertyChanged(L"BackColor");
}

void NumberBox::ForeColor(OLE_COLOR newColor)
{
    for (TextBox* box : {&txtNumber, &txtRTN})
        box->ForeColor(newColor);
    PropertyChanged(L"ForeColor");
}

void NumberBox::Enabled(bool newState)
{
    TheSurface().Enabled(newState);
    for (TextBox* box : {&txtNumber, &txtRTN})
        box->Enabled(newState);
    PropertyChanged(L"Enabled");
}

void NumberBox::ApplyFont()
{
    for (TextBox* box : {&txtNumber, &txtRTN})
        box->Font(TheSurface().FontHandle());
    UserControl_Resize();
}

void NumberBox::MaxLength(short newLength)
{
    if (!rules_.SetMaxLength(newLength))
        return;
    txtNumber.MaxLength(newLength);
    txtNumber.Text(rules_.Mask());
    PropertyChanged(L"MaxLength");
}

// Any typed number is discarded, even if the style stays the same.
void NumberBox::Style(NumberFormat newStyle)
{
    TextBox* const formerBox = activeBox_;
    rules_.SetStyle(newStyle);
    txtNumber.MaxLength(static_cast<short>(rules_.MaxLength()));
    txtRTN.MaxLength(NumberRules::RoutingLength);
    activeBox_ = rules_.UsesRoutingBox() ? &txtRTN : &txtNumber;
    PropertyChanged(L"Style");
    activeBox_->Text(rules_.Mask());
    if (activeBox_ == formerBox)
        return;
    const bool hadFocus = GetFocus() == formerBox->hWnd();
    activeBox_->Visible(true);
    if (hadFocus)
        activeBox_->TakeFocus();
    formerBox->Visible(false);
    HookBox(*activeBox_);
}

std::wstring NumberBox::Text() const
{
    RefuseAtDesignTime();
    return rules_.Text(activeBox_->Text());
}

Variant NumberBox::Value() const
{
    RefuseAtDesignTime();
    const std::optional<std::wstring> number = rules_.Value(activeBox_->Text());
    return number ? Variant(*number) : Variant::Null();
}

void NumberBox::Value(const Variant& newNumber)
{
    const std::optional<Variant> text = newNumber.IsNull() ? Variant(L"") : newNumber.As(VT_BSTR);
    const std::optional<std::wstring> shown = text ? rules_.Assigned(text->Text()) : std::nullopt;
    if (!shown)
        throw ComError(InvalidPropertyValue);
    activeBox_->Text(*shown);
    PropertyChanged(L"Value");
}

// --- For assistive tools ---

AccessibleInfo NumberBox::Accessible() const
{
    return MaskedInfo(activeBox_->Text(), rules_.Meaning());
}

// --- Methods ---

bool NumberBox::IsValidInput(bool ShowMessage)
{
    const std::optional<std::wstring> complaint = rules_.Complaint(activeBox_->Text());
    if (complaint && ShowMessage)
    {
        AppMsgBox(*complaint, MB_ICONEXCLAMATION);
        activeBox_->SelectAll();
    }
    return !complaint;
}

} // namespace kiv
