// A ChkCombo answered by keys and mouse, and the order in which its host hears of it.

#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/NamedRow.h"

namespace kiv::test
{

namespace
{

using ChkComboKeys = ChkComboTest;
using ChkComboMouse = ChkComboTest;
using ChkComboEvents = ChkComboTest;

struct KeyRow : NamedRow
{
    std::vector<WORD> Keys;
    short Selected; // from item 3 of 12, or from none
    Events Heard;
};

const KeyRow RowsFromItem3[] = {
    {"Down", {VK_DOWN}, 4, {L"Click 4 3"}},
    {"Right", {VK_RIGHT}, 4, {L"Click 4 3"}},
    {"Up", {VK_UP}, 2, {L"Click 2 3"}},
    {"Left", {VK_LEFT}, 2, {L"Click 2 3"}},
    {"End", {VK_END}, 11, {L"Click 11 3"}},
    {"Home", {VK_HOME}, 0, {L"Click 0 3"}},
    {"PageDown", {VK_NEXT}, 10, {L"Click 10 3"}},
    {"PageDownToTheEnd", {VK_NEXT, VK_NEXT}, 11, {L"Click 10 3", L"Click 11 10"}},
    {"PageUp", {VK_PRIOR}, 0, {L"Click 0 3"}},
    {"UpNeverDeselects", {VK_HOME, VK_UP}, 0, {L"Click 0 3"}},
    {"PageUpNeverDeselects", {VK_PRIOR, VK_PRIOR}, 0, {L"Click 0 3"}},
    {"DownAtTheEnd", {VK_END, VK_DOWN}, 11, {L"Click 11 3"}},
    {"Esc", {VK_ESCAPE}, 3, {}},
    {"Letter", {'I'}, 4, {L"Click 4 3"}},
    {"LettersOneAfterTheOther", {'I', 'I'}, 5, {L"Click 4 3", L"Click 5 4"}},
    {"LetterAtTheEnd", {VK_END, 'I'}, 0, {L"Click 11 3", L"Click 0 11"}},
    {"LetterThatNoneBeginsWith", {'X', '1', VK_SPACE}, 3, {}},
    {"LetterInTheOpenList", {VK_F4, 'I', VK_ESCAPE}, 4, {L"DropDown", L"Click 4 3", L"CloseUp"}},
    {"F4", {VK_F4}, 3, {L"DropDown"}},
    {"F4Twice", {VK_F4, VK_F4}, 3, {L"DropDown", L"CloseUp"}},
    {"EscCloses", {VK_F4, VK_ESCAPE}, 3, {L"DropDown", L"CloseUp"}},
    {"EnterCloses", {VK_F4, VK_RETURN}, 3, {L"DropDown", L"CloseUp"}},
    {"ArrowsInTheOpenList", {VK_F4, VK_DOWN, VK_DOWN}, 5, {L"DropDown", L"Click 4 3", L"Click 5 4"}},
    {"EscKeepsWhatKeysChose", {VK_F4, VK_DOWN, VK_ESCAPE}, 4, {L"DropDown", L"Click 4 3", L"CloseUp"}},
    {"EnterKeepsWhatKeysChose", {VK_F4, VK_END, VK_RETURN}, 11, {L"DropDown", L"Click 11 3", L"CloseUp"}},
};

class ChkComboFromItem3 : public ChkComboTest, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(ChkComboFromItem3, AnswersKeysAsComboBoxesDo)
{
    HostedCombo combo = ShownCombo(std::vector<long>(12));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(3));
    combo.TakeEvents();
    for (const WORD key : GetParam().Keys)
        Key(key);
    EXPECT_EQ(combo.ListIndex(), GetParam().Selected);
    EXPECT_EQ(combo.TakeEvents(), GetParam().Heard);
    EXPECT_TRUE(combo.SelectionAgrees());
    EXPECT_EQ(GetFocus(), combo.ScrollBar());
    combo.Open(false);
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboFromItem3, testing::ValuesIn(RowsFromItem3), RowName());

const KeyRow RowsFromNone[] = {
    {"Down", {VK_DOWN}, 0, {L"Click 0 -1"}},     {"Home", {VK_HOME}, 0, {L"Click 0 -1"}},
    {"End", {VK_END}, 11, {L"Click 11 -1"}},     {"Up", {VK_UP}, -1, {}},
    {"PageDown", {VK_NEXT}, 6, {L"Click 6 -1"}},
};

class ChkComboFromNone : public ChkComboTest, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(ChkComboFromNone, AnswersKeysAsComboBoxesDo)
{
    HostedCombo combo = ShownCombo(std::vector<long>(12));
    for (const WORD key : GetParam().Keys)
        Key(key);
    EXPECT_EQ(combo.ListIndex(), GetParam().Selected);
    EXPECT_EQ(combo.TakeEvents(), GetParam().Heard);
    EXPECT_TRUE(combo.SelectionAgrees());
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboFromNone, testing::ValuesIn(RowsFromNone), RowName());

TEST_F(ChkComboKeys, InAnEmptyListDoNothing)
{
    HostedCombo combo = ShownCombo();
    for (const WORD key : std::initializer_list<WORD>{VK_DOWN, VK_UP, VK_HOME, VK_END, VK_NEXT, VK_PRIOR})
        Key(key);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.TakeEvents(), Events());
}

