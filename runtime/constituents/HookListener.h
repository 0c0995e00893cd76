#pragma once

#include "runtime/com/Boundary.h"
#include "runtime/com/PerThread.h"

#include <windows.h>

#include <memory>
#include <utility>
#include <vector>

namespace kiv
{

// A listener to a kind of hook (WH_…) of the calling thread's windows, which are hooked while there is one.
template<class Listener, int Kind>
class HookListener
{
public:
    HookListener(Listener listener, HOOKPROC hook) :
        listener_(std::make_shared<const Listener>(std::move(listener)))
    {
        auto& thread = PerThread<Thread>();
        thread.All.emplace_back(listener_);
        if (!thread.Hook)
            thread.Hook = SetWindowsHookExA(Kind, hook, nullptr, GetCurrentThreadId());
    }
    HookListener(const HookListener&) = delete;
    HookListener& operator=(const HookListener&) = delete;
    ~HookListener()
    {
        listener_.reset();
        auto& thread = PerThread<Thread>();
        std::erase_if(thread.All, [](const auto& listener) { return listener.expired(); });
        if (thread.All.empty())
            UnhookWindowsHookEx(std::exchange(thread.Hook, nullptr));
    }

    // For the hook: shows the thread's listeners to tell, one after the other. Being told may end any of
    // them, whose turn then does not come.
    template<class Tell>
    static void Each(const Tell& tell) noexcept
    {
        Boundary([&] {
            const auto all = PerThread<Thread>().All;
            for (const auto& each : all)
            {
                if (const auto listener = each.lock())
                    Boundary([&] { tell(*listener); });
            }
        });
    }

private:
    struct Thread
    {
        std::vector<std::weak_ptr<const Listener>> All;
        HHOOK Hook = nullptr;
    };

    std::shared_ptr<const Listener> listener_;
};

} // namespace kiv
