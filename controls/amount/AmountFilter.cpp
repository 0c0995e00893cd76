#include "controls/amount/AmountFilter.h"

#include "runtime/core/Digits.h"

namespace kiv
{

namespace
{

constexpr short Rejected = 0;

bool IsDigitKey(short keyAscii)
{
    return IsDigit(static_cast<wchar_t>(keyAscii));
}

bool IsPointKey(short keyAscii, const NumberLocale& locale)
{
    return keyAscii == '.' || keyAscii == locale.DecimalPoint;
}

void DeleteSelection(BoxState& box)
{
    box.Text.erase(static_cast<std::size_t>(box.SelStart), static_cast<std::size_t>(box.SelLength));
    box.SelLength = 0;
}

// The steps of CurrencyBox's filter for one character.
class CurrencyFilter
{
public:
    CurrencyFilter(BoxState box, const CurrencyLimits& limits, const NumberLocale& locale) :
        box_(std::move(box)), limits_(limits), locale_(locale)
    {
    }

    FilteredKey Filter(short keyAscii)
    {
        // Before the character is looked at: a selection that covers the amount gives way, so that the
        // lengths below do not refuse the first digit over it. So even a refused character clears it, and
        // Ctrl+C does, with nothing left to copy. Deliberate.
        ClearIf(box_.SelLength >= limits_.NumIntDigits);
        // Says more than the line above only for a negative NumDecDigits, as a form written by hand may
        // store.
        ClearIf(box_.SelLength >= limits_.NumIntDigits + limits_.NumDecDigits + 1);
        ClearIf(HasPoint(box_.Text, locale_) && SelectsDecimals());
        const bool accepted = IsDigitKey(keyAscii) ? AcceptsDigit() : AcceptsOther(keyAscii);
        const bool point = IsPointKey(keyAscii, locale_);
        const auto passed = point ? static_cast<short>(locale_.DecimalPoint) : keyAscii;
        return {box_, accepted ? passed : Rejected};
    }

private:
    void ClearIf(bool due)
    {
        if (due)
            box_ = {};
    }

    // As long as the point and full decimals, wherever it lies.
    bool SelectsDecimals() const { return box_.SelLength == limits_.NumDecDigits + 1; }

    bool AcceptsOther(short keyAscii)
    {
        if (IsPointKey(keyAscii, locale_))
        {
            // Even where no point is allowed.
            ClearIf(SelectsDecimals());
            return limits_.NumDecDigits != 0 && !HasPoint(box_.Text, locale_);
        }
        // A second one in front of the first is not refused; such a text is not numeric.
        if (keyAscii == '-')
            return box_.SelStart == 0;
        return keyAscii == Backspace || IsClipboardKey(keyAscii);
    }

    bool AcceptsDigit() const
    {
        const int length = static_cast<int>(box_.Text.size());
        const std::size_t point = box_.Text.find(locale_.DecimalPoint);
        // The "-" counts: a negative amount holds one digit less. Deliberate.
        if (point == std::wstring::npos)
            return length < limits_.NumIntDigits;
        // Wherever the caret is: full decimals refuse every digit, and with a point there is no limit to the
        // digits in front of it. Deliberate.
        return length - static_cast<int>(point) - 1 < limits_.NumDecDigits;
    }

    BoxState box_;
    const CurrencyLimits& limits_;
    const NumberLocale& locale_;
};

} // namespace

FilteredKey FilterCurrencyKey(BoxState box, short keyAscii, const CurrencyLimits& limits,
                              const NumberLocale& locale)
{
    return CurrencyFilter(std::move(box), limits, locale).Filter(keyAscii);
}

FilteredKey FilterPercentKey(BoxState box, short keyAscii, const PercentLimits& limits,
                             const NumberLocale& locale)
{
    // The box deletes one more character, the one before the selection. Deliberate: people who work with
    // these boxes rely on it.
    if (IsDigitKey(keyAscii) || keyAscii == Backspace)
    {
        DeleteSelection(box);
        return {std::move(box), keyAscii};
    }
    if (IsPointKey(keyAscii, locale))
    {
        // Even when the point is then refused.
        DeleteSelection(box);
        const bool accepted = limits.MaxDecimals != 0 && !HasPoint(box.Text, locale);
        const auto point = static_cast<short>(locale.DecimalPoint);
        return {std::move(box), accepted ? point : Rejected};
    }
    return {std::move(box), IsClipboardKey(keyAscii) ? keyAscii : Rejected};
}

} // namespace kiv