TEST_F(ChkComboKeys, AltWithAnArrowOpensAndCloses)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    Key(VK_DOWN, {VK_MENU});
    EXPECT_TRUE(combo.IsOpen());
    Key(VK_UP, {VK_MENU});
    EXPECT_FALSE(combo.IsOpen());
    Key(VK_UP, {VK_MENU});
    EXPECT_TRUE(combo.IsOpen());
    Key(VK_DOWN, {VK_MENU});
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(combo.TakeEvents(), (Events{L"DropDown", L"CloseUp", L"DropDown", L"CloseUp"}));
    EXPECT_EQ(combo.ListIndex(), -1);
}

// The form's Enter and Esc buttons are not pressed by keys that close the list, and are again afterwards.
TEST_F(ChkComboKeys, ThatCloseTheListDoNotReachTheFormsButtons)
{
    HostedCombo combo = AddCombo(OneOfEach());
    host::ButtonOptions ok;
    ok.name = L"ok";
    ok.bounds = {200, 20, 290, 45};
    ok.isDefault = true;
    int pressedOk = 0;
    ok.onClick = [&] { ++pressedOk; };
    host::ButtonOptions cancel;
    cancel.name = L"cancel";
    cancel.bounds = {200, 50, 290, 75};
    cancel.isCancel = true;
    int pressedCancel = 0;
    cancel.onClick = [&] { ++pressedCancel; };
    TheForm().AddButton(ok);
    TheForm().AddButton(cancel);
    ShowForm();
    combo.Site().Focus();
    Settle();
    combo.Open(true);
    Key(VK_RETURN);
    EXPECT_FALSE(combo.IsOpen());
    combo.Open(true);
    Key(VK_ESCAPE);
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(pressedOk, 0);
    EXPECT_EQ(pressedCancel, 0);
    Key(VK_RETURN);
    Key(VK_ESCAPE);
    EXPECT_EQ(pressedOk, 1);
    EXPECT_EQ(pressedCancel, 1);
}

TEST_F(ChkComboKeys, OfADisabledControlGoElsewhere)
{
    HostedCombo combo = AddCombo(OneOfEach());
    AddElsewhere();
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    ShowForm();
    Key(VK_TAB);
    Key(VK_DOWN);
    Key(VK_F4);
    EXPECT_FALSE(combo.Site().HasFocus());
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_FALSE(combo.IsOpen());
}

// One that is disabled while it has the focus holds back no key from the next control.
TEST_F(ChkComboKeys, OfAControlThatHasBeenDisabledGoElsewhere)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    const HostedYesNo next(TheForm(), Placed({20, 60, 160, 80}));
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    Key(VK_DOWN);
    Key(VK_F4);
    Key(VK_DOWN, {VK_MENU});
    EXPECT_EQ(combo.TakeEvents(), Events());
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), next.Window());
    Character(L'y');
    EXPECT_EQ(next.Value(), Yes);
}

// The focus that came back at once stayed with the combo box, from which disabling takes it.
TEST_F(ChkComboKeys, OfAComboBoxThatHasBeenDisabledWithTheFocusGoElsewhere)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    const HostedYesNo next(TheForm(), Placed({20, 60, 160, 80}));
    // On a busy machine the ten milliseconds may be over.
    for (int attempt = 0; attempt < 100 && GetFocus() != combo.Combo(); ++attempt)
    {
        WaitForTheNextHandOver();
        SetFocus(combo.Combo());
        SetFocus(combo.Combo());
    }
    ASSERT_EQ(GetFocus(), combo.Combo());
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), next.Window());
    Character(L'y');
    EXPECT_EQ(next.Value(), Yes);
}

