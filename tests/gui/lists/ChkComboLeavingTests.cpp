// A list that is open, or about to, when its control is put away, or the form around it: it closes at once,
// lets the mouse go, and the first click elsewhere is heard.

#include "host/container/Button.h"
#include "tests/gui/Blow.h"
#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/NamedRow.h"

#include <functional>

namespace kiv::test
{

namespace
{

// How the user, or another program, opens the list.
struct Opening : NamedRow
{
    bool ByMouse;
    bool NeedsFocus;
    void (*Open)(HostedCombo& combo); // for the mouse: presses the button, and no more
};

const Opening Openings[] = {
    {"ByMouse", true, true, [](HostedCombo&) { PressButton(MouseButton::Left); }},
    {"ByF4", false, true, [](HostedCombo&) { TapKey(VK_F4); }},
    {"ByAltDown", false, true, [](HostedCombo&) { TapKey(VK_DOWN, {VK_MENU}); }},
    {"ByAProgram", false, false,
     [](HostedCombo& combo) { SendMessageW(combo.Combo(), CB_SHOWDROPDOWN, TRUE, 0); }},
};

// How the control, or its form, is put away, and whether the control is still heard afterwards.
struct Leaving : NamedRow
{
    bool IsHeard;
    void (*Leave)(host::Form& form, HostedCombo& combo);
};

const Leaving Leavings[] = {
    {"Deactivate", true, [](host::Form&, HostedCombo& combo) { combo.Site().Deactivate(); }},
    {"Hide", true, [](host::Form&, HostedCombo& combo) { combo.Site().SetVisible(false); }},
    {"HideItsWindow", true, [](host::Form&, HostedCombo& combo) { ShowWindow(combo.Window(), SW_HIDE); }},
    {"HideByPlace", true,
     [](host::Form&, HostedCombo& combo) {
         SetWindowPos(combo.Window(), nullptr, 0, 0, 0, 0,
                      SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
     }},
    {"Disable", true, [](host::Form&, HostedCombo& combo) { combo.Site().SetEnabled(false); }},
    {"HideTheForm", true, [](host::Form& form, HostedCombo&) { ShowWindow(form.Window(), SW_HIDE); }},
    {"DisableTheForm", true, [](host::Form& form, HostedCombo&) { EnableWindow(form.Window(), FALSE); }},
    {"Close", false, [](host::Form&, HostedCombo& combo) { combo.Site().Close(); }},
    {"Remove", false, [](host::Form& form, HostedCombo& combo) { form.Remove(combo.Site()); }},
    {"DestroyTheForm", false, [](host::Form& form, HostedCombo&) { form.Destroy(); }},
    {"DestroyTheFormsWindow", false, [](host::Form& form, HostedCombo&) { DestroyWindow(form.Window()); }},
};

// The focus goes elsewhere in the form, from a control that had it.
const Leaving MoveTheFocus = {
    {"MoveTheFocus"}, true, [](host::Form& form, HostedCombo&) { form.Find(L"listener")->Focus(); }};

class ChkComboLeft : public ChkComboTest
{
protected:
    HostedCombo ComboToLeave(bool withFocus)
    {
        HostedCombo combo = AddCombo(OneOfEach());
        AddListener();
        ShowForm();
        if (withFocus)
            combo.Site().Focus();
        PointAt(combo.Middle());
        Settle();
        WaitForTheNextHandOver();
        combo.TakeEvents();
        list_ = combo.List();
        combo.LetGo();
        return combo;
    }

    void ExpectClosed(const char* when) const
    {
        EXPECT_FALSE(IsWindow(list_) && IsWindowVisible(list_)) << when;
        EXPECT_EQ(GetCapture(), nullptr) << when;
    }

    // Of what the user does next the form hears.
    void ExpectFirstClickHeard()
    {
        PumpPending(TheForm());
        if (TheForm().Closed())
        {
            StartAnew();
            AddListener();
        }
        EnableWindow(TheForm().Window(), TRUE);
        ShowForm();
        ExpectClosed("before the click");
        clicks_ = 0;
        POINT place = {230, 92};
        ClientToScreen(TheForm().Window(), &place);
        ClickAt(place);
        EXPECT_EQ(clicks_, 1);
        ExpectClosed("after the click");
    }

private:
    void AddListener()
    {
        host::ButtonOptions options;
        options.name = L"listener";
        options.bounds = {200, 80, 290, 105};
        options.onClick = [this] { ++clicks_; };
        TheForm().AddButton(options);
    }

    HWND list_ = nullptr;
    int clicks_ = 0;
};

class ChkComboLeaving : public ChkComboLeft, public testing::WithParamInterface<std::tuple<Opening, Leaving>>
{
protected:
    static const Opening& TheOpening() { return std::get<0>(GetParam()); }
    static const Leaving& TheLeaving() { return std::get<1>(GetParam()); }

    HostedCombo ComboToLeave() { return ChkComboLeft::ComboToLeave(TheOpening().NeedsFocus); }
    void Leave(HostedCombo& combo) { TheLeaving().Leave(TheForm(), combo); }

    // As the host hears it, as long as it does.
    static void ExpectOpenedAndClosed(HostedCombo& combo)
    {
        if (!TheLeaving().IsHeard)
            return;
        Events events = combo.TakeEvents();
        std::erase_if(events, [](const std::wstring& event) { return event.starts_with(L"ActiveState"); });
        EXPECT_EQ(events, (Events{L"DropDown", L"CloseUp"}));
    }
};

TEST_P(ChkComboLeaving, InDropDownLeavesNoListBehind)
{
    HostedCombo combo = ComboToLeave();
    bool left = false;
    combo.On(L"DropDown", [&](DISPPARAMS&) {
        if (!std::exchange(left, true))
            Leave(combo);
    });
    TheOpening().Open(combo);
    if (left)
        ExpectClosed("at once");
    EXPECT_TRUE(PumpUntil(TheForm(), [&] { return left; }));
    if (TheOpening().ByMouse)
    {
        EXPECT_FALSE(IsWindow(combo.List()) && IsWindowVisible(combo.List()));
        ReleaseButton(MouseButton::Left);
    }
    PumpPending(TheForm());
    ExpectOpenedAndClosed(combo);
    ExpectFirstClickHeard();
}

TEST_P(ChkComboLeaving, ClosesTheOpenListAtOnce)
{
    HostedCombo combo = ComboToLeave();
    TheOpening().Open(combo);
    Settle();
    if (TheOpening().ByMouse)
        ReleaseButton(MouseButton::Left);
    Settle();
    ASSERT_TRUE(combo.IsOpen());
    Leave(combo);
    ExpectClosed("at once");
    ExpectOpenedAndClosed(combo);
    ExpectFirstClickHeard();
}

class ChkComboLeavingPressed : public ChkComboLeaving
{
};

// The user has pressed the button and still holds it down.
TEST_P(ChkComboLeavingPressed, LetsTheMouseGoAtOnce)
{
    HostedCombo combo = ComboToLeave();
    TheOpening().Open(combo);
    Settle();
    ASSERT_TRUE(combo.IsOpen());
    Leave(combo);
    ExpectClosed("at once");
    ReleaseButton(MouseButton::Left);
    ExpectFirstClickHeard();
}

struct RowNames
{
    template<class Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return std::string(std::get<0>(row.param).Name) + std::get<1>(row.param).Name;
    }
};

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboLeaving,
                         testing::Combine(testing::ValuesIn(Openings), testing::ValuesIn(Leavings)),
                         RowNames());
INSTANTIATE_TEST_SUITE_P(Focus, ChkComboLeaving,
                         testing::Combine(testing::ValuesIn(Openings, Openings + 3),
                                          testing::Values(MoveTheFocus)),
                         RowNames());
INSTANTIATE_TEST_SUITE_P(Rows, ChkComboLeavingPressed,
                         testing::Combine(testing::Values(Openings[0]), testing::ValuesIn(Leavings)),
                         RowNames());

// The host does away with the control when it hears that the list has closed, because it has put it away.
class ChkComboLeftTwice : public ChkComboLeft,
                          public testing::WithParamInterface<std::tuple<Leaving, BlowRow>>
{
};

TEST_P(ChkComboLeftTwice, IsGone)
{
    const Leaving& leaving = std::get<0>(GetParam());
    HostedCombo combo = ComboToLeave(true);
    bool struck = false;
    combo.On(L"CloseUp", [&](DISPPARAMS&) {
        if (!std::exchange(struck, true))
            Strike(std::get<1>(GetParam()).What, TheForm(), combo.Site());
    });
    combo.Open(true);
    Settle();
    leaving.Leave(TheForm(), combo);
    EXPECT_TRUE(struck);
    ExpectClosed("at once");
    ExpectFirstClickHeard();
}

// What the test's own container survives.
INSTANTIATE_TEST_SUITE_P(Rows, ChkComboLeftTwice,
                         testing::Combine(testing::ValuesIn(Leavings, Leavings + 7),
                                          testing::ValuesIn(BlowRows)),
                         RowNames());

using ChkComboPress = ChkComboTest;

// A press that the host has cut off ends there: what the mouse does later is no part of it.
TEST_F(ChkComboPress, CutOffInDropDownIsOver)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    combo.On(L"DropDown", [&](DISPPARAMS&) { combo.Site().Deactivate(); });
    PointAt(combo.Middle());
    Settle();
    PressButton(MouseButton::Left);
    Settle();
    ReleaseButton(MouseButton::Left);
    Settle();
    combo.On(L"DropDown", [](DISPPARAMS&) {});
    ASSERT_HRESULT_SUCCEEDED(combo.Site().Activate());
    POINT beside = {230, 92};
    ClientToScreen(TheForm().Window(), &beside);
    PointAt(beside);
    Settle();
    PressButton(MouseButton::Left);
    Settle();
    PointAt(combo.Middle());
    Settle();
    ReleaseButton(MouseButton::Left);
    Settle();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(combo.IsOpen());
    ClickAt(combo.Middle());
    EXPECT_TRUE(combo.IsOpen());
    combo.Open(false);
}

// Why the control looks after the mouse when a press on the combo box ends.
TEST_F(ChkComboPress, IsHelpedToItsEnd)
{
    ShowForm();
    const HWND bare = CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 20, 60,
                                      140, 80, TheForm().Window(), nullptr, nullptr, nullptr);
    ASSERT_NE(bare, nullptr);
    SendMessageA(bare, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageA(bare, CB_SHOWDROPDOWN, FALSE, 0);
    SendMessageA(bare, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
    KnownPlatformGap("a combo box that has closed lets the mouse go", [] { return GetCapture() == nullptr; });
    DestroyWindow(bare);
}

} // namespace

} // namespace kiv::test
