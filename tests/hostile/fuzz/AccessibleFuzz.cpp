// Clients that ask the control's windows for accessible objects, and those for children that there are not.

#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/OddMessages.h"
#include "tests/hostile/fuzz/OddValues.h"
#include "tests/support/Accessible.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/ToolTips.h"
#include "tests/support/WindowClass.h"

#include <oleacc.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr LONG Objects[] = {OBJID_WINDOW,
                            OBJID_SYSMENU,
                            OBJID_TITLEBAR,
                            OBJID_MENU,
                            OBJID_CLIENT,
                            OBJID_VSCROLL,
                            OBJID_HSCROLL,
                            OBJID_SIZEGRIP,
                            OBJID_CARET,
                            OBJID_CURSOR,
                            OBJID_ALERT,
                            OBJID_SOUND,
                            OBJID_QUERYCLASSNAMEIDX,
                            OBJID_NATIVEOM,
                            -25,
                            0,
                            1};

class AccessibleFuzzer : public Fuzzer
{
public:
    bool NeedsWindow() const override { return true; }
    void End(Host&) override { values_.Clear(); }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        values_.Clear();
        if (!IsChild(host.Window(), host.ControlWindow()))
            host.Activate(OLEIVERB_UIACTIVATE);
        std::vector<HWND> windows = WindowsOf(host.ControlWindow());
        std::ranges::copy(ToolTips(), std::back_inserter(windows));
        const HWND window = random.Pick(windows);
        const LONG object = random.OneIn(8) ? static_cast<LONG>(random.OddNumber()) : random.Pick(Objects);
        tell("object " + std::to_string(object) + " of " + ClassNameOf(window));
        ComPtr<IAccessible> found;
        if (random.OneIn(4))
        {
            const LRESULT answer =
                SendMessageW(window, WM_GETOBJECT, static_cast<WPARAM>(random.OddNumber()), object);
            if (answer > 0)
                ObjectFromLresult(answer, __uuidof(IAccessible), 0,
                                  reinterpret_cast<void**>(found.GetAddressOf()));
        }
        else
        {
            AccessibleObjectFromWindow(window, static_cast<DWORD>(object), __uuidof(IAccessible),
                                       reinterpret_cast<void**>(found.GetAddressOf()));
        }
        if (!found)
            return "";
        // A client may still ask when the window is gone from the form.
        if (random.OneIn(32))
            host.Control<IOleInPlaceObject>()->InPlaceDeactivate();
        Ask(found.Get(), random, tell, std::to_string(object) + " of " + ClassNameOf(window));
        return "";
    }

private:
    VARIANT Child(Random& random)
    {
        if (random.OneIn(4))
            return values_.Any(random);
        VARIANT child = {};
        V_VT(&child) = VT_I4;
        V_I4(&child) = random.OneIn(2) ? CHILDID_SELF : static_cast<LONG>(random.OddNumber());
        return child;
    }

    void Ask(IAccessible* asked, Random& random, const Tell& tell, const std::string& whose)
    {
        const VARIANT child = Child(random);
        const std::size_t member = random.Below(MembersOfAccessible);
        tell("member " + std::to_string(member) + " of " + whose + ", child " + OddValues::Show(child));
        const std::wstring text =
            member == MembersOfAccessible - 1 ? OddValues::Text(random) : std::wstring();
        CallMember(*asked, member, child, text, [&](long limit) {
            return static_cast<long>(random.Below(static_cast<std::size_t>(limit)));
        });
    }

    OddValues values_;
};

using FuzzAccessible = AttackTest;

TEST_F(FuzzAccessible, LeavesTheControlWhole)
{
    AccessibleFuzzer fuzzer;
    RunAttack("FuzzAccessible", fuzzer);
}

} // namespace

} // namespace kiv::test
