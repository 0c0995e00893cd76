#pragma once

#include "controls/amount/AmountBox.h"
#include "controls/amount/PercentRules.h"

#include <KivMembers.h>

namespace kiv
{

// A rate within a range, typed as a percentage or a fraction, or as what is left of it to the whole.
class PercentBox final : public PercentBoxMembers<PercentBox, AmountBox>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit PercentBox(IUnknown* outer);

private:
    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void txtLeft_Change() override;

    // Properties.
    Variant Value() const override;
    void Value(const Variant& newRate) override;

    AmountLayout CalcLayout(const AmountSizes& sizes) const override { return CalcPercentLayout(sizes); }
    std::wstring Caption() const override { return txtLeft.Text(); }
    PercentRules CurrentRules() const;
    std::unique_ptr<const AmountRules> Rules() const override;
    void Assign(const std::optional<Decimal>& value) override;

    PercentLimits limits_;
};

} // namespace kiv
