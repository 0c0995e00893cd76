#pragma once

#include "runtime/constituents/Constituent.h"

#include <functional>
#include <string>
#include <string_view>

namespace kiv
{

// A constituent push button: a real BUTTON. "&" in its caption marks a letter, which it shows and leaves to
// the container to act on. Space presses it, and Enter clicks it, while it has the focus.
class CommandButton final : public Constituent
{
public:
    explicit CommandButton(ConstituentOwner& owner, HWND parent, std::wstring_view caption = {});

    // Events.
    std::function<void()> OnClick;
    std::function<void()> OnDropDown; // Alt with the down arrow

    const std::wstring& Caption() const { return caption_; }
    void Caption(std::wstring_view caption);

    // True while OnClick runs. Setting True presses the button, enabled or not; False does nothing.
    bool Value() const { return value_; }
    void Value(bool newValue);

    // Pixels of the surface.
    void Move(int left, int top, int width, int height, bool repaint = true);

    void Notified(WORD code) override;
    AccessibleInfo Describe(int part) const override;
    std::wstring NameOf(int part) const override;
    bool DoDefaultAction(int part) override;
    void Draw(HDC dc, const RECT& place) const override;

protected:
    bool Received(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::wstring caption_;
    bool value_ = false;
};

} // namespace kiv
