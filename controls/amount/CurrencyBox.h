#pragma once

#include "controls/amount/AmountBox.h"

namespace kiv
{

// An amount of money within a range and with so many digits, rounded to whole units if the host wants it.
class CurrencyBox final : public AmountBox<_CurrencyBox>
{
public:
    static const ControlClass Class;

    explicit CurrencyBox(IUnknown* outer);

    // _CurrencyBox, its own part
    HRESULT STDMETHODCALLTYPE get_AllowRounding(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_AllowRounding(VARIANT_BOOL newState) noexcept override;
    HRESULT STDMETHODCALLTYPE get_hwnd(LONG* result) noexcept override;
    HRESULT STDMETHODCALLTYPE get_NumDecDigits(short* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_NumDecDigits(short newCount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_NumIntDigits(short* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_NumIntDigits(short newCount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxValue(CY* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxValue(CY newAmount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MinValue(CY* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MinValue(CY newAmount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) noexcept override;

private:
    struct Persisted;

    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_MouseUp(short Button, short Shift, double X, double Y) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;

    // Properties.
    std::wstring Text() const { return CaptionOf(txtLeft.Text()); }
    Variant Value() const override;
    void Value(const Variant& newAmount) override;
    void Let(const CurrencyLimitsChange& change);

    // The rules of the amount.
    AmountLayout CalcLayout(const AmountSizes& sizes) const override;
    FilteredKey Filter(const BoxState& box, short KeyAscii) const override;
    std::optional<Decimal> Pasted(std::wstring_view clipboard) const override;
    AmountExit ExitFrom(std::wstring_view text) const override;
    bool IsValid(std::wstring_view text) const override;
    std::wstring RangeMessage() const override;
    std::wstring CaptionOf(std::wstring_view text) const override;
    void Assign(const std::optional<Decimal>& value) override;

    CurrencyLimits limits_;
};

} // namespace kiv
