#pragma once

#include "controls/amount/AmountRules.h"
#include "controls/amount/CurrencyLimits.h"

namespace kiv
{

// What the box's text means.
struct CurrencyReading
{
    enum class Kind
    {
        // Nothing numeric: an empty text, "-", a lone point. Valid, as a blank field is.
        Blank,
        Amount,
        // A number that no currency value holds. Never valid; Value reads as Null.
        TooLarge
    };

    Kind What = Kind::Blank;
    Currency Amount;

    bool operator==(const CurrencyReading&) const = default;
};

// The rules of CurrencyBox that need no window: what its text means, and what its text becomes.
class CurrencyRules final : public AmountRules
{
public:
    explicit CurrencyRules(const CurrencyLimits& limits = {}, const NumberLocale& locale = {}) :
        limits_(limits), locale_(locale)
    {
    }

    FilteredKey Filter(BoxState box, short keyAscii) const override;
    std::optional<Decimal> Pasted(std::wstring_view clipboard) const override;
    std::wstring TextOf(const std::optional<Decimal>& value) const override;
    AmountExit Exit(std::wstring_view text) const override;
    bool IsValid(std::wstring_view text) const override;
    std::wstring RangeMessage() const override;

    CurrencyReading Read(std::wstring_view text) const;
    // The text as the label shows it, and the Text property. Empty if it is not numeric.
    std::wstring CaptionOf(std::wstring_view text) const;

private:
    CurrencyLimits limits_;
    NumberLocale locale_;
};

} // namespace kiv
