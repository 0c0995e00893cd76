#pragma once

#include "runtime/constituents/HookListener.h"

#include <functional>

namespace kiv
{

// Whether the user can get at a window: it, and all that it lies in, is shown and enabled.
bool IsWithinReach(HWND window);

// While this lives, the listener is told when the window has got out of reach: somebody has hidden or
// disabled it, or a window around it, of which the window itself hears nothing. It may be told more than
// once.
class ReachWatch
{
public:
    using Listener = std::function<void()>;

    ReachWatch(HWND window, Listener listener) : listener_({window, std::move(listener)}, &ReachWatch::Hook)
    {
    }

private:
    struct Watched
    {
        HWND Window;
        Listener Tell;
    };
    using Listeners = HookListener<Watched, WH_CALLWNDPROCRET>;
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;

    Listeners listener_;
};

} // namespace kiv
