// Which keys a YesNo leaves to the form.

#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include <ocidl.h>
#include <olectl.h>

namespace kiv::test
{

namespace
{

using ActivationTest = LibraryTest;

HWND WindowOf(const SitedControl& control)
{
    return static_cast<HWND>(LongToHandle(control.Property(L"hwnd").Long()));
}

MSG KeyDown(HWND window, WPARAM key)
{
    MSG message = {};
    message.hwnd = window;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return message;
}

TEST_F(ActivationTest, LeavesItsOwnKeysToItsWindowAndOffersTheFormsKeysToTheSite)
{
    const SitedControl control;
    control.InitNew();
    control.Site().Log().AllowAll();
    EXPECT_EQ(
        Hr(control.Query<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &control.Site(), 0,
                                               control.Site().Window().Handle(), &control.Site().Position())),
        Hr(S_OK));
    control.Site().Log().TakeCalls();
    const auto active = control.Query<IOleInPlaceActiveObject>();
    for (const WPARAM key : {WPARAM{VK_LEFT}, WPARAM{VK_RIGHT}, WPARAM{VK_SPACE}, WPARAM{'Y'}})
    {
        MSG message = KeyDown(WindowOf(control), key);
        EXPECT_EQ(Hr(active->TranslateAccelerator(&message)), Hr(S_FALSE)) << key;
        control.Site().Log().ExpectCalls({May("TranslateAccelerator")});
    }
    for (const WPARAM key : {WPARAM{VK_TAB}, WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}})
    {
        MSG message = KeyDown(WindowOf(control), key);
        EXPECT_EQ(Hr(active->TranslateAccelerator(&message)), Hr(S_FALSE))
            << "the site does not take " << key;
        control.Site().Log().ExpectCalls({"TranslateAccelerator"});
    }
}

TEST_F(ActivationTest, HasNoMnemonics)
{
    const SitedControl control;
    CONTROLINFO information = {};
    information.cb = sizeof information;
    information.cAccel = 7;
    EXPECT_HRESULT_SUCCEEDED(control.Query<IOleControl>()->GetControlInfo(&information));
    EXPECT_EQ(information.cAccel, 0);
    EXPECT_EQ(information.hAccel, nullptr);
    EXPECT_EQ(Hr(control.Query<IOleControl>()->GetControlInfo(nullptr)), Hr(E_POINTER));
}

} // namespace

} // namespace kiv::test
