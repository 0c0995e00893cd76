#include "controls/amount/AmountText.h"

#include "runtime/core/Val.h"

namespace kiv
{

bool HasPoint(std::wstring_view text, const NumberLocale& locale)
{
    return text.find(locale.DecimalPoint) != std::wstring_view::npos;
}

bool IsLonePoint(std::wstring_view text, const NumberLocale& locale)
{
    return text.size() == 1 && text.front() == locale.DecimalPoint;
}

Decimal ValOf(std::wstring_view text, const NumberLocale& locale)
{
    std::wstring pointed(text);
    for (wchar_t& character : pointed)
    {
        if (character == locale.DecimalPoint)
            character = L'.';
        else if (character == locale.GroupSeparator)
            character = L',';
    }
    return ExactVal(pointed);
}

} // namespace kiv
