#include "tests/com/numbers/SystemNumbers.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"

#include <array>

namespace kiv::test
{

namespace
{

std::wstring LocaleText(LCID locale, LCTYPE what)
{
    std::array<wchar_t, 16> text = {};
    if (GetLocaleInfoW(locale, what | LOCALE_NOUSEROVERRIDE, text.data(), static_cast<int>(text.size())) == 0)
        ThrowLastError();
    return text.data();
}

} // namespace

SystemLocale::SystemLocale(LCID identifier) :
    Identifier(identifier),
    Numbers{LocaleText(identifier, LOCALE_SDECIMAL).at(0), LocaleText(identifier, LOCALE_STHOUSAND).at(0),
            LocaleText(identifier, LOCALE_SCURRENCY)}
{
}

SystemNumber SystemNumber::OfAmount(std::int64_t units)
{
    return {Currency::FromUnits(units).ToDecimal(), units, 0};
}

SystemNumber SystemNumber::OfDouble(double number)
{
    return {Decimal::FromDouble(number).value(), std::nullopt, number};
}

std::wstring SystemFormat(const SystemNumber& number, const std::wstring& pattern, LCID locale)
{
    VARIANT value = {};
    value.vt = number.Units ? VT_CY : VT_R8;
    if (number.Units)
        value.cyVal.int64 = *number.Units;
    else
        value.dblVal = number.Binary;
    const Bstr text(pattern);
    std::array<BYTE, 256> tokens = {};
    Check(VarTokenizeFormatString(text.Get(), tokens.data(), static_cast<int>(tokens.size()), 0, 0, locale,
                                  nullptr));
    Bstr formatted;
    Check(VarFormatFromTokens(&value, text.Get(), tokens.data(), 0, formatted.Receive(), locale));
    return formatted.String();
}

std::optional<double> SystemDouble(const std::wstring& text, LCID locale)
{
    double number = 0;
    if (FAILED(VarR8FromStr(Bstr(text).Get(), locale, LOCALE_NOUSEROVERRIDE, &number)))
        return std::nullopt;
    return number;
}

std::optional<Currency> SystemCurrency(const std::wstring& text, LCID locale)
{
    CY amount = {};
    if (FAILED(VarCyFromStr(Bstr(text).Get(), locale, LOCALE_NOUSEROVERRIDE, &amount)))
        return std::nullopt;
    return Currency::FromUnits(amount.int64);
}

std::optional<Currency> SystemCurrency(double number)
{
    CY amount = {};
    if (FAILED(VarCyFromR8(number, &amount)))
        return std::nullopt;
    return Currency::FromUnits(amount.int64);
}

std::wstring SystemText(double number, LCID locale)
{
    Bstr text;
    Check(VarBstrFromR8(number, locale, LOCALE_NOUSEROVERRIDE, text.Receive()));
    return text.String();
}

std::wstring SystemText(float number, LCID locale)
{
    Bstr text;
    Check(VarBstrFromR4(number, locale, LOCALE_NOUSEROVERRIDE, text.Receive()));
    return text.String();
}

std::wstring SystemText(Currency amount, LCID locale)
{
    CY units = {};
    units.int64 = amount.Units();
    Bstr text;
    Check(VarBstrFromCy(units, locale, LOCALE_NOUSEROVERRIDE, text.Receive()));
    return text.String();
}

} // namespace kiv::test
