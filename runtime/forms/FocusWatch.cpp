#include "runtime/forms/FocusWatch.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/PerThread.h"

#include <vector>

namespace kiv
{

namespace
{

// Those who listen in this thread. Its windows are hooked while there is one.
struct Listeners
{
    std::vector<std::weak_ptr<const FocusWatch::Listener>> All;
    HHOOK Hook = nullptr;
};

} // namespace

HWND FormOf(HWND window)
{
    while (window && (GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) != 0 &&
           (GetWindowLongPtrA(window, GWL_EXSTYLE) & WS_EX_MDICHILD) == 0)
        window = GetParent(window);
    return window;
}

FocusWatch::FocusWatch(Listener listener) : listener_(std::make_shared<const Listener>(std::move(listener)))
{
    auto& listeners = PerThread<Listeners>();
    listeners.All.emplace_back(listener_);
    if (!listeners.Hook)
        listeners.Hook = SetWindowsHookExA(WH_CBT, &FocusWatch::Hook, nullptr, GetCurrentThreadId());
}

FocusWatch::~FocusWatch()
{
    listener_.reset();
    auto& listeners = PerThread<Listeners>();
    std::erase_if(listeners.All, [](const auto& listener) { return listener.expired(); });
    if (listeners.All.empty())
        UnhookWindowsHookEx(std::exchange(listeners.Hook, nullptr));
}

LRESULT CALLBACK FocusWatch::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    if (code == HCBT_SETFOCUS)
    {
        // Whoever is told may stop listening, and so may others: each is asked for when its turn comes.
        Boundary([&] {
            const auto all = PerThread<Listeners>().All;
            for (const auto& each : all)
            {
                if (const auto listener = each.lock())
                    Boundary([&] { (*listener)(reinterpret_cast<HWND>(wParam)); });
            }
        });
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace kiv
