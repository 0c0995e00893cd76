#pragma once

#include "host/container/FormItem.h"

#include <string>

namespace kiv::host
{

// Bounds are pixels of the form; "&" in a caption marks its mnemonic.
struct LabelOptions
{
    std::wstring name;
    std::wstring caption;
    RECT bounds = {};
    FormItem* container = nullptr; // what it stands in; null: the form itself
    bool alignRight = false;
    bool bold = false;
    bool enabled = true;
    short tabIndex = -1; // -1: after all that the form holds already
};

// A text drawn on the form, centred vertically. Its mnemonic moves the focus to the next item in tab order.
class Label final : public FormItem
{
public:
    Label(ItemOwner& owner, const LabelOptions& options);

    const std::wstring& Caption() const { return options_.caption; }
    AccessibleInfo Accessible() const override;
    std::wstring LabelText() const override;
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;
    void Paint(HDC context) override;

private:
    LabelOptions options_;
};

} // namespace kiv::host
