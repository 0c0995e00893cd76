#pragma once

#include "runtime/constituents/HookListener.h"

#include <functional>

namespace kiv
{

// The form that a window is a part of: the top-level window around it, or the child window of a multiple
// document frame. Null for none.
HWND FormOf(HWND window);

// While this lives, the listener is told which window is about to get the focus in this thread, null for
// none. For who has lost it to another form, and does not hear of it when it then goes elsewhere in its own.
class FocusWatch
{
public:
    using Listener = std::function<void(HWND next)>;

    explicit FocusWatch(Listener listener) : listener_(std::move(listener), &FocusWatch::Hook) {}

private:
    using Listeners = HookListener<Listener, WH_CBT>;
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;

    Listeners listener_;
};

} // namespace kiv
