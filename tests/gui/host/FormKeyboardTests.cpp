// Where the host's own keyboard navigation goes.

#include "tests/gui/HostedBox.h"
#include "tests/gui/HostedTest.h"

#include <string>

namespace kiv::test
{

namespace
{

class FormKeyboard : public HostedTest
{
protected:
    host::ControlSite& AddControl(const wchar_t* name, int row)
    {
        host::SiteOptions options = Placed({100, 4 + 22 * row, 220, 24 + 22 * row});
        options.name = name;
        return TheForm().Add(CreateYesNo().Get(), options);
    }

    host::Button& AddButton(const wchar_t* name, const wchar_t* caption, bool isDefault = false,
                            bool isCancel = false)
    {
        host::ButtonOptions options;
        options.name = name;
        options.caption = caption;
        options.bounds = {230, 4 + 24 * buttons_, 290, 26 + 24 * buttons_};
        ++buttons_;
        options.isDefault = isDefault;
        options.isCancel = isCancel;
        options.onClick = [this, pressed = std::wstring(name)] { pressed_ += pressed + L" "; };
        return TheForm().AddButton(options);
    }

    host::Label& AddLabel(const wchar_t* caption, bool enabled = true)
    {
        host::LabelOptions options;
        options.caption = caption;
        options.bounds = {4, 4, 90, 20};
        options.enabled = enabled;
        return TheForm().AddLabel(options);
    }

    std::wstring Focused()
    {
        const host::FormItem* const item = TheForm().FocusedItem();
        return item ? item->Name() : L"nothing";
    }

    std::wstring TakePressed() { return std::exchange(pressed_, {}); }

