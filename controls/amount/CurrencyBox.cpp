#include "controls/amount/CurrencyBox.h"

#include "resources/ResourceIds.h"
#include "runtime/com/SystemLocale.h"
#include "runtime/com/VariantNumber.h"

namespace kiv
{

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

CurrencyBox::CurrencyBox(IUnknown* outer) : CurrencyBoxMembers(Class, EventsOf<CurrencyBoxEvents>(), outer) {}

// Stored as they are: neither counts nor bounds are held against each other, and the range is not reset.
struct CurrencyBox::Properties
{
    static constexpr PropertyTable Table{
        BackColorProperty(DefaultBackColor),
        EnabledProperty(),
        ForeColorProperty(DefaultForeColor),
        FontProperty(),
        Part<L"AllowRounding">(&CurrencyBox::limits_, &CurrencyLimits::AllowRounding)
            .In(PropertyCategory::Behavior),
        Part<L"NumDecDigits">(&CurrencyBox::limits_, &CurrencyLimits::NumDecDigits)
            .In(PropertyCategory::Limits)
            .LetBy([](auto& box, short count) { box.Let(LetNumDecDigits(box.limits_, count)); }),
        Part<L"NumIntDigits">(&CurrencyBox::limits_, &CurrencyLimits::NumIntDigits)
            .In(PropertyCategory::Limits)
            .LetBy([](auto& box, short count) { box.Let(LetNumIntDigits(box.limits_, count)); }),
        Part<L"MaxValue">(&CurrencyBox::limits_, &CurrencyLimits::MaxValue)
            .In(PropertyCategory::Limits)
            .LetBy([](auto& box, Currency bound) { box.Let(LetMaxValue(box.limits_, bound)); }),
        Part<L"MinValue">(&CurrencyBox::limits_, &CurrencyLimits::MinValue)
            .In(PropertyCategory::Limits)
            .LetBy([](auto& box, Currency bound) { box.Let(LetMinValue(box.limits_, bound)); }),
        Unstored<L"hwnd">([](const auto& box) { return box.TheSurface().hWnd(); }),
        Unstored<L"Text">([](const auto& box) { return box.Caption(); }),
        ValueProperty(),
    };
};

// --- The control's life ---

void CurrencyBox::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
    Clear();
}

void CurrencyBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
    Clear();
    const std::optional<Variant> help = Extender().Get(L"HelpContextID").As(VT_I4);
    txtLeft.HelpContextID(help ? help->Long() : 0);
}

void CurrencyBox::UserControl_MouseUp(short Button, short, double X, double Y)
{
    const Surface& surface = TheSurface();
    const bool inside = X >= 0 && X < surface.ScaleWidth() && Y >= 0 && Y < surface.ScaleHeight();
    if (Button == LeftButton && inside)
        RaiseEvent(CurrencyBoxEvents::Click);
}

void CurrencyBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

// --- Properties ---

void CurrencyBox::Let(const CurrencyLimitsChange& change)
{
    limits_ = change.Limits;
    for (const wchar_t* name : change.Changed)
        PropertyChanged(name);
    if (change.Refused)
        throw ComError(InvalidPropertyValue);
}

Variant CurrencyBox::Value() const
{
    RefuseAtDesignTime();
    const CurrencyReading reading = CurrentRules().Read(txtLeft.Text());
    return reading.What == CurrencyReading::Kind::Amount ? Variant(reading.Amount) : Variant::Null();
}

void CurrencyBox::Value(const Variant& newAmount)
{
    Assign(NumberIn(newAmount, SystemLocale()));
}

CurrencyRules CurrencyBox::CurrentRules() const
{
    return CurrencyRules(limits_, SystemLocale());
}

std::unique_ptr<const AmountRules> CurrencyBox::Rules() const
{
    return std::make_unique<CurrencyRules>(CurrentRules());
}

void CurrencyBox::Assign(const std::optional<Decimal>& value)
{
    txtLeft.Text(CurrentRules().TextOf(value));
    ShowInLabel();
    PropertyChanged(L"Value");
}

} // namespace kiv
