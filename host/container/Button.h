#pragma once

#include "host/container/FormItem.h"

#include <functional>
#include <string>

namespace kiv::host
{

// Bounds are pixels of the form's client area; "&" in a caption marks its mnemonic.
struct ButtonOptions
{
    std::wstring name;
    std::wstring caption;
    RECT bounds = {};
    bool isDefault = false; // Enter
    bool isCancel = false;  // Esc
    bool enabled = true;
    short tabIndex = -1;
    std::function<void()> onClick; // without one, a default or cancel button closes the form
};

// A real push button.
class Button final : public FormItem
{
public:
    Button(ItemOwner& owner, const ButtonOptions& options);
    ~Button() override;

    HWND Window() const { return window_; }
    bool IsDefault() const { return options_.isDefault; }
    bool IsCancel() const { return options_.isCancel; }
    // What a click does.
    void Press();

    void Move(const RECT& bounds) override;
    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;
    bool TakesFocus() const override;
    bool HasFocus() const override;
    void Focus() override;
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;

private:
    ButtonOptions options_;
    HWND window_;
};

} // namespace kiv::host
