#pragma once

#include "controls/entry/BoxState.h"
#include "controls/standard/StandardControl.h"
#include "framework/subclass/SubClass.h"
#include "framework/subclass/SubClassOwner.h"
#include "runtime/constituents/TextBox.h"

#include <KivControls.h>

#include <initializer_list>

namespace kiv
{

BoxState StateOf(const TextBox& box);

// A control that reports as its Value what the user types into a text box of it, whose messages it hooks.
class EntryControl : public StandardControl
{
public:
    bool Hooks(HWND hwnd) const { return hwnd == hookedWindow_; }
    // A message of the hooked box. Errors are trapped by the service: they must not unwind through the window
    // procedure.
    virtual LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) = 0;
    // ShowMessage: whether the user is told what is wrong.
    virtual bool IsValidInput(bool ShowMessage) = 0;

protected:
    using StandardControl::StandardControl;

    void* FindInterface(REFIID iid) noexcept override;
    void FontChanged() override;
    // Digits, dates and amounts are read from left to right everywhere, and a mask would be taken apart.
    bool FollowsDirection() const override { return false; }
    bool TakeAccessibleValue(std::wstring_view text) override;

    // For the control's table.
    static constexpr auto ValueProperty()
    {
        return Unstored<L"Value">([](const EntryControl& control) { return control.Value(); },
                                  [](EntryControl& control, const Variant& value) { control.Value(value); });
    }

    virtual Variant Value() const = 0;
    virtual void Value(const Variant& newValue) = 0;

    // Lets each of the boxes cover the surface, which grows to what their font needs.
    void CoverWith(std::initializer_list<TextBox*> boxes);

    // What every box does for a key of the keyboard: Ctrl+A selects all, Ctrl+Z takes the last change back.
    // Whether it was one, which then goes no further.
    static bool EditBy(TextBox& box, short& KeyAscii);

    // One box at a time is hooked: another one's hook goes.
    void HookBox(const TextBox& box);
    // Also before the boxes go, which are parts of the derived class.
    void UnhookBox() { PrevWndProc.UnhookWindow(); }
    HWND HookedWindow() const { return hookedWindow_; }

    WindowHook PrevWndProc;

private:
    SubClassOwner<EntryControl> subClass_{*this};
    HWND hookedWindow_ = nullptr;
};

} // namespace kiv
