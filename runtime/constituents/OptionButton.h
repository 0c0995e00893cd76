#pragma once

#include "runtime/constituents/Constituent.h"

#include <functional>
#include <string_view>

namespace kiv
{

// A constituent option button: a real BUTTON, of which at most one under the same parent is selected.
class OptionButton final : public Constituent
{
public:
    OptionButton(ConstituentOwner& owner, HWND parent, std::wstring_view caption);

    // Event: the button has become selected, by the user or by Value.
    std::function<void()> OnClick;

    bool Value() const { return value_; }
    void Value(bool newValue);

    void Notified(WORD code) override;
    AccessibleInfo Describe(int part) const override;
    bool DoDefaultAction(int part) override;

private:
    void Show();

    bool value_ = false;
};

} // namespace kiv
