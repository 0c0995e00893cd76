#include "host/folio/Values.h"

#include "host/folio/Text.h"

#include <cmath>

namespace kiv::host
{

Variant ToVariant(const FormValue& value)
{
    if (const bool* truth = std::get_if<bool>(&value))
        return Variant(*truth);
    if (const std::string* text = std::get_if<std::string>(&value))
        return Variant(std::wstring_view(Wide(*text)));
    if (const double* number = std::get_if<double>(&value))
        return Variant(*number);
    const std::int64_t whole = std::get<std::int64_t>(value);
    if (whole == static_cast<std::int32_t>(whole))
        return Variant(static_cast<long>(whole));
    return Variant(static_cast<double>(whole));
}

std::optional<FormValue> ToFormValue(const Variant& value)
{
    switch (value.Type())
    {
    case VT_BOOL:
        return FormValue(value.Bool());
    case VT_BSTR:
        return FormValue(Utf8(value.Text()));
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
        return FormValue(std::int64_t(value.Long()));
    case VT_I8:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        if (const std::optional<Variant> number = value.As(VT_R8))
            return FormValue(V_R8(&number->Get()));
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

bool Matches(const Variant& actual, const std::optional<FormValue>& expected)
{
    if (!expected)
        return actual.IsNull();
    const std::optional<FormValue> value = ToFormValue(actual);
    if (!value)
        return false;
    const auto number = [](const FormValue& each) -> std::optional<double> {
        if (const std::int64_t* whole = std::get_if<std::int64_t>(&each))
            return static_cast<double>(*whole);
        if (const double* real = std::get_if<double>(&each))
            return *real;
        return std::nullopt;
    };
    if (number(*value) && number(*expected))
        return *number(*value) == *number(*expected);
    return *value == *expected;
}

std::string Describe(const Variant& value)
{
    if (value.IsNull())
        return "Null";
    if (value.Type() == VT_EMPTY)
        return "Empty";
    const std::optional<FormValue> plain = ToFormValue(value);
    return plain ? FormatFormValue(*plain) : "an object";
}

} // namespace kiv::host