// The host disables it in an event, with its list open or about to, and sends the user on.
TEST_F(ChkComboKeys, OfAControlThatItsHostDisablesInAnEventGoElsewhere)
{
    for (const wchar_t* const event : {L"Click", L"DropDown", L"CloseUp"})
    {
        SCOPED_TRACE(testing::Message() << event);
        HostedCombo combo = ShownCombo(OneOfEach());
        const HostedYesNo next(TheForm(), Placed({20, 60, 160, 80}));
        combo.On(event, [&](DISPPARAMS&) {
            combo->put_Enabled(VARIANT_FALSE);
            next.Site().Focus();
        });
        TapKey(VK_F4);
        TapKey(VK_DOWN);
        TapKey(VK_ESCAPE);
        TypeCharacter(L'y');
        Settle();
        EXPECT_EQ(GetFocus(), next.Window());
        EXPECT_EQ(next.Value(), Yes);
        EXPECT_FALSE(combo.IsOpen());
        EXPECT_EQ(GetCapture(), nullptr);
        combo.LetGo();
        StartAnew();
    }
}

// What it hears in CloseUp stands: the host may have enabled the control again.
TEST_F(ChkComboKeys, AreAnsweredByAControlThatItsHostEnablesAgainInCloseUp)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    bool enabledThen = true;
    combo.On(L"CloseUp", [&](DISPPARAMS&) {
        VARIANT_BOOL enabled = VARIANT_TRUE;
        combo->get_Enabled(&enabled);
        enabledThen = enabled != VARIANT_FALSE;
        combo->put_Enabled(VARIANT_TRUE);
    });
    Key(VK_F4);
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    EXPECT_FALSE(enabledThen);
    EXPECT_TRUE(IsWindowEnabled(combo.Window()));
    EXPECT_TRUE(IsWindowEnabled(combo.Combo()));
    EXPECT_EQ(combo.TakeEvents(), (Events{L"DropDown", L"CloseUp"}));
    Key(VK_DOWN);
    EXPECT_EQ(combo.ListIndex(), 0);
}

// Neither by a program.
TEST_F(ChkComboMouse, OpensNoDisabledControl)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    ClickAt(combo.Middle());
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(combo.TakeEvents(), Events());
    combo.Open(true);
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(combo.TakeEvents(), (Events{L"DropDown", L"CloseUp"})) << "told all the same";
}

TEST_F(ChkComboMouse, OpensPicksAndTellsSo)
{
    HostedCombo combo = ShownCombo(std::vector<long>(12));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    combo.TakeEvents();
    ClickAt(combo.Middle());
    EXPECT_TRUE(combo.IsOpen());
    EXPECT_EQ(combo.TakeEvents(), Events{L"DropDown"});
    ClickAt(combo.ItemOnScreen(5));
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(combo.ListIndex(), 5);
    EXPECT_EQ(combo.PreviousIndex(), 2);
    EXPECT_EQ(combo.Text(), L"item 5");
    EXPECT_TRUE(combo.SelectionAgrees());
    EXPECT_EQ(GetFocus(), combo.ScrollBar());
    const Events heard = combo.TakeEvents();
    EXPECT_EQ(heard, (Events{L"CloseUp", L"Click 5 2"}));
}

TEST_F(ChkComboMouse, ByAClickTheControlGetsTheFocus)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    EXPECT_FALSE(combo.Site().HasFocus());
    ClickAt(combo.Middle());
    EXPECT_EQ(GetFocus(), combo.ScrollBar());
    EXPECT_TRUE(combo.IsOpen());
    EXPECT_EQ(combo.Site().State(), host::SiteState::UIActive);
    combo.Open(false);
}

TEST_F(ChkComboMouse, PassingOverItemsSelectsNothing)
{
    HostedCombo combo = ShownCombo(std::vector<long>(12));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    ClickAt(combo.Middle());
    PointAt(combo.ItemOnScreen(5));
    Settle();
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.TakeEvents();
    Key(VK_ESCAPE);
    EXPECT_EQ(combo.TakeEvents(), Events{L"CloseUp"});
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), L"item 2");
    EXPECT_TRUE(combo.SelectionAgrees());

    ClickAt(combo.Middle());
    PointAt(combo.ItemOnScreen(6));
    Settle();
    ClickAt({combo.Middle().x + 120, combo.Middle().y + 60});
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_TRUE(combo.SelectionAgrees());
}

// As the combo box reports it; an assignment of the selected index raises nothing.
TEST_F(ChkComboMouse, PickingTheSelectedItemAgainIsAClick)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    combo.TakeEvents();
    ClickAt(combo.Middle());
    ClickAt(combo.ItemOnScreen(1));
    EXPECT_EQ(combo.TakeEvents(), (Events{L"DropDown", L"CloseUp", L"Click 1 1"}));
    EXPECT_EQ(combo.ListIndex(), 1);
}

