// The window of a YesNo: there from the beginning, hooked, and the control's only one.

#include "tests/gui/HostedTest.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

HWND WindowProperty(_YesNo* control)
{
    LONG handle = 0;
    EXPECT_HRESULT_SUCCEEDED(control->get_hwnd(&handle));
    return static_cast<HWND>(LongToHandle(handle));
}

LONG_PTR ProcedureOf(HWND window)
{
    return GetWindowLongPtrA(window, GWLP_WNDPROC);
}

LONG_PTR ProcedureOfClass(HWND window)
{
    return static_cast<LONG_PTR>(GetClassLongPtrA(window, GCLP_WNDPROC));
}

ComPtr<ISubClass> OwnerOf(_YesNo* control)
{
    ComPtr<ISubClass> owner;
    EXPECT_HRESULT_SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&owner)));
    return owner;
}

using YesNoWindowTest = HostedTest;

TEST_F(YesNoWindowTest, IsTheOneThatTheHostIsTold)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const HWND window = control.Window();
    EXPECT_EQ(WindowProperty(control.Control().Get()), window);
    EXPECT_EQ(GetParent(window), TheForm().Page());
    EXPECT_EQ(GetWindow(window, GW_CHILD), nullptr);
    EXPECT_EQ(ControlWindows(), 1);
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, TheForm().Window(), reinterpret_cast<POINT*>(&place), 2);
    const RECT expected = Placed().bounds;
    EXPECT_TRUE(EqualRect(&place, &expected));
}

TEST_F(YesNoWindowTest, IsThereWithoutAHost)
{
    ComPtr<_YesNo> control = CreateYesNo();
    const HWND window = WindowProperty(control.Get());
    EXPECT_TRUE(IsWindow(window));
    EXPECT_FALSE(IsWindowVisible(window));
    control.Reset();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(YesNoWindowTest, StaysTheSameFromActivationToActivation)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const HWND window = control.Window();
    EXPECT_HRESULT_SUCCEEDED(control.Site().Deactivate());
    EXPECT_EQ(WindowProperty(control.Control().Get()), window);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_FALSE(IsChild(TheForm().Window(), window));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_HRESULT_SUCCEEDED(control.Site().Activate());
    EXPECT_EQ(control.Window(), window);
    control.Site().Focus();
    PumpPending(TheForm());
    Key('N');
    EXPECT_EQ(control.TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
}

TEST_F(YesNoWindowTest, LeadsToItsControl)
{
    HostedYesNo one(TheForm(), Placed());
    HostedYesNo other(TheForm(), Placed({20, 50, 140, 70}));
    for (const HostedYesNo* control : {&one, &other})
    {
        const ComPtr<ISubClass> owner = OwnerOf(control->Control().Get());
        EXPECT_EQ(GetWindowLongPtrA(control->Window(), GWLP_USERDATA),
                  reinterpret_cast<LONG_PTR>(owner.Get()));
        EXPECT_NE(ProcedureOf(control->Window()), ProcedureOfClass(control->Window())) << "not hooked";
    }
    EXPECT_NE(GetWindowLongPtrA(one.Window(), GWLP_USERDATA),
              GetWindowLongPtrA(other.Window(), GWLP_USERDATA));
    EXPECT_EQ(ProcedureOf(one.Window()), ProcedureOf(other.Window())) << "one procedure serves all";
}

// What the control does with a message of its window ends with the window's own procedure.
TEST_F(YesNoWindowTest, ForwardsEveryMessage)
{
    HostedYesNo control(TheForm(), Placed());
    EXPECT_EQ(SendMessageA(control.Window(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
    SendMessageA(control.Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("Text"));
    EXPECT_EQ(SendMessageA(control.Window(), WM_GETTEXTLENGTH, 0, 0), 4);
}

} // namespace

} // namespace kiv::test
