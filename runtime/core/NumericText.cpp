#include "runtime/core/NumericText.h"

#include "runtime/core/NumberScanner.h"

#include <cmath>

namespace kiv
{

namespace
{

constexpr wchar_t NoBreakSpace = L'\u00A0';
constexpr wchar_t NarrowNoBreakSpace = L'\u202F';

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == NoBreakSpace || (character >= L'\t' && character <= L'\r');
}

// What stands in front of the digits, or behind them: how many of each.
struct Marks
{
    int Signs = 0;
    int Symbols = 0;
    int Parentheses = 0;
    bool Minus = false;
};

class NumberReader
{
public:
    NumberReader(std::wstring_view text, const NumberLocale& locale) : rest_(text), locale_(locale) {}

    std::optional<Decimal> Read()
    {
        const Marks front = ReadMarks(L'(');
        const auto number = ReadDigits();
        const Marks back = ReadMarks(L')');
        if (!number || !rest_.empty() || front.Parentheses != back.Parentheses)
            return std::nullopt;
        // Parentheses are a sign, too.
        if (front.Signs + back.Signs + front.Parentheses > 1 || front.Symbols + back.Symbols > 1)
            return std::nullopt;
        const bool negative = front.Minus || back.Minus || front.Parentheses != 0;
        return negative ? number->Negated() : *number;
    }

private:
    bool TakeIf(bool there, std::size_t length = 1)
    {
        if (there)
            rest_.remove_prefix(length);
        return there;
    }

    bool Take(wchar_t character) { return TakeIf(!rest_.empty() && rest_.front() == character); }
    bool TakeBlank() { return TakeIf(!rest_.empty() && IsBlank(rest_.front())); }

    bool TakeSymbol()
    {
        const std::wstring& symbol = locale_.CurrencySymbol;
        return TakeIf(!symbol.empty() && rest_.starts_with(symbol), symbol.size());
    }

    bool TakeGroupSeparator()
    {
        const wchar_t separator = locale_.GroupSeparator;
        if (separator != 0 && Take(separator))
            return true;
        // Keyboards have no key for the blanks that some languages group by.
        return (separator == NoBreakSpace || separator == NarrowNoBreakSpace) && Take(L' ');
    }

    Marks ReadMarks(wchar_t parenthesis)
    {
        Marks marks;
        while (true)
        {
            if (Take(L'-'))
            {
                ++marks.Signs;
                marks.Minus = true;
            }
            else if (Take(L'+'))
                ++marks.Signs;
            else if (Take(parenthesis))
                ++marks.Parentheses;
            else if (TakeSymbol())
                ++marks.Symbols;
            else if (!TakeBlank())
                return marks;
        }
    }

    std::optional<Decimal> ReadDigits()
    {
        std::string digits = TakeDigits(rest_);
        while (!digits.empty() && TakeGroupSeparator())
            digits += TakeDigits(rest_);
        const int point = static_cast<int>(digits.size());
        if (Take(locale_.DecimalPoint))
            digits += TakeDigits(rest_);
        if (digits.empty())
            return std::nullopt;
        const Decimal number(false, digits, point + TakeExponent(rest_));
        const double binary = number.ToDouble();
        if (std::isinf(binary))
            return std::nullopt;
        return binary == 0.0 ? Decimal() : number;
    }

    std::wstring_view rest_;
    const NumberLocale& locale_;
};

std::optional<Decimal> ParseRadixNumber(std::wstring_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    const auto number = TakeRadixNumber(text);
    return number && text.empty() ? Decimal::FromDouble(*number) : std::nullopt;
}

} // namespace

std::optional<Decimal> ParseNumber(std::wstring_view text, const NumberLocale& locale)
{
    if (const auto number = ParseRadixNumber(text))
        return number;
    return NumberReader(text, locale).Read();
}

} // namespace kiv