// Quick clicks open, close and open again: the second of two is none of its own kind.
TEST_F(ChkComboMouse, OpensAgainAtAQuickSecondClick)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    ClickAt(combo.Middle());
    Key(VK_ESCAPE);
    ClickAt(combo.Middle());
    EXPECT_TRUE(combo.IsOpen());
    combo.Open(false);
}

// Why the control hands the second of two quick clicks on as one of its own.
TEST_F(ChkComboMouse, IsHelpedWithQuickClicks)
{
    ShowForm();
    const HWND bare = CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 20, 60,
                                      140, 80, TheForm().Window(), nullptr, nullptr, nullptr);
    ASSERT_NE(bare, nullptr);
    SendMessageA(bare, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageA(bare, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
    KnownPlatformGap("a combo box opens at the second of two quick clicks",
                     [bare] { return SendMessageA(bare, CB_GETDROPPEDSTATE, 0, 0) != 0; });
    DestroyWindow(bare);
}

TEST_F(ChkComboMouse, LeavesWithTheFocus)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    AddElsewhere();
    Key(VK_F4);
    EXPECT_TRUE(combo.IsOpen());
    Key(VK_TAB);
    EXPECT_FALSE(combo.IsOpen());
    EXPECT_FALSE(combo.Site().HasFocus());
    EXPECT_EQ(combo.TakeEvents(), (Events{L"DropDown", L"CloseUp"}));
}

TEST_F(ChkComboEvents, FollowAnAssignmentThatChangesTheSelection)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    EXPECT_EQ(combo.TakeEvents(), Events{L"Click 1 -1"});
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    EXPECT_EQ(combo.TakeEvents(), Events{L"Click 2 1"});
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    EXPECT_EQ(combo.TakeEvents(), Events()) << "nothing has changed";
    EXPECT_EQ(combo.PreviousIndex(), 2);
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(-1));
    EXPECT_EQ(combo.TakeEvents(), Events{L"Click -1 2"});
    EXPECT_EQ(combo.Text(), L"");
    EXPECT_TRUE(combo.SelectionAgrees());
}

TEST_F(ChkComboEvents, AreNotRaisedByTheShiftsOfIndexes)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    combo.TakeEvents();
    combo.Add(L"first", 0);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), L"item 1");
    EXPECT_TRUE(combo.SelectionAgrees());
    combo.Add(L"before", 2);
    EXPECT_EQ(combo.ListIndex(), 3) << "inserted at the selected item itself";
    EXPECT_EQ(combo.Text(), L"item 1");
    combo.Add(L"last");
    EXPECT_EQ(combo.ListIndex(), 3);
    ASSERT_HRESULT_SUCCEEDED(combo->RemoveItem(0));
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), L"item 1");
    EXPECT_TRUE(combo.SelectionAgrees());
    ASSERT_HRESULT_SUCCEEDED(combo->RemoveItem(2));
    EXPECT_EQ(combo.ListIndex(), -1) << "the selected item is gone";
    EXPECT_EQ(combo.Text(), L"");
    EXPECT_TRUE(combo.SelectionAgrees());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    combo.TakeEvents();
    ASSERT_HRESULT_SUCCEEDED(combo->Clear());
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_TRUE(combo.SelectionAgrees());
    EXPECT_EQ(combo.TakeEvents(), Events());
}

// A combo box of this kind closes at the first click into its list, so that only a program can send this.
TEST_F(ChkComboEvents, TellOfADoubleClickThatTheComboBoxTellsOf)
{
    HostedCombo combo = AddCombo(OneOfEach());
    SendMessageW(combo.Window(), WM_COMMAND, MAKEWPARAM(0, CBN_DBLCLK),
                 reinterpret_cast<LPARAM>(combo.Combo()));
    EXPECT_EQ(combo.TakeEvents(), Events{L"DblClick"});
    SendMessageW(combo.Window(), WM_COMMAND, MAKEWPARAM(0, CBN_DBLCLK), 0);
    EXPECT_EQ(combo.TakeEvents(), Events()) << "no notification of the combo box";
}

TEST_F(ChkComboEvents, TellWhenTheControlIsShownAndHidden)
{
    HostedCombo combo = AddCombo();
    ShowForm();
    combo.TakeEvents();
    combo.Site().SetVisible(false);
    EXPECT_EQ(combo.TakeEvents(), Events{L"ActiveStateChanged 0 1"});
    ASSERT_HRESULT_SUCCEEDED(combo->put_Enabled(VARIANT_FALSE));
    combo.Site().SetVisible(true);
    EXPECT_EQ(combo.TakeEvents(), Events{L"ActiveStateChanged 1 0"});
}

} // namespace

} // namespace kiv::test
