#include "controls/masked/DateBox.h"

#include "controls/masked/MaskedBox.h"
#include "resources/ResourceIds.h"
#include "runtime/constituents/KeyState.h"
#include "runtime/drawing/Color.h"

namespace kiv
{

namespace
{

} // namespace

const ControlClass DateBox::Class = {
    CLSID_DateBox,          __uuidof(_DateBox),  __uuidof(__DateBox), L"DateBox",
    L"KivControls.DateBox", KIV_TOOLBOX_DATEBOX, {1200, 285},
};

DateBox::DateBox(IUnknown* outer) : DateBoxMembers(Class, outer) {}

struct DateBox::Properties
{
    static constexpr PropertyTable Table{
        Property<L"AllowVarious">([](auto& box) { return box.rules_.AllowVarious(); },
                                  [](auto& box, bool state) { box.rules_.SetAllowVarious(state); }, false)
            .LetBy([](auto& box, bool state) {
                box.rules_.SetAllowVarious(state);
                box.PropertyChanged(L"AllowVarious");
            })
            .In(PropertyCategory::Limits),
        BackColorProperty(SystemColor(COLOR_WINDOW)),
        EnabledProperty(),
        ForeColorProperty([](const DateBox& box) { return box.Ambient().ForeColor(); }),
        Property<L"Style">([](auto& box) { return box.rules_.Style(); },
                           [](auto& box, DateFormat style) { box.TakeStyle(style); },
                           DateFormat::MonthDayYear)
            .LetBy([](auto& box, DateFormat style) {
                box.TakeStyle(style);
                box.PropertyChanged(L"Style");
            })
            .In(PropertyCategory::Behavior),
        // Stored as they are: cutting them down to what the layout shows is for bounds that the host sets.
        Property<L"MaxDate">([](auto& box) { return box.rules_.MaxDate(); },
                             [](auto& box, double date) { box.rules_.StoreMaxDate(date); },
                             [](auto&) { return DateRules().MaxDate(); })
            .IfUsable([](auto& box, double date) { return DateRules(box.rules_).StoreMaxDate(date); })
            .LetBy([](auto& box, double date) { box.Let(L"MaxDate", &DateRules::StoreMaxDate, date); })
            .In(PropertyCategory::Limits),
        Property<L"MinDate">([](auto& box) { return box.rules_.MinDate(); },
                             [](auto& box, double date) { box.rules_.StoreMinDate(date); },
                             [](auto&) { return DateRules().MinDate(); })
            .IfUsable([](auto& box, double date) { return DateRules(box.rules_).StoreMinDate(date); })
            .LetBy([](auto& box, double date) { box.Let(L"MinDate", &DateRules::StoreMinDate, date); })
            .In(PropertyCategory::Limits),
        FontProperty().ReadAt(3),
        Unstored<L"hwnd">([](auto& box) { return box.txtDate.hWnd(); }),
        Unstored<L"Text">([](auto& box) { return box.txtDate.Text(); }),
        ValueProperty(),
    };
};

// --- The control's life ---

void DateBox::UserControl_Initialize()
{
    txtDate.OnChange = [this] { txtDate_Change(); };
    txtDate.OnClick = [this] { txtDate_Click(); };
    HookBox(txtDate);
}

void DateBox::UserControl_InitProperties()
{
    rules_ = DateRules();
    Properties::Table.Reset(*this);
    txtDate.Text(rules_.Mask());
}

void DateBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    rules_ = DateRules();
    Properties::Table.Read(*this, PropBag);
    txtDate.Text(rules_.Mask());
}

void DateBox::UserControl_Resize()
{
    CoverWith({&txtDate});
}

void DateBox::UserControl_EnterFocus()
{
    txtDate.SelectAll();
}

void DateBox::UserControl_KeyDown(short& KeyCode, short Shift)
{
    RaiseKeyEvent(DateBoxEvents::KeyDown, KeyCode, Shift);
    // Delete with Shift is the older key for cutting.
    if (KeyCode == DeleteKey && Shift != ShiftHeld)
        Apply(rules_.KeyDown(StateOf(txtDate), KeyCode), txtDate, KeyCode);
}

