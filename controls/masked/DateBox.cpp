#include "controls/masked/DateBox.h"

#include "controls/masked/MaskedBox.h"
#include "resources/ResourceIds.h"
#include "runtime/forms/Color.h"
#include "runtime/forms/KeyState.h"

namespace kiv
{

namespace
{

constexpr DISPID ChangeEvent = 1;
constexpr DISPID ClickEvent = 2;
constexpr DISPID KeyDownEvent = 3;
constexpr DISPID KeyPressEvent = 4;
constexpr DISPID KeyUpEvent = 5;

} // namespace

const ControlClass DateBox::Class = {
    CLSID_DateBox,          __uuidof(_DateBox),  __uuidof(__DateBox), L"DateBox",
    L"KivControls.DateBox", KIV_TOOLBOX_DATEBOX, {1200, 285},
};

DateBox::DateBox(IUnknown* outer) : EntryControl(Class, outer) {}

struct DateBox::Persisted
{
    static constexpr PropertyTable Table{
        Property(
            L"AllowVarious", [](auto& box) { return box.rules_.AllowVarious(); },
            [](auto& box, bool state) { box.rules_.SetAllowVarious(state); }, false),
        StoredBackColor(SystemColor(COLOR_WINDOW)),
        StoredEnabled(),
        StoredForeColor([](const DateBox& box) { return box.Ambient().ForeColor(); }),
        Property(
            L"Style", [](auto& box) { return box.rules_.Style(); },
            [](auto& box, DateFormat style) { box.TakeStyle(style); }, DateFormat::MonthDayYear),
        // Stored as they are: cutting them down to what the layout shows is for bounds that the host sets.
        Property(
            L"MaxDate", [](auto& box) { return box.rules_.MaxDate(); },
            [](auto& box, double date) { box.rules_.StoreMaxDate(date); },
            [](auto&) { return DateRules().MaxDate(); })
            .IfUsable([](auto& box, double date) { return DateRules(box.rules_).StoreMaxDate(date); }),
        Property(
            L"MinDate", [](auto& box) { return box.rules_.MinDate(); },
            [](auto& box, double date) { box.rules_.StoreMinDate(date); },
            [](auto&) { return DateRules().MinDate(); })
            .IfUsable([](auto& box, double date) { return DateRules(box.rules_).StoreMinDate(date); }),
        StoredFont().Written(&AsFont).ReadAt(3),
    };
};

// --- The control's life ---

void DateBox::UserControl_Initialize()
{
    txtDate.OnChange = [this] { txtDate_Change(); };
    txtDate.OnClick = [this] { txtDate_Click(); };
    Font(CreateDefaultFont());
    HookBox(txtDate);
}

void DateBox::UserControl_InitProperties()
{
    rules_ = DateRules();
    Persisted::Table.Reset(*this);
    txtDate.Text(rules_.Mask());
}

void DateBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    rules_ = DateRules();
    Persisted::Table.Read(*this, PropBag);
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
    RaiseKeyEvent(KeyDownEvent, KeyCode, Shift);
    // Delete with Shift is the older key for cutting.
    if (KeyCode == DeleteKey && Shift != ShiftHeld)
        Apply(rules_.KeyDown(StateOf(txtDate), KeyCode), txtDate, KeyCode);
}

void DateBox::UserControl_KeyPress(short& KeyAscii)
{
    RaiseKeyEvent(KeyPressEvent, KeyAscii);
    Apply(rules_.KeyPress(StateOf(txtDate), KeyAscii), txtDate, KeyAscii);
}

void DateBox::UserControl_KeyUp(short& KeyCode, short Shift)
{
    RaiseKeyEvent(KeyUpEvent, KeyCode, Shift);
}

void DateBox::UserControl_ExitFocus()
{
    if (const std::optional<DateEntry> entry = rules_.Read(txtDate.Text()))
        txtDate.Text(entry->Text);
}

void DateBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Persisted::Table.Write(*this, PropBag);
}

void DateBox::UserControl_Terminate()
{
    UnhookBox();
}

void DateBox::txtDate_Change()
{
    RaiseEvent(ChangeEvent);
    PropertyChanged(L"Value");
}

void DateBox::txtDate_Click()
{
    RaiseEvent(ClickEvent);
}

LRESULT DateBox::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    const auto pasted = [this](std::wstring_view clipboard) { return rules_.Pasted(clipboard); };
    if (HandleClipboardMessage(msg, txtDate, rules_.Mask(), pasted))
        return 0;
    return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
}

// --- Properties ---

HRESULT DateBox::get_AllowVarious(VARIANT_BOOL* result) noexcept
{
    return Get(result, [&] { return rules_.AllowVarious() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT DateBox::put_AllowVarious(VARIANT_BOOL newState) noexcept
{
    return Member([&] {
        rules_.SetAllowVarious(newState != VARIANT_FALSE);
        PropertyChanged(L"AllowVarious");
    });
}

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

HRESULT DateBox::get_hwnd(LONG* result) noexcept
{
    return Get(result, [&] { return HandleToLong(txtDate.hWnd()); });
}

HRESULT DateBox::get_Style(DateFormatEnums* result) noexcept
{
    return Get(result, [&] { return static_cast<DateFormatEnums>(rules_.Style()); });
}

HRESULT DateBox::put_Style(DateFormatEnums newStyle) noexcept
{
    return Member([&] {
        TakeStyle(static_cast<DateFormat>(newStyle));
        PropertyChanged(L"Style");
    });
}

HRESULT DateBox::get_MaxDate(DATE* result) noexcept
{
    return Get(result, [&] { return rules_.MaxDate(); });
}

HRESULT DateBox::put_MaxDate(DATE newDate) noexcept
{
    return Member([&] {
        const std::optional<double> bound = rules_.AsShown(newDate);
        if (!bound || !rules_.StoreMaxDate(*bound))
            throw ComError(InvalidPropertyValue);
        PropertyChanged(L"MaxDate");
    });
}

HRESULT DateBox::get_MinDate(DATE* result) noexcept
{
    return Get(result, [&] { return rules_.MinDate(); });
}

HRESULT DateBox::put_MinDate(DATE newDate) noexcept
{
    return Member([&] {
        const std::optional<double> bound = rules_.AsShown(newDate);
        if (!bound || !rules_.StoreMinDate(*bound))
            throw ComError(InvalidPropertyValue);
        PropertyChanged(L"MinDate");
    });
}

HRESULT DateBox::get_Text(BSTR* result) noexcept
{
    return Get(result, [&] { return Bstr(txtDate.Text()).Detach(); });
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

// --- Methods ---

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
