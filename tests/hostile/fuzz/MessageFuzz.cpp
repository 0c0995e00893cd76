// Messages of any kind to every window that a control has.

#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/OddMessages.h"
#include "tests/hostile/fuzz/PlainWindow.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/ToolTips.h"
#include "tests/support/WindowClass.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace kiv::test
{

namespace
{

class MessageFuzzer : public Fuzzer
{
public:
    MessageFuzzer() :
        plain_(std::getenv("KIV_ATTACK_PLAIN") != nullptr),
        hook_(SetWindowsHookExW(WH_GETMESSAGE, &Retrieved, nullptr, GetCurrentThreadId()))
    {
        current_ = this;
    }
    ~MessageFuzzer() override
    {
        UnhookWindowsHookEx(hook_);
        current_ = nullptr;
    }

    bool NeedsWindow() const override { return true; }
    void End(Host&) override
    {
        for (const auto& [window, twin] : std::exchange(twins_, {}))
            DestroyWindow(twin);
    }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        const HWND root = host.ControlWindow();
        if (!IsWindow(root) || !IsChild(host.Window(), root))
        {
            tell("activated again");
            host.Activate(OLEIVERB_UIACTIVATE);
        }
        host_ = &host;
        random_ = &random;
        tell_ = &tell;
        Send(host.ControlWindow());
        random_ = nullptr;
        return "";
    }

private:
    // A form that is about to be closed is there, and waits for the user: its windows have their turn.
    static LRESULT CALLBACK Retrieved(int code, WPARAM wParam, LPARAM lParam) noexcept
    {
        constexpr int Times = 20;
        const auto& message = *reinterpret_cast<const MSG*>(lParam);
        if (code == HC_ACTION && wParam == PM_REMOVE && message.message == WM_CLOSE && current_ &&
            current_->random_ && ClassNameOf(message.hwnd) == "KivControls.Form")
        {
            for (int time = 0; time < Times && IsWindow(message.hwnd); ++time)
                current_->Send(message.hwnd);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    void Send(HWND root)
    {
        std::vector<HWND> windows = WindowsOf(root);
        std::ranges::copy(ToolTips(), std::back_inserter(windows));
        HWND target = random_->Pick(windows);
        const OddMessage message = messages_.Any(*random_, target, root);
        (*tell_)((plain_ ? "plain window: " : "") + message.Describe(target));
        if (plain_ && ClassNameOf(target).find("Kiv") == std::string::npos)
            target = TwinOf(target);
        else if (plain_)
            return;
        // A scroll bar follows the mouse until the button is up.
        if (message.Number == WM_LBUTTONDOWN || message.Number == WM_LBUTTONDBLCLK)
            PostMessageA(target, WM_LBUTTONUP, 0, 0);
        message.SendTo(target);
        if (message.Number == WM_SETREDRAW)
            SendMessageA(target, WM_SETREDRAW, TRUE, 0);
    }

    // One for each window, as long as that is there.
    HWND TwinOf(HWND window)
    {
        const auto [found, isNew] = twins_.try_emplace(window, nullptr);
        if (isNew)
            found->second = PlainTwinOf(window, host_->Window());
        return found->second;
    }

    static inline MessageFuzzer* current_ = nullptr;

    const bool plain_;
    const HHOOK hook_;
    OddMessages messages_;
    std::map<HWND, HWND> twins_;
    Host* host_ = nullptr;
    Random* random_ = nullptr;
    const Tell* tell_ = nullptr;
};

using FuzzMessages = AttackTest;

TEST_F(FuzzMessages, LeaveTheControlWhole)
{
    MessageFuzzer fuzzer;
    RunAttack("FuzzMessages", fuzzer);
}

} // namespace

} // namespace kiv::test