void DateBox::UserControl_KeyPress(short& KeyAscii)
{
    RaiseKeyEvent(DateBoxEvents::KeyPress, KeyAscii);
    if (!EditBy(txtDate, KeyAscii))
        Apply(rules_.KeyPress(StateOf(txtDate), KeyAscii), txtDate, KeyAscii);
}

void DateBox::UserControl_KeyUp(short& KeyCode, short Shift)
{
    RaiseKeyEvent(DateBoxEvents::KeyUp, KeyCode, Shift);
}

void DateBox::UserControl_ExitFocus()
{
    if (const std::optional<DateEntry> entry = rules_.Read(txtDate.Text()))
        txtDate.Text(entry->Text);
}

void DateBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

void DateBox::UserControl_Terminate()
{
    UnhookBox();
}

void DateBox::txtDate_Change()
{
    RaiseEvent(DateBoxEvents::Change);
    PropertyChanged(L"Value");
}

void DateBox::txtDate_Click()
{
    RaiseEvent(DateBoxEvents::Click);
}

LRESULT DateBox::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    const auto pasted = [this](std::wstring_view clipboard) { return rules_.Pasted(clipboard); };
    if (HandleClipboardMessage(msg, txtDate, rules_.Mask(), pasted))
        return 0;
    return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
}

// --- Properties ---

void DateBox::BackColor(OLE_COLOR newColor)
{
    txtDate.BackColor(newColor);
    PropertyChanged(L"BackColor");
}

void DateBox::ForeColor(OLE_COLOR newColor)
{
    txtDate.ForeColor(newColor);
    PropertyChanged(L"ForeColor");
}

void DateBox::Enabled(bool newState)
{
    TheSurface().Enabled(newState);
    txtDate.Enabled(newState);
    PropertyChanged(L"Enabled");
}

void DateBox::ApplyFont()
{
    txtDate.Font(TheSurface().FontHandle());
    UserControl_Resize();
}

Variant DateBox::Value() const
{
    const std::optional<std::wstring> date = rules_.Value(txtDate.Text());
    return date ? Variant(*date) : Variant::Null();
}

void DateBox::Value(const Variant& newDate)
{
    if (newDate.IsNull() || newDate.Type() == VT_EMPTY)
    {
        txtDate.Text(rules_.Mask());
        PropertyChanged(L"Value");
        return;
    }
    std::optional<AssignedDate> assigned;
    if (newDate.Type() == VT_DATE)
        assigned = rules_.Assigned(V_DATE(&newDate.Get()));
    else if (const std::optional<Variant> text = newDate.As(VT_BSTR))
        assigned = rules_.Assigned(text->Text());
    if (!assigned)
        throw ComError(InvalidPropertyValue);
    txtDate.Text(assigned->Text);
    if (!IsValidInput(false))
    {
        // A text that is no date stays for the host to show; a date that does not fit leaves nothing.
        if (!assigned->IsDate)
            throw ComError(InvalidPropertyValue);
        txtDate.Text(rules_.Mask());
    }
    PropertyChanged(L"Value");
}

// --- For assistive tools ---

AccessibleInfo DateBox::Accessible() const
{
    return MaskedInfo(txtDate.Text(), rules_.Meaning());
}

// --- Methods ---

// A bound, as much of it as the layout shows.
void DateBox::Let(const wchar_t* name, bool (DateRules::*store)(double), double date)
{
    const std::optional<double> bound = rules_.AsShown(date);
    if (!bound || !(rules_.*store)(*bound))
        throw ComError(InvalidPropertyValue);
    PropertyChanged(name);
}

HRESULT DateBox::InitStyle() noexcept
{
    return Member([&] { TakeStyle(rules_.Style()); });
}

void DateBox::TakeStyle(DateFormat newStyle)
{
    rules_.SetStyle(newStyle);
    txtDate.MaxLength(static_cast<short>(rules_.MaxLength()));
}

bool DateBox::IsValidInput(bool ShowMessage)
{
    const DateVerdict verdict = rules_.Judge(txtDate.Text());
    if (verdict.Valid)
    {
        txtDate.Text(verdict.Text);
        return true;
    }
    if (ShowMessage)
        AppMsgBox(verdict.Message, MB_ICONEXCLAMATION);
    if (ShowMessage || verdict.SelectsSilently)
        txtDate.SelectAll();
    return false;
}

} // namespace kiv
