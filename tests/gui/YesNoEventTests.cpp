// What a host may do while a YesNo asks it, or tells it.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"

#include "host/container/Button.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

enum class By
{
    Y,
    N,
    Space,
    Yes, // a click on it
    No
};

struct VetoRow : NamedRow
{
    long Before;
    By Answer;
    const char* Outcome;
};

const VetoRow VetoRows[] = {
    {"Y", 0, By::Y, "0 Null @Yes | Click 1"},
    {"N", 0, By::N, "0 Null @No | Click 2"},
    {"YInsteadOfNo", 2, By::Y, "2 N @Yes | Click 1"},
    {"Space", 0, By::Space, "0 Null @Yes | Click 1"},
    {"SpaceThatWouldClear", 1, By::Space, "1 Y @Yes | Click 0"},
    {"ClickOnYes", 0, By::Yes, "0 Null @Yes | Click 1"},
    {"ClickThatWouldClear", 1, By::Yes, "1 Y @Yes | Click 0"},
    {"ClickOnNo", 1, By::No, "1 Y @No | Click 2"},
    {"ClickOnWhatIsNoAnswer", 5, By::No, "5 Null @No | Click 2"},
};

class YesNoEventTest : public HostedTest
{
protected:
    void Answer(const HostedYesNo& control, By by)
    {
        switch (by)
        {
        case By::Y:
            return Key('Y');
        case By::N:
            return Key('N');
        case By::Space:
            return Key(VK_SPACE);
        case By::Yes:
            return Click(control, Spot::YesImage);
        case By::No:
            return Click(control, Spot::NoCaption);
        }
    }
};

class YesNoVeto : public YesNoEventTest, public testing::WithParamInterface<VetoRow>
{
};

TEST_P(YesNoVeto, LeavesTheAnswerAsItWas)
{
    const VetoRow& row = GetParam();
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(row.Before);
    control.CancelClicks();
    ShowForm();
    control.TakeTrace();
    Answer(control, row.Answer);
    EXPECT_EQ(control.TakeOutcome(), row.Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoVeto, testing::ValuesIn(VetoRows), RowName());

TEST_F(YesNoEventTest, ShowsTheProposedAnswerInsideClick)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    std::string text;
    control.OnClick([&] { text = control.Text(); });
    Key('Y');
    EXPECT_EQ(text, "Y");
    Key(VK_SPACE);
    EXPECT_EQ(text, "Null");
    Key('N');
    EXPECT_EQ(text, "N");
}

// The window shows the proposal if it is painted meanwhile, and the old answer again after a veto.
TEST_F(YesNoEventTest, RepaintsTheOldAnswerAfterAVeto)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    std::string during;
    control.CancelClicks();
    control.OnClick([&] {
        RedrawWindow(control.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        during = control.FocusShown(); // holds the picture against Value, 1
    });
    Key('Y');
    EXPECT_EQ(during, "Yes");
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes | Click 1");
}

struct ValueInEventRow : NamedRow
{
    long Before;
    By Answer;
    long SetInClick;
    bool Cancel;
    const char* Outcome;
};

// What a handler sets is told at once; then the change that the user made takes place as it would have.
const ValueInEventRow ValueInClickRows[] = {
    {"TheProposedOne", 0, By::Y, 1, false, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"TheOther", 0, By::Y, 2, false, "1 Y @Yes | Click 1, Value, Text, Change 2, Value, Text, Change 1"},
    {"TheOld", 0, By::Y, 0, false, "1 Y @Yes | Click 1, Value, Text, Change 0, Value, Text, Change 1"},
    {"NoAnswer", 1, By::No, 7, false, "2 N @No | Click 2, Value, Text, Change 7, Value, Text, Change 2"},
    {"TheOtherAndVeto", 0, By::Y, 2, true, "0 Null @Yes | Click 1, Value, Text, Change 2"},
    {"TheProposedOneAndVeto", 1, By::Space, 0, true, "1 Y @Yes | Click 0"},
};

class YesNoValueInClick : public YesNoEventTest, public testing::WithParamInterface<ValueInEventRow>
{
};

TEST_P(YesNoValueInClick, IsToldAndThenReplacedByTheUsersAnswer)
{
    const ValueInEventRow& row = GetParam();
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(row.Before);
    ShowForm();
    control.TakeTrace();
    control.OnClick([&] { control.SetValue(row.SetInClick); });
    if (row.Cancel)
        control.CancelClicks();
    Answer(control, row.Answer);
    EXPECT_EQ(control.TakeOutcome(), row.Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoValueInClick, testing::ValuesIn(ValueInClickRows), RowName());

TEST_F(YesNoEventTest, TakesAnotherValueInsideChange)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    control.OnChange([&] {
        if (control.Value() == 1)
            control.SetValue(2);
    });
    Key('Y');
    EXPECT_EQ(control.TakeOutcome(), "2 N @Yes | Click 1, Value, Text, Change 1, Value, Text, Change 2");
}

TEST_F(YesNoEventTest, TakesATextInsideChange)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    control.OnChange([&] { control.SetText(Variant::Null()); });
    Click(control, Spot::NoCaption);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @No | Click 2, Value, Text, Change 2, Value, Text, Change 0");
}

