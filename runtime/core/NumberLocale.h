#pragma once

#include <string>

namespace kiv
{

// What the user's settings say about writing numbers. Groups are of three digits, the negative sign is "-".
struct NumberLocale
{
    wchar_t DecimalPoint = L'.';
    // 0 for none.
    wchar_t GroupSeparator = L',';
    std::wstring CurrencySymbol = L"$";
};

} // namespace kiv
