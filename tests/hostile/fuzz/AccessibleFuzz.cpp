// Clients that ask the control's windows for accessible objects, and those for children that there are not.

#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/OddMessages.h"
#include "tests/hostile/fuzz/OddValues.h"
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
        const std::size_t member = random.Below(16);
        tell("member " + std::to_string(member) + " of " + whose + ", child " + OddValues::Show(child));
        Bstr text;
        Variant answer;
        ComPtr<IDispatch> object;
        long numbers[4] = {};
        switch (member)
        {
        case 0:
            asked->get_accName(child, text.Receive());
            break;
        case 1:
            asked->get_accValue(child, text.Receive());
            break;
        case 2:
            asked->get_accDescription(child, text.Receive());
            break;
        case 3:
            asked->get_accRole(child, answer.Receive());
            break;
        case 4:
            asked->get_accState(child, answer.Receive());
            break;
        case 5:
            asked->get_accKeyboardShortcut(child, text.Receive());
            break;
        case 6:
            asked->get_accDefaultAction(child, text.Receive());
            break;
        case 7:
            asked->accLocation(&numbers[0], &numbers[1], &numbers[2], &numbers[3], child);
            break;
        case 8:
            asked->accNavigate(static_cast<long>(random.Below(10)), child, answer.Receive());
            break;
        case 9:
            asked->accHitTest(static_cast<long>(random.Below(300)), static_cast<long>(random.Below(300)),
                              answer.Receive());
            break;
        case 10:
            asked->accDoDefaultAction(child);
            break;
        case 11:
            asked->get_accChild(child, &object);
            break;
        case 12:
            asked->get_accParent(&object);
            break;
        case 13:
            asked->accSelect(static_cast<long>(random.Below(64)), child);
            break;
        case 14:
            asked->get_accFocus(answer.Receive());
            asked->get_accSelection(answer.Receive());
            asked->get_accChildCount(numbers);
            break;
        default: {
            const Bstr given(OddValues::Text(random));
            asked->put_accValue(child, given.Get());
            asked->put_accName(child, given.Get());
            break;
        }
        }
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
