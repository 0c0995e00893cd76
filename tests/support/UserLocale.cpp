#include "tests/support/UserLocale.h"

#include "runtime/com/Errors.h"
#include "runtime/com/SystemLocale.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

bool Set(const NumberLocale& numbers)
{
    const auto set = [](LCTYPE what, const std::wstring& text) {
        return SetLocaleInfoW(LOCALE_USER_DEFAULT, what, text.c_str()) != FALSE;
    };
    const std::wstring separator(numbers.GroupSeparator == 0 ? 0 : 1, numbers.GroupSeparator);
    return set(LOCALE_SDECIMAL, std::wstring(1, numbers.DecimalPoint)) && set(LOCALE_STHOUSAND, separator) &&
           set(LOCALE_SCURRENCY, numbers.CurrencySymbol);
}

} // namespace

UserLocale::UserLocale(const NumberLocale& numbers) : former_(SystemLocale())
{
    if (!Set(numbers))
        ThrowLastError();
}

UserLocale::~UserLocale()
{
    EXPECT_TRUE(Set(former_)) << "the user's settings are changed for good";
}

} // namespace kiv::test
