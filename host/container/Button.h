#pragma once

#include "host/container/FormItem.h"
#include "runtime/access/AccessibleServer.h"

#include <functional>
#include <string>

namespace kiv::host
{

// Bounds are pixels of the form; "&" in a caption marks its mnemonic.
struct ButtonOptions
{
    std::wstring name;
    std::wstring caption;
    RECT bounds = {};
    FormItem* container = nullptr; // what it stands in; null: the form itself
    bool isDefault = false;        // Enter
    bool isCancel = false;         // Esc
    bool enabled = true;
    short tabIndex = -1;
    std::function<void()> onClick; // without one, a default or cancel button closes the form
};

// A real push button.
class Button final : public FormItem, private AccessibleSource
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
    bool TakesFocus() const override;
    bool HasFocus() const override;
    void Focus() override;
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;
    HWND OwnWindow() const override { return window_; }
    AccessibleInfo Accessible() const override;

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                            UINT_PTR id, DWORD_PTR button) noexcept;
    AccessibleInfo Describe(int) const override { return Accessible(); }
    bool DoDefaultAction(int part) override;
    bool TakeAccessibleFocus(int part) override;
    void OnContainerChanged() override;
    void ShowAsItIs();

    ButtonOptions options_;
    HWND window_;
    AccessibleServer accessible_;
};

} // namespace kiv::host
