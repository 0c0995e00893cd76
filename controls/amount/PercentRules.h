#pragma once

#include "controls/amount/AmountRules.h"
#include "controls/amount/PercentLimits.h"

namespace kiv
{

// What Value reads from the box's text.
struct PercentReading
{
    enum class Kind
    {
        // Blank or out of range.
        Null,
        // The text of a number.
        Number,
        // A lone point passes as valid but is no number: error 13 is due.
        Mismatch
    };

    Kind What = Kind::Null;
    std::wstring Number;

    bool operator==(const PercentReading&) const = default;
};

// The rules of PercentBox that need no window.
class PercentRules final : public AmountRules
{
public:
    explicit PercentRules(const PercentLimits& limits = {}, const NumberLocale& locale = {}) :
        limits_(limits), locale_(locale)
    {
    }

    FilteredKey Filter(BoxState box, short keyAscii) const override;
    std::optional<Decimal> Pasted(std::wstring_view clipboard) const override;
    std::wstring TextOf(const std::optional<Decimal>& value) const override;
    AmountExit Exit(std::wstring_view text) const override;
    bool IsValid(std::wstring_view text) const override { return CheckPercentRange(text); }
    std::wstring RangeMessage() const override;

    // Blank and a lone point are in any range.
    bool CheckPercentRange(std::wstring_view text) const;
    // Value.
    PercentReading Read(std::wstring_view text) const;
    // The same without a look at the range.
    PercentReading PercentTextToValue(std::wstring_view text) const;

private:
    PercentLimits limits_;
    NumberLocale locale_;
};

// The pattern of the box's text: "##0.####" for three digits and four decimals.
std::wstring PercentPattern(const PercentLimits& limits);

} // namespace kiv
