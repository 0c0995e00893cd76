#include "runtime/com/SystemLocale.h"

#include <windows.h>

namespace kiv
{

namespace
{

std::wstring Setting(LCTYPE type)
{
    // The longest that any of these settings can be, with its end.
    wchar_t text[16] = {};
    const int size = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, ARRAYSIZE(text));
    return size > 0 ? std::wstring(text) : std::wstring();
}

} // namespace

NumberLocale SystemLocale()
{
    NumberLocale locale;
    if (const std::wstring point = Setting(LOCALE_SDECIMAL); !point.empty())
        locale.DecimalPoint = point.front();
    // Empty for users who do not group.
    const std::wstring separator = Setting(LOCALE_STHOUSAND);
    locale.GroupSeparator = separator.empty() ? L'\0' : separator.front();
    locale.CurrencySymbol = Setting(LOCALE_SCURRENCY);
    return locale;
}

} // namespace kiv
