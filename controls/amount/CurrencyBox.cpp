#include "controls/amount/CurrencyBox.h"

#include "resources/ResourceIds.h"
#include "runtime/com/SystemLocale.h"
#include "runtime/com/VariantNumber.h"

namespace kiv
{

namespace
{

constexpr DISPID ClickEvent = 2;

} // namespace

const ControlClass CurrencyBox::Class = {
    CLSID_CurrencyBox,
    __uuidof(_CurrencyBox),
    __uuidof(__CurrencyBox),
    L"CurrencyBox",
    L"KivControls.CurrencyBox",
    KIV_TOOLBOX_CURRENCYBOX,
    {1440, 285},
    true,
};

CurrencyBox::CurrencyBox(IUnknown* outer) :
    AmountBox(Class, {.Change = 1, .KeyDown = 5, .KeyPress = 4, .KeyUp = 3}, outer)
{
}

// Stored as they are: neither counts nor bounds are held against each other, and the range is not reset.
struct CurrencyBox::Persisted
{
    static constexpr PropertyTable Table{
        StoredBackColor(DefaultBackColor),
        StoredEnabled(),
        StoredForeColor(DefaultForeColor),
        StoredFont().Written(&AsFont),
        Field(L"AllowRounding", &CurrencyBox::limits_, &CurrencyLimits::AllowRounding),
        Field(L"NumDecDigits", &CurrencyBox::limits_, &CurrencyLimits::NumDecDigits),
        Field(L"NumIntDigits", &CurrencyBox::limits_, &CurrencyLimits::NumIntDigits),
        Field(L"MaxValue", &CurrencyBox::limits_, &CurrencyLimits::MaxValue),
        Field(L"MinValue", &CurrencyBox::limits_, &CurrencyLimits::MinValue),
    };
};

// --- The control's life ---

void CurrencyBox::UserControl_InitProperties()
{
    Persisted::Table.Reset(*this);
    Clear();
}

void CurrencyBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Persisted::Table.Read(*this, PropBag);
    Clear();
    const std::optional<Variant> help = Extender().Get(L"HelpContextID").As(VT_I4);
    txtLeft.HelpContextID(help ? help->Long() : 0);
}

void CurrencyBox::UserControl_MouseUp(short Button, short, double X, double Y)
{
    const Surface& surface = TheSurface();
    const bool inside = X >= 0 && X < surface.ScaleWidth() && Y >= 0 && Y < surface.ScaleHeight();
    if (Button == LeftButton && inside)
        RaiseEvent(ClickEvent);
}

void CurrencyBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Persisted::Table.Write(*this, PropBag);
}

// --- Properties ---

HRESULT CurrencyBox::get_AllowRounding(VARIANT_BOOL* result) noexcept
{
    return Get(result, [&] { return limits_.AllowRounding ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT CurrencyBox::put_AllowRounding(VARIANT_BOOL newState) noexcept
{
    return Member([&] {
        limits_.AllowRounding = newState != VARIANT_FALSE;
        PropertyChanged(L"AllowRounding");
    });
}

HRESULT CurrencyBox::get_hwnd(LONG* result) noexcept
{
    return Get(result, [&] { return HandleToLong(TheSurface().hWnd()); });
}

HRESULT CurrencyBox::get_NumDecDigits(short* result) noexcept
{
    return Get(result, [&] { return limits_.NumDecDigits; });
}

HRESULT CurrencyBox::put_NumDecDigits(short newCount) noexcept
{
    return Member([&] { Let(LetNumDecDigits(limits_, newCount)); });
}

HRESULT CurrencyBox::get_NumIntDigits(short* result) noexcept
{
    return Get(result, [&] { return limits_.NumIntDigits; });
}

HRESULT CurrencyBox::put_NumIntDigits(short newCount) noexcept
{
    return Member([&] { Let(LetNumIntDigits(limits_, newCount)); });
}

HRESULT CurrencyBox::get_MaxValue(CY* result) noexcept
{
    return Get(result, [&] { return V_CY(&Variant(limits_.MaxValue).Get()); });
}

HRESULT CurrencyBox::put_MaxValue(CY newAmount) noexcept
{
    return Member([&] { Let(LetMaxValue(limits_, Currency::FromUnits(newAmount.int64))); });
}

HRESULT CurrencyBox::get_MinValue(CY* result) noexcept
{
    return Get(result, [&] { return V_CY(&Variant(limits_.MinValue).Get()); });
}

HRESULT CurrencyBox::put_MinValue(CY newAmount) noexcept
{
    return Member([&] { Let(LetMinValue(limits_, Currency::FromUnits(newAmount.int64))); });
}

void CurrencyBox::Let(const CurrencyLimitsChange& change)
{
    limits_ = change.Limits;
    for (const wchar_t* name : change.Changed)
        PropertyChanged(name);
    if (change.Refused)
        throw ComError(InvalidPropertyValue);
}

HRESULT CurrencyBox::get_Text(BSTR* result) noexcept
{
    return Get(result, [&] { return Bstr(Text()).Detach(); });
}

Variant CurrencyBox::Value() const
{
    RefuseAtDesignTime();
    const CurrencyReading reading = ReadCurrency(txtLeft.Text(), SystemLocale());
    return reading.What == CurrencyReading::Kind::Amount ? Variant(reading.Amount) : Variant::Null();
}

void CurrencyBox::Value(const Variant& newAmount)
{
    Assign(NumberIn(newAmount, SystemLocale()));
}

void CurrencyBox::Assign(const std::optional<Decimal>& value)
{
    txtLeft.Text(CurrencyTextOf(value, limits_, SystemLocale()));
    ShowInLabel();
    PropertyChanged(L"Value");
}

// --- The rules of the amount ---

AmountLayout CurrencyBox::CalcLayout(const AmountSizes& sizes) const
{
    return CalcCurrencyLayout(sizes);
}

FilteredKey CurrencyBox::Filter(const BoxState& box, short KeyAscii) const
{
    return FilterCurrencyKey(box, KeyAscii, limits_, SystemLocale());
}

std::optional<Decimal> CurrencyBox::Pasted(std::wstring_view clipboard) const
{
    return PastedCurrency(clipboard, limits_, SystemLocale());
}

AmountExit CurrencyBox::ExitFrom(std::wstring_view text) const
{
    return ExitCurrency(text, limits_, SystemLocale());
}

bool CurrencyBox::IsValid(std::wstring_view text) const
{
    return IsValidCurrency(text, limits_, SystemLocale());
}

std::wstring CurrencyBox::RangeMessage() const
{
    return CurrencyRangeMessage(limits_, SystemLocale());
}

std::wstring CurrencyBox::CaptionOf(std::wstring_view text) const
{
    return CurrencyDisplayText(text, limits_, SystemLocale());
}

} // namespace kiv
