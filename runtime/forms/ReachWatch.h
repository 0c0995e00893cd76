#pragma once

#include <windows.h>

#include <functional>
#include <memory>

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

    ReachWatch(HWND window, Listener listener);
    ReachWatch(const ReachWatch&) = delete;
    ReachWatch& operator=(const ReachWatch&) = delete;
    ~ReachWatch();

private:
    struct Watched
    {
        HWND Window;
        Listener Tell;
    };
    struct Thread;

    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;

    std::shared_ptr<const Watched> watched_;
};

} // namespace kiv
