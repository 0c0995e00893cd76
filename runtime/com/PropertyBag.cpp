#include "runtime/com/PropertyBag.h"

#include "runtime/com/SystemLocale.h"
#include "runtime/com/VariantNumber.h"

namespace kiv
{

std::optional<Variant> PropertyBag::ReadAs(const wchar_t* name, VARTYPE type)
{
    const std::optional<Variant> stored = ReadValue(name, type);
    if (!stored || stored->Type() == VT_EMPTY)
        return std::nullopt;
    std::optional<Variant> converted = stored->As(type);
    if (!converted)
        ReportUnusable(name);
    return converted;
}

bool PropertyBag::ReadProperty(const wchar_t* name, bool defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_BOOL);
    return stored ? stored->Bool() : defaultValue;
}

short PropertyBag::ReadProperty(const wchar_t* name, short defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_I2);
    return stored ? stored->Short() : defaultValue;
}

long PropertyBag::ReadProperty(const wchar_t* name, long defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_I4);
    return stored ? stored->Long() : defaultValue;
}

float PropertyBag::ReadProperty(const wchar_t* name, float defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_R4);
    return stored ? V_R4(&stored->Get()) : defaultValue;
}

// Not by the system's conversions, which pass through a double.
Currency PropertyBag::ReadProperty(const wchar_t* name, Currency defaultValue)
{
    const std::optional<Variant> stored = ReadValue(name, VT_CY);
    if (!stored || stored->Type() == VT_EMPTY)
        return defaultValue;
    const std::optional<Decimal> number = NumberIn(*stored, SystemLocale());
    const std::optional<Currency> amount = number ? Currency::From(*number) : std::nullopt;
    if (!amount)
        ReportUnusable(name);
    return amount.value_or(defaultValue);
}

std::wstring PropertyBag::ReadProperty(const wchar_t* name, const wchar_t* defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_BSTR);
    return stored ? stored->Text() : defaultValue;
}

double PropertyBag::ReadDate(const wchar_t* name, double defaultValue)
{
    const std::optional<Variant> stored = ReadAs(name, VT_DATE);
    return stored ? V_DATE(&stored->Get()) : defaultValue;
}

Variant PropertyBag::ReadTextVariant(const wchar_t* name, const Variant& defaultValue)
{
    const std::optional<Variant> stored = ReadValue(name, VT_EMPTY);
    if (!stored || stored->Type() == VT_EMPTY)
        return defaultValue;
    if (stored->As(VT_BSTR))
        return *stored;
    ReportUnusable(name);
    return defaultValue;
}

void PropertyBag::WriteProperty(const wchar_t* name, const Variant& value, const Variant& defaultValue)
{
    if (!Identical(value, defaultValue))
        WriteValue(name, value);
}

ContainerPropertyBag::ContainerPropertyBag(IPropertyBag* bag, IErrorLog* log, const wchar_t* source) :
    bag_(bag), log_(log), source_(source)
{
}

std::optional<Variant> ContainerPropertyBag::ReadValue(const wchar_t* name, VARTYPE expected)
{
    // The type asked for tells the bag what to convert to; an object is asked for with a null reference.
    VARIANT value = {};
    V_VT(&value) = expected;
    // A bag that cannot convert what it holds tells the log itself; either way the default is taken.
    if (FAILED(bag_->Read(name, &value, log_.Get())))
        return std::nullopt;
    const Variant read(value);
    VariantClear(&value);
    return read;
}

void ContainerPropertyBag::WriteValue(const wchar_t* name, const Variant& value)
{
    Check(bag_->Write(name, value.Borrow()));
}

void ContainerPropertyBag::ReportUnusable(const wchar_t* name)
{
    if (!log_)
        return;
    EXCEPINFO information = {};
    information.bstrSource = Bstr(source_).Detach();
    information.scode = DISP_E_TYPEMISMATCH;
    // The log takes the strings over by copy; they stay ours.
    log_->AddError(name, &information);
    SysFreeString(information.bstrSource);
}

} // namespace kiv
