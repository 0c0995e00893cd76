#include "runtime/forms/ReachWatch.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/PerThread.h"

#include <utility>
#include <vector>

namespace kiv
{

// What is watched in this thread. Its windows are hooked while there is anything.
struct ReachWatch::Thread
{
    std::vector<std::weak_ptr<const Watched>> All;
    HHOOK Hook = nullptr;
};

bool IsWithinReach(HWND window)
{
    if (!IsWindowVisible(window))
        return false;
    for (HWND around = window; around; around = GetAncestor(around, GA_PARENT))
    {
        if (!IsWindowEnabled(around))
            return false;
    }
    return true;
}

ReachWatch::ReachWatch(HWND window, Listener listener) :
    watched_(std::make_shared<const Watched>(Watched{window, std::move(listener)}))
{
    auto& thread = PerThread<Thread>();
    thread.All.emplace_back(watched_);
    if (!thread.Hook)
        thread.Hook = SetWindowsHookExA(WH_CALLWNDPROCRET, &ReachWatch::Hook, nullptr, GetCurrentThreadId());
}

ReachWatch::~ReachWatch()
{
    watched_.reset();
    auto& thread = PerThread<Thread>();
    std::erase_if(thread.All, [](const auto& watched) { return watched.expired(); });
    if (thread.All.empty())
        UnhookWindowsHookEx(std::exchange(thread.Hook, nullptr));
}

// The two messages by which a window learns that it has been hidden or disabled.
LRESULT CALLBACK ReachWatch::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto* handled = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && (handled->message == WM_ENABLE || handled->message == WM_WINDOWPOSCHANGED))
    {
        // Whoever is told may end its watch, and others: each is asked for when its turn comes.
        Boundary([&] {
            const auto all = PerThread<Thread>().All;
            for (const auto& each : all)
            {
                const auto watched = each.lock();
                if (watched &&
                    (watched->Window == handled->hwnd || IsChild(handled->hwnd, watched->Window)) &&
                    !IsWithinReach(watched->Window))
                    Boundary([&] { watched->Tell(); });
            }
        });
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace kiv