    static bool LooksDefault(const host::Button& button)
    {
        return (GetWindowLongW(button.Window(), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    }

private:
    int buttons_ = 0;
    std::wstring pressed_;
};

TEST_F(FormKeyboard, TabGoesThroughControlsAndButtonsInTheOrderOfTheirIndexes)
{
    host::ControlSite& last = AddControl(L"last", 0);
    host::ControlSite& first = AddControl(L"first", 1);
    host::Button& between = AddButton(L"between", L"Between");
    first.SetTabIndex(0);
    between.SetTabIndex(1);
    last.SetTabIndex(2);
    ShowForm();
    EXPECT_EQ(Focused(), L"first");
    for (const wchar_t* next : {L"between", L"last", L"first"})
    {
        Key(VK_TAB);
        EXPECT_EQ(Focused(), next);
    }
    for (const wchar_t* next : {L"last", L"between", L"first"})
    {
        Key(VK_TAB, {VK_SHIFT});
        EXPECT_EQ(Focused(), next);
    }
}

TEST_F(FormKeyboard, TabPassesWhatIsDisabledHiddenOrNoTabStop)
{
    AddControl(L"first", 0);
    AddControl(L"disabled", 1).Put(L"Enabled", Variant(false));
    AddControl(L"hidden", 2).SetVisible(false);
    AddControl(L"no stop", 3).SetTabStop(false);
    AddButton(L"off", L"Off").SetEnabled(false);
    AddButton(L"on", L"On");
    ShowForm();
    Key(VK_TAB);
    EXPECT_EQ(Focused(), L"on");
    Key(VK_TAB);
    EXPECT_EQ(Focused(), L"first");
}

TEST_F(FormKeyboard, OneControlIsUIActiveAtATime)
{
    host::ControlSite& one = AddControl(L"one", 0);
    host::ControlSite& other = AddControl(L"other", 1);
    AddButton(L"button", L"Button");
    ShowForm();
    EXPECT_EQ(TheForm().ActiveSite(), &one);
    EXPECT_EQ(one.State(), host::SiteState::UIActive);
    Key(VK_TAB);
    EXPECT_EQ(TheForm().ActiveSite(), &other);
    EXPECT_EQ(one.State(), host::SiteState::InPlaceActive);
    Key(VK_TAB);
    EXPECT_EQ(TheForm().ActiveSite(), nullptr);
    EXPECT_EQ(other.State(), host::SiteState::InPlaceActive);
}

TEST_F(FormKeyboard, AltAndALabelsLetterLeadToTheNextItem)
{
    AddControl(L"first", 0);
    AddLabel(L"A && &Second question");
    AddControl(L"second", 1);
    AddLabel(L"&Third, which is off", false);
    AddControl(L"third", 2);
    ShowForm();
    Key('S', {VK_MENU});
    EXPECT_EQ(Focused(), L"second");
    Key('T', {VK_MENU});
    EXPECT_EQ(Focused(), L"second");
    Key('A', {VK_MENU});
    EXPECT_EQ(Focused(), L"second");
}

TEST_F(FormKeyboard, AltAndAButtonsLetterPressIt)
{
    AddControl(L"control", 0);
    AddButton(L"apply", L"&Apply");
    ShowForm();
    Key('A', {VK_MENU});
    EXPECT_EQ(TakePressed(), L"apply ");
    EXPECT_EQ(Focused(), L"apply");
}

TEST_F(FormKeyboard, EnterPressesTheDefaultButtonOrTheOneWithTheFocus)
{
    AddControl(L"control", 0);
    host::Button& ok = AddButton(L"ok", L"OK", true);
    host::Button& other = AddButton(L"other", L"Other");
    ShowForm();
    Key(VK_RETURN);
    EXPECT_EQ(TakePressed(), L"ok ");
    EXPECT_TRUE(LooksDefault(ok));
    EXPECT_FALSE(LooksDefault(other));

    Key(VK_TAB, {VK_SHIFT});
    ASSERT_EQ(Focused(), L"other");
    EXPECT_FALSE(LooksDefault(ok));
    EXPECT_TRUE(LooksDefault(other));
    Key(VK_RETURN);
    EXPECT_EQ(TakePressed(), L"other ");

    Key(VK_TAB);
    EXPECT_TRUE(LooksDefault(ok));
    EXPECT_FALSE(LooksDefault(other));
    ok.SetEnabled(false);
    Key(VK_RETURN);
    EXPECT_EQ(TakePressed(), L"");
}

TEST_F(FormKeyboard, EscPressesTheCancelButton)
{
    AddControl(L"control", 0);
    AddButton(L"cancel", L"Cancel", false, true);
    ShowForm();
    Key(VK_ESCAPE);
    EXPECT_EQ(TakePressed(), L"cancel ");
}

TEST_F(FormKeyboard, ArrowsMoveBetweenButtonsAndStayInControls)
{
    host::ControlSite& control = AddControl(L"control", 0);
    AddButton(L"one", L"One");
    AddButton(L"other", L"Other");
    ShowForm();
    Key(VK_RIGHT);
    EXPECT_EQ(Focused(), L"control");
    Key(VK_SPACE);
    EXPECT_EQ(control.Get(L"Value").Long(), 2);
    Key(VK_TAB);
    Key(VK_RIGHT);
    EXPECT_EQ(Focused(), L"other");
    Key(VK_UP);
    EXPECT_EQ(Focused(), L"one");
}

TEST_F(FormKeyboard, ADefaultButtonWithoutAHandlerClosesTheForm)
{
    AddControl(L"control", 0);
    host::ButtonOptions ok;
    ok.isDefault = true;
    TheForm().AddButton(ok);
    int asked = 0;
    TheForm().OnClosing = [&] { return ++asked > 1; };
    ShowForm();
    Key(VK_RETURN);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(TheForm().Closed());
    TapKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil(TheForm(), [this] { return TheForm().Closed(); }));
}

TEST_F(FormKeyboard, TheFocusComesBackWithTheWindow)
{
    AddControl(L"first", 0);
    AddControl(L"second", 1);
    ShowForm();
    Key(VK_TAB);
    ASSERT_EQ(Focused(), L"second");
    {
        host::Form other(L"Other", {100, 100});
        other.Show();
        ASSERT_TRUE(PumpUntil(TheForm(), [&] { return GetForegroundWindow() == other.Window(); }));
        EXPECT_EQ(Focused(), L"nothing");
    }
    SetForegroundWindow(TheForm().Window());
    EXPECT_TRUE(PumpUntil(TheForm(), [&] { return Focused() == L"second"; })) << "the focus stayed away";
}

// Leaving the date completes it, and its form's code answers the change by having the form gone.
TEST_F(FormKeyboard, TheFormMayGoWhileAButtonGetsTheFocus)
{
    for (const bool closes : {true, false})
    {
        StartAnew();
        HostedBox date(TheForm(), CLSID_DateBox, Placed({10, 4, 90, 26}));
        AddButton(L"ok", L"OK");
        ShowForm();
        date.Site().Focus();
        Type(L"1/5/1");
        date.On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
            if (closes)
                TheForm().Close();
            else
                TheForm().Destroy();
        });
        TapKey(VK_TAB);
        EXPECT_TRUE(PumpUntil(TheForm(), [this] { return TheForm().Closed(); })) << closes;
        StartAnew();
    }
}

} // namespace

} // namespace kiv::test
