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

PercentBox::PercentBox(IUnknown* outer) :
    AmountBox(Class, {.Change = 1, .KeyDown = 3, .KeyPress = 2, .KeyUp = 4}, outer)
{
}

// Stored as they are: neither counts nor bounds are held against each other.
struct PercentBox::Persisted
{
    static constexpr PropertyTable Table{
        StoredBackColor(DefaultBackColor),
        StoredEnabled(),
        StoredFont().Written(&AsFont),
        StoredForeColor(DefaultForeColor),
        Field(L"Complement", &PercentBox::limits_, &PercentLimits::Complement),
        Field(L"DisplayPercent", &PercentBox::limits_, &PercentLimits::DisplayPercent),
        Field(L"MaxDigits", &PercentBox::limits_, &PercentLimits::MaxDigits),
        Field(L"MaxDecimals", &PercentBox::limits_, &PercentLimits::MaxDecimals),
        Field(L"MaxValue", &PercentBox::limits_, &PercentLimits::MaxValue),
        Field(L"MinValue", &PercentBox::limits_, &PercentLimits::MinValue),
    };
};

// --- The control's life ---

void PercentBox::UserControl_InitProperties()
{
    Persisted::Table.Reset(*this);
    Clear();
}

void PercentBox::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Persisted::Table.Read(*this, PropBag);
    Clear();
}

void PercentBox::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Persisted::Table.Write(*this, PropBag);
}

void PercentBox::txtLeft_Change()
{
    ShowInLabel();
    AmountBox::txtLeft_Change();
}

// --- Properties ---

HRESULT PercentBox::get_Complement(VARIANT_BOOL* result) noexcept
{
    return Get(result, [&] { return limits_.Complement ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT PercentBox::put_Complement(VARIANT_BOOL newState) noexcept
{
    return Member([&] {
        limits_.Complement = newState != VARIANT_FALSE;
        PropertyChanged(L"Complement");
    });
}

HRESULT PercentBox::get_DisplayPercent(VARIANT_BOOL* result) noexcept
{
    return Get(result, [&] { return limits_.DisplayPercent ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT PercentBox::put_DisplayPercent(VARIANT_BOOL newState) noexcept
{
    return Member([&] {
        limits_.DisplayPercent = newState != VARIANT_FALSE;
        PropertyChanged(L"DisplayPercent");
    });
}

HRESULT PercentBox::get_MaxDigits(short* result) noexcept
{
    return Get(result, [&] { return limits_.MaxDigits; });
}

HRESULT PercentBox::put_MaxDigits(short newCount) noexcept
{
    return Member([&] { Let(LetMaxDigits(limits_, newCount), L"MaxDigits"); });
}

HRESULT PercentBox::get_MaxDecimals(short* result) noexcept
{
    return Get(result, [&] { return limits_.MaxDecimals; });
}

HRESULT PercentBox::put_MaxDecimals(short newCount) noexcept
{
    return Member([&] { Let(LetMaxDecimals(limits_, newCount), L"MaxDecimals"); });
}

HRESULT PercentBox::get_MaxValue(float* result) noexcept
{
    return Get(result, [&] { return limits_.MaxValue; });
}

HRESULT PercentBox::put_MaxValue(float newBound) noexcept
{
    return Member([&] { Let(LetMaxPercent(limits_, newBound), L"MaxValue"); });
}

HRESULT PercentBox::get_MinValue(float* result) noexcept
{
    return Get(result, [&] { return limits_.MinValue; });
}

HRESULT PercentBox::put_MinValue(float newBound) noexcept
{
    return Member([&] { Let(LetMinPercent(limits_, newBound), L"MinValue"); });
}

void PercentBox::Let(const std::optional<PercentLimits>& changed, const wchar_t* name)
{
    if (!changed)
        throw ComError(InvalidPropertyValue);
    limits_ = *changed;
    PropertyChanged(name);
}

HRESULT PercentBox::get_Text(BSTR* result) noexcept
{
    return Get(result, [&] { return Bstr(lblRight.Caption()).Detach(); });
}

Variant PercentBox::Value() const
{
    const PercentReading reading = ReadPercent(txtLeft.Text(), limits_, SystemLocale());
    if (reading.What == PercentReading::Kind::Mismatch)
        throw ComError(TypeMismatch);
    return reading.What == PercentReading::Kind::Number ? Variant(reading.Number) : Variant::Null();
}

void PercentBox::Value(const Variant& newRate)
{
    Assign(NumberIn(newRate, SystemLocale()));
}

void PercentBox::Assign(const std::optional<Decimal>& value)
{
    txtLeft.Text(PercentTextOf(value, limits_, SystemLocale()));
    PropertyChanged(L"Value");
}

// --- The rules of the amount ---

AmountLayout PercentBox::CalcLayout(const AmountSizes& sizes) const
{
    return CalcPercentLayout(sizes);
}

FilteredKey PercentBox::Filter(const BoxState& box, short KeyAscii) const
{
    return FilterPercentKey(box, KeyAscii, limits_, SystemLocale());
}

std::optional<Decimal> PercentBox::Pasted(std::wstring_view clipboard) const
{
    return PastedPercent(clipboard, limits_, SystemLocale());
}

AmountExit PercentBox::ExitFrom(std::wstring_view text) const
{
    return ExitPercent(text, SystemLocale());
}

bool PercentBox::IsValid(std::wstring_view text) const
{
    return CheckPercentRange(text, limits_, SystemLocale());
}

std::wstring PercentBox::RangeMessage() const
{
    return PercentRangeMessage(limits_, SystemLocale());
}

} // namespace kiv
