// Keys that are the form's, not a control's: they move between controls and press the form's buttons.

#include "tests/gui/HostedTest.h"

#include "host/container/Button.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

class NavigationTest : public HostedTest
{
protected:
    // Two controls, a default and a cancel button, and one more, in tab order.
    void SetUp() override
    {
        HostedTest::SetUp();
        first_ = std::make_unique<HostedYesNo>(TheForm(), Placed({20, 10, 140, 30}));
        second_ = std::make_unique<HostedYesNo>(TheForm(), Placed({20, 40, 140, 60}));
        host::ButtonOptions accept;
        accept.caption = L"&Accept";
        accept.bounds = {10, 80, 80, 105};
        accept.isDefault = true;
        accept.onClick = [this] { pressed_ += "accept"; };
        accept_ = &TheForm().AddButton(accept);
        host::ButtonOptions cancel;
        cancel.caption = L"&Cancel";
        cancel.bounds = {90, 80, 160, 105};
        cancel.isCancel = true;
        cancel.onClick = [this] { pressed_ += "cancel"; };
        TheForm().AddButton(cancel);
        AddElsewhere();
        ShowForm();
        ASSERT_EQ(GetFocus(), First().Window());
    }

    HostedYesNo& First() { return *first_; }
    HostedYesNo& Second() { return *second_; }
    host::Button& Accept() { return *accept_; }
    std::string TakePressed() { return std::exchange(pressed_, {}); }
    std::string FocusRectangles() { return First().FocusShown() + " " + Second().FocusShown(); }

private:
    std::unique_ptr<HostedYesNo> first_;
    std::unique_ptr<HostedYesNo> second_;
    host::Button* accept_ = nullptr;
    std::string pressed_;
};

TEST_F(NavigationTest, TabGoesToTheNextControlAndBack)
{
    EXPECT_EQ(FocusRectangles(), "Yes None");
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Second().Window());
    EXPECT_EQ(FocusRectangles(), "None Yes");
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Accept().Window());
    EXPECT_EQ(FocusRectangles(), "None None");
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), Second().Window());
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), First().Window());
    EXPECT_EQ(FocusRectangles(), "Yes None");
    EXPECT_EQ(First().TakeTrace() + Second().TakeTrace(), "");
}

TEST_F(NavigationTest, TabLeavesTheFocusRectangleAtItsOption)
{
    Key(VK_RIGHT);
    Key(VK_TAB);
    EXPECT_EQ(FocusRectangles(), "None Yes");
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(FocusRectangles(), "No None");
}

TEST_F(NavigationTest, TabPassesADisabledControl)
{
    EXPECT_HRESULT_SUCCEEDED(Second().Control()->put_Enabled(VARIANT_FALSE));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Accept().Window());
}

TEST_F(NavigationTest, ArrowsAndCharactersStay)
{
    for (const WORD key : {WORD{VK_RIGHT}, WORD{VK_RIGHT}, WORD{VK_DOWN}, WORD{VK_LEFT}, WORD{VK_UP},
                           WORD{'A'}, WORD{'C'}, WORD{'E'}, WORD{VK_SPACE}})
    {
        Key(key);
        EXPECT_EQ(GetFocus(), First().Window());
    }
    EXPECT_EQ(First().TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
    EXPECT_EQ(Second().TakeOutcome(), "0 Null @None");
    EXPECT_EQ(TakePressed(), "");
}

// A container that knows nothing of the control's keys learns of its own ones from the control.
TEST_F(NavigationTest, HandsTheFormsKeysToItsSite)
{
    const auto timesAsked = [&](WORD key) {
        First().Site().Focus();
        RecordOf(First().Site()).ClearCalls();
        Key(key);
        return std::ranges::count(RecordOf(First().Site()).Calls(), "IOleControlSite::TranslateAccelerator");
    };
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}, WORD{VK_ESCAPE}})
        EXPECT_EQ(timesAsked(key), 1) << key;
    for (const WORD key : {WORD{VK_LEFT}, WORD{VK_RIGHT}, WORD{VK_SPACE}, WORD{'Y'}})
        EXPECT_EQ(timesAsked(key), 0) << key;
}

TEST_F(NavigationTest, EnterAndEscapePressTheFormsButtons)
{
    Key(VK_RETURN);
    EXPECT_EQ(TakePressed(), "accept");
    Key(VK_ESCAPE);
    EXPECT_EQ(TakePressed(), "cancel");
    EXPECT_EQ(GetFocus(), First().Window());
    EXPECT_EQ(First().TakeOutcome(), "0 Null @Yes");
}

TEST_F(NavigationTest, MnemonicsReachTheButtons)
{
    Key('C', {VK_MENU});
    EXPECT_EQ(TakePressed(), "cancel");
    EXPECT_EQ(First().TakeTrace(), "");
    Key('Y', {VK_MENU});
    Key('N', {VK_MENU});
    EXPECT_EQ(First().TakeTrace(), "") << "Alt with a letter is nobody's answer";
}

TEST_F(NavigationTest, AnswersGoToTheControlWithTheFocusOnly)
{
    Key('Y');
    Key(VK_TAB);
    Key('N');
    EXPECT_EQ(First().TakeOutcome(), "1 Y @None | Click 1, Value, Text, Change 1");
    EXPECT_EQ(Second().TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
}

} // namespace

} // namespace kiv::test
