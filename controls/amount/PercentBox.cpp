#include "controls/amount/PercentBox.h"

#include "resources/ResourceIds.h"
#include "runtime/com/SystemLocale.h"
#include "runtime/com/VariantNumber.h"

namespace kiv
{

const ControlClass PercentBox::Class = {
    CLSID_PercentBox,
    __uuidof(_PercentBox),
    __uuidof(__PercentBox),
    L"PercentBox",
    L"KivControls.PercentBox",
    KIV_TOOLBOX_PERCENTBOX,
    {900, 285},
    true,
};

PercentBox::PercentBox(IUnknown* outer) : PercentBoxMembers(Class, EventsOf<PercentBoxEvents>(), outer) {}

// Stored as they are: neither counts nor bounds are held against each other.
struct PercentBox::Properties
{
    static constexpr PropertyTable Table{
        BackColorProperty(DefaultBackColor),
        EnabledProperty(),
        FontProperty(),
        ForeColorProperty(DefaultForeColor),
        Part<L"Complement">(&PercentBox::limits_, &PercentLimits::Complement).In(PropertyCategory::Behavior),
        Part<L"DisplayPercent">(&PercentBox::limits_, &PercentLimits::DisplayPercent)
            .In(PropertyCategory::Behavior),
        Part<L"MaxDigits">(&PercentBox::limits_, &PercentLimits::MaxDigits, &LetMaxDigits)
            .In(PropertyCategory::Limits),
        Part<L"MaxDecimals">(&PercentBox::limits_, &PercentLimits::MaxDecimals, &LetMaxDecimals)
            .In(PropertyCategory::Limits),
        Part<L"MaxValue">(&PercentBox::limits_, &PercentLimits::MaxValue, &LetMaxPercent)
            .In(PropertyCategory::Limits),
        Part<L"MinValue">(&PercentBox::limits_, &PercentLimits::MinValue, &LetMinPercent)
            .In(PropertyCategory::Limits),
        Unstored<L"Text">([](const auto& box) { return box.lblRight.Caption(); }),
        ValueProperty(),
    };
};

// --- The control's life ---

void PercentBox::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
    Clear();
}

void PercentBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
    Clear();
}

void PercentBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

void PercentBox::txtLeft_Change()
{
    ShowInLabel();
    AmountBox::txtLeft_Change();
}

// --- Properties ---

Variant PercentBox::Value() const
{
    const PercentReading reading = CurrentRules().Read(txtLeft.Text());
    if (reading.What == PercentReading::Kind::Mismatch)
        throw ComError(TypeMismatch);
    return reading.What == PercentReading::Kind::Number ? Variant(reading.Number) : Variant::Null();
}

void PercentBox::Value(const Variant& newRate)
{
    Assign(NumberIn(newRate, SystemLocale()));
}

PercentRules PercentBox::CurrentRules() const
{
    return PercentRules(limits_, SystemLocale());
}

std::unique_ptr<const AmountRules> PercentBox::Rules() const
{
    return std::make_unique<PercentRules>(CurrentRules());
}

void PercentBox::Assign(const std::optional<Decimal>& value)
{
    txtLeft.Text(CurrentRules().TextOf(value));
    PropertyChanged(L"Value");
}

} // namespace kiv