TEST_F(YesNoEventTest, MayLoseTheFocusInsideAnEvent)
{
    for (const By by : {By::Y, By::No})
    {
        for (const bool inClick : {true, false})
        {
            HostedYesNo control(TheForm(), Placed());
            host::Button& elsewhere = AddElsewhere();
            ShowForm();
            control.Site().Focus();
            const auto leave = [&] { SetFocus(elsewhere.Window()); };
            inClick ? control.OnClick(leave) : control.OnChange(leave);
            Answer(control, by);
            EXPECT_EQ(GetFocus(), elsewhere.Window());
            EXPECT_EQ(control.TakeOutcome(), by == By::Y ? "1 Y @None | Click 1, Value, Text, Change 1"
                                                         : "2 N @None | Click 2, Value, Text, Change 2");
            TheForm().Remove(control.Site());
        }
    }
}

TEST_F(YesNoEventTest, MayShowAMessageBoxInsideAnEvent)
{
    for (const By by : {By::Y, By::No})
    {
        for (const bool inClick : {true, false})
        {
            HostedYesNo control(TheForm(), Placed());
            ShowForm();
            control.Site().Focus();
            MessageBoxWatcher watcher;
            const auto ask = [&] { MessageBoxW(TheForm().Window(), L"Sure?", L"Host", MB_OK); };
            inClick ? control.OnClick(ask) : control.OnChange(ask);
            Answer(control, by);
            EXPECT_EQ(watcher.Stop().size(), 1U);
            EXPECT_TRUE(PumpUntil(TheForm(), [&] { return GetFocus() == control.Window(); }));
            EXPECT_EQ(control.TakeOutcome(), by == By::Y ? "1 Y @Yes | Click 1, Value, Text, Change 1"
                                                         : "2 N @No | Click 2, Value, Text, Change 2");
            TheForm().Remove(control.Site());
        }
    }
}

TEST_F(YesNoEventTest, MayBeDisabledInsideAnEvent)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    control.OnClick([&] { EXPECT_HRESULT_SUCCEEDED(control.Control()->put_Enabled(VARIANT_FALSE)); });
    Click(control, Spot::YesImage);
    EXPECT_EQ(control.Value(), 1);
    EXPECT_EQ(control.TakeTrace(), "Click 1, Enabled, Value, Text, Change 1");
}

// What a host may do to a control that is raising an event of its own.
enum class Blow
{
    Deactivate,
    Close,
    Remove,
    DestroyForm
};

struct BlowRow : NamedRow
{
    Blow What;
};

class YesNoBlow : public YesNoEventTest, public testing::WithParamInterface<BlowRow>
{
protected:
    void Strike(host::ControlSite& site)
    {
        switch (GetParam().What)
        {
        case Blow::Deactivate:
            EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
            break;
        case Blow::Close:
            EXPECT_HRESULT_SUCCEEDED(site.Close());
            break;
        case Blow::Remove:
            TheForm().Remove(site);
            break;
        case Blow::DestroyForm:
            TheForm().Destroy();
            break;
        }
        EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE))
            << "a control lives until its event is over, whoever else lets go of it";
    }

    // The form may be gone, and with it who handles the input.
    void SendAnswer(const HostedYesNo& control, By by, const bool& struck)
    {
        if (by == By::Y)
        {
            TapKey('Y');
        }
        else
        {
            PointAt(control.OnScreen(Spot::NoCaption));
            PressButton(MouseButton::Left);
            ReleaseButton(MouseButton::Left);
        }
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return struck; }));
        PumpPending(TheForm());
    }
};

TEST_P(YesNoBlow, IsSurvivedInsideClick)
{
    for (const By by : {By::Y, By::No})
    {
        if (TheForm().Closed())
            break;
        HostedYesNo control(TheForm(), Placed());
        ShowForm();
        control.Site().Focus();
        bool struck = false;
        control.OnClick([&] {
            Strike(control.Site());
            struck = true;
        });
        SendAnswer(control, by, struck);
    }
}

TEST_P(YesNoBlow, IsSurvivedInsideChange)
{
    for (const By by : {By::Y, By::No})
    {
        if (TheForm().Closed())
            break;
        HostedYesNo control(TheForm(), Placed());
        ShowForm();
        control.Site().Focus();
        bool struck = false;
        control.OnChange([&] {
            Strike(control.Site());
            struck = true;
        });
        SendAnswer(control, by, struck);
    }
}

TEST_P(YesNoBlow, IsSurvivedInsideChangeThatTheHostCaused)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    bool struck = false;
    control.OnChange([&] {
        Strike(control.Site());
        struck = true;
    });
    // The host's call holds a reference, as calls through an interface do.
    control.SetValue(1);
    EXPECT_TRUE(struck);
}

const BlowRow BlowRows[] = {
    {"Deactivate", Blow::Deactivate},
    {"Close", Blow::Close},
    {"Remove", Blow::Remove},
    {"DestroyForm", Blow::DestroyForm},
};

INSTANTIATE_TEST_SUITE_P(Rows, YesNoBlow, testing::ValuesIn(BlowRows), RowName());

} // namespace

} // namespace kiv::test
