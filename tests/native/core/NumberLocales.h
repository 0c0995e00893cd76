#pragma once

#include "runtime/core/NumberLocale.h"

#include <string_view>
#include <vector>

namespace kiv::test
{

// The tables of numbers are written for the first of these, and proved in each.
inline const std::vector<NumberLocale> NumberLocales = {
    {},
    // As in German: the other way round.
    {L',', L'.', L"\u20AC"},
};

// A text of a table as it reads in a locale.
inline std::wstring Localized(std::wstring_view text, const NumberLocale& locale)
{
    std::wstring localized;
    for (const wchar_t character : text)
    {
        if (character == L'.')
            localized += locale.DecimalPoint;
        else if (character == L',')
            localized += locale.GroupSeparator;
        else if (character == L'$')
            localized += locale.CurrencySymbol;
        else
            localized += character;
    }
    return localized;
}

} // namespace kiv::test
