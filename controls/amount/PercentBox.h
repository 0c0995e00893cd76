#pragma once

#include "controls/amount/AmountBox.h"

namespace kiv
{

// A rate within a range, typed as a percentage or a fraction, or as what is left of it to the whole.
class PercentBox final : public AmountBox<_PercentBox>
{
public:
    static const ControlClass Class;

    explicit PercentBox(IUnknown* outer);

    // _PercentBox, its own part
    HRESULT STDMETHODCALLTYPE get_Complement(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_Complement(VARIANT_BOOL newState) noexcept override;
    HRESULT STDMETHODCALLTYPE get_DisplayPercent(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_DisplayPercent(VARIANT_BOOL newState) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxDigits(short* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxDigits(short newCount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxDecimals(short* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxDecimals(short newCount) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaxValue(float* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaxValue(float newBound) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MinValue(float* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MinValue(float newBound) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) noexcept override;

private:
    struct Persisted;

    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void txtLeft_Change() override;

    // Properties.
    Variant Value() const override;
    void Value(const Variant& newRate) override;
    // The changed limits; none where the new value is not accepted.
    void Let(const std::optional<PercentLimits>& changed, const wchar_t* name);

    // The rules of the amount.
    AmountLayout CalcLayout(const AmountSizes& sizes) const override;
    FilteredKey Filter(const BoxState& box, short KeyAscii) const override;
    std::optional<Decimal> Pasted(std::wstring_view clipboard) const override;
    AmountExit ExitFrom(std::wstring_view text) const override;
    bool IsValid(std::wstring_view text) const override;
    std::wstring RangeMessage() const override;
    std::wstring CaptionOf(std::wstring_view text) const override { return std::wstring(text); }
    void Assign(const std::optional<Decimal>& value) override;

    PercentLimits limits_;
};

} // namespace kiv
