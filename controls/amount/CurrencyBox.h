#pragma once

#include "controls/amount/AmountBox.h"
#include "controls/amount/CurrencyRules.h"

#include <KivMembers.h>

namespace kiv
{

// An amount of money within a range and with so many digits, rounded to whole units if the host wants it.
class CurrencyBox final : public CurrencyBoxMembers<CurrencyBox, AmountBox>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit CurrencyBox(IUnknown* outer);

private:
    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_MouseUp(short Button, short Shift, double X, double Y) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;

    // Properties.
    Variant Value() const override;
    void Value(const Variant& newAmount) override;
    void Let(const CurrencyLimitsChange& change);

    AmountLayout CalcLayout(const AmountSizes& sizes) const override { return CalcCurrencyLayout(sizes); }
    std::wstring Caption() const override { return CurrentRules().CaptionOf(txtLeft.Text()); }
    CurrencyRules CurrentRules() const;
    std::unique_ptr<const AmountRules> Rules() const override;
    void Assign(const std::optional<Decimal>& value) override;

    CurrencyLimits limits_;
};

} // namespace kiv
