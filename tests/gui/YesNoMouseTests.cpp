// A YesNo answered with the mouse.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"

#include "host/container/Button.h"
#include "host/container/PropertyBag.h"
#include "runtime/com/MakeCom.h"

namespace kiv::test
{

namespace
{

struct MouseRow : NamedRow
{
    long Before;
    MouseButton Button;
    Spot PressAt;
    Spot ReleaseAt;
    const char* Outcome;
};

constexpr MouseButton Left = MouseButton::Left;
constexpr MouseButton Right = MouseButton::Right;
constexpr MouseButton Middle = MouseButton::Middle;

// The control has the focus, at Yes, before each.
const MouseRow MouseRows[] = {
    {"Yes", 0, Left, Spot::YesImage, Spot::YesImage, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"YesByRightButton", 0, Right, Spot::YesImage, Spot::YesImage,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"YesByMiddleButton", 0, Middle, Spot::YesImage, Spot::YesImage,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"No", 0, Left, Spot::NoCaption, Spot::NoCaption, "2 N @No | Click 2, Value, Text, Change 2"},
    {"NoByRightButton", 0, Right, Spot::NoCaption, Spot::NoCaption,
     "2 N @No | Click 2, Value, Text, Change 2"},
    {"NoByMiddleButton", 0, Middle, Spot::NoCaption, Spot::NoCaption,
     "2 N @No | Click 2, Value, Text, Change 2"},
    {"YesInsteadOfNo", 2, Left, Spot::YesImage, Spot::YesImage, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"NoInsteadOfYes", 1, Left, Spot::NoCaption, Spot::NoCaption, "2 N @No | Click 2, Value, Text, Change 2"},
    {"SelectedYesIsCleared", 1, Left, Spot::YesImage, Spot::YesImage,
     "0 Null @Yes | Click 0, Value, Text, Change 0"},
    {"SelectedYesIsClearedByRightButton", 1, Right, Spot::YesImage, Spot::YesImage,
     "0 Null @Yes | Click 0, Value, Text, Change 0"},
    {"SelectedNoIsCleared", 2, Left, Spot::NoCaption, Spot::NoCaption,
     "0 Null @No | Click 0, Value, Text, Change 0"},
    {"SelectedNoIsClearedByMiddleButton", 2, Middle, Spot::NoCaption, Spot::NoCaption,
     "0 Null @No | Click 0, Value, Text, Change 0"},
    {"YesInsteadOfWhatIsNoAnswer", 5, Left, Spot::YesImage, Spot::YesImage,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"LastColumnOfYes", 0, Left, Spot::YesLastColumn, Spot::YesLastColumn,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"ColumnBesideYes", 0, Left, Spot::BesideYes, Spot::BesideYes, "0 Null @Yes"},
    {"BetweenTheOptions", 1, Left, Spot::Middle, Spot::Middle, "1 Y @Yes"},
    {"ColumnBesideNo", 0, Left, Spot::BesideNo, Spot::BesideNo, "0 Null @Yes"},
    {"FirstColumnOfNo", 0, Left, Spot::NoFirstColumn, Spot::NoFirstColumn,
     "2 N @No | Click 2, Value, Text, Change 2"},
    {"LastColumnOfNo", 0, Left, Spot::LastColumn, Spot::LastColumn,
     "2 N @No | Click 2, Value, Text, Change 2"},
    // The press decides where the rectangle goes, the release what is answered.
    {"PressedOnYesReleasedOnNo", 0, Left, Spot::YesImage, Spot::NoCaption,
     "2 N @Yes | Click 2, Value, Text, Change 2"},
    {"PressedOnNoReleasedOnYes", 0, Left, Spot::NoCaption, Spot::YesImage,
     "1 Y @No | Click 1, Value, Text, Change 1"},
    {"PressedOnNoReleasedBetween", 0, Left, Spot::NoCaption, Spot::Middle, "0 Null @No"},
    {"PressedBetweenReleasedOnYes", 0, Left, Spot::Middle, Spot::YesImage,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"PressedBetweenReleasedOnNo", 0, Left, Spot::Middle, Spot::NoCaption,
     "2 N @Yes | Click 2, Value, Text, Change 2"},
    {"ReleasedOnTheRightBound", 0, Left, Spot::NoCaption, Spot::RightBound,
     "2 N @No | Click 2, Value, Text, Change 2"},
    {"ReleasedBeyondTheRightBound", 0, Left, Spot::NoCaption, Spot::BeyondRight, "0 Null @No"},
    {"ReleasedOnTheBottomBound", 0, Left, Spot::YesImage, Spot::BottomBound,
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"ReleasedBelowTheBottomBound", 0, Left, Spot::YesImage, Spot::BelowBottom, "0 Null @Yes"},
    {"ReleasedLeftOfTheControl", 0, Left, Spot::YesImage, Spot::LeftOf, "0 Null @Yes"},
    {"ReleasedAboveTheControl", 1, Left, Spot::YesImage, Spot::Above, "1 Y @Yes"},
    {"RightButtonReleasedOutside", 0, Right, Spot::NoCaption, Spot::BelowBottom, "0 Null @No"},
};

class YesNoMouse : public HostedTest, public testing::WithParamInterface<MouseRow>
{
};

TEST_P(YesNoMouse, Answers)
{
    const MouseRow& row = GetParam();
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(row.Before);
    ShowForm();
    ASSERT_EQ(GetFocus(), control.Window());
    control.TakeTrace();
    Press(control, row.PressAt, row.Button);
    EXPECT_EQ(control.TakeTrace(), "") << "the press alone answers nothing";
    Release(control, row.ReleaseAt, row.Button);
    EXPECT_EQ(control.TakeOutcome(), row.Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoMouse, testing::ValuesIn(MouseRows), RowName());

using YesNoMouseTest = HostedTest;

TEST_F(YesNoMouseTest, MovesTheFocusRectangleOnThePressAlone)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    Press(control, Spot::NoCaption);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @No");
    Press(control, Spot::YesImage, Right);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes");
    Release(control, Spot::BelowBottom, Right);
    Release(control, Spot::BelowBottom);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes");
}

TEST_F(YesNoMouseTest, SelectsAndClearsInADoubleClick)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    for (int i = 0; i < 2; ++i)
    {
        PointAt(control.OnScreen(Spot::YesImage));
        PressButton(Left);
        ReleaseButton(Left);
    }
    Settle();
    EXPECT_EQ(control.TakeOutcome(),
              "0 Null @Yes | Click 1, Value, Text, Change 1, Click 0, Value, Text, Change 0");
}

TEST_F(YesNoMouseTest, AnswersEachButtonOfTwo)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    Press(control, Spot::YesImage, Left);
    Press(control, Spot::YesImage, Right);
    Release(control, Spot::YesImage, Left);
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
    EXPECT_EQ(GetCapture(), control.Window());
    Release(control, Spot::YesImage, Right);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes | Click 0, Value, Text, Change 0");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(YesNoMouseTest, TakesTheFocusByAClick)
{
    host::Button& elsewhere = AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    ASSERT_EQ(GetFocus(), elsewhere.Window());
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
    Press(control, Spot::NoCaption);
    EXPECT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(control.Site().State(), host::SiteState::UIActive);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @No");
    Release(control, Spot::NoCaption);
    EXPECT_EQ(control.TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
}

TEST_F(YesNoMouseTest, TakesTheFocusByAClickBetweenTheOptions)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    Click(control, Spot::Middle);
    EXPECT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes");
}

TEST_F(YesNoMouseTest, AnswersNoReleaseOnceTheFocusIsGone)
{
    host::Button& elsewhere = AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    Press(control, Spot::YesImage);
    SetFocus(elsewhere.Window());
    Release(control, Spot::YesImage);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
    EXPECT_EQ(GetFocus(), elsewhere.Window());
}

TEST_F(YesNoMouseTest, AnswersNoReleaseOfAPressMadeElsewhere)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    PointAt(control.OnScreen(Spot::BelowBottom));
    PressButton(Left);
    Settle();
    Release(control, Spot::YesImage);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
}

TEST_F(YesNoMouseTest, CountsTheOverlapOfANarrowControlAsYes)
{
    HostedYesNo control(TheForm(), Placed({20, 20, 70, 40}));
    ShowForm();
    const YesNoRegions regions = RegionsOf(control.Look());
    ASSERT_LE(regions.NoLeft, regions.YesRight);
    Click(control, Spot::NoFirstColumn);
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
    Click(control, Spot::YesLastColumn);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes | Click 0, Value, Text, Change 0");
    Click(control, Spot::BesideYes);
    EXPECT_EQ(control.TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
}

TEST_F(YesNoMouseTest, FollowsTheOptionsWhenItIsResized)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    control.Site().Move({20, 20, 220, 50});
    Click(control, Spot::BesideNo);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes");
    Click(control, Spot::NoFirstColumn);
    EXPECT_EQ(control.TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
    control.Site().Move({20, 20, 120, 35});
    Click(control, Spot::BesideNo);
    EXPECT_EQ(control.TakeOutcome(), "2 N @No");
    Click(control, Spot::NoFirstColumn);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @No | Click 0, Value, Text, Change 0");
}

TEST_F(YesNoMouseTest, GetsNothingWhileDisabled)
{
    host::Button& elsewhere = AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    EXPECT_HRESULT_SUCCEEDED(control.Control()->put_Enabled(VARIANT_FALSE));
    EXPECT_FALSE(IsWindowEnabled(control.Window()));
    EXPECT_EQ(control.TakeTrace(), "Enabled");
    Click(control, Spot::YesImage);
    Click(control, Spot::NoCaption, Right);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
    EXPECT_EQ(GetFocus(), elsewhere.Window());

    EXPECT_HRESULT_SUCCEEDED(control.Control()->put_Enabled(VARIANT_TRUE));
    EXPECT_TRUE(IsWindowEnabled(control.Window()));
    EXPECT_EQ(control.TakeTrace(), "Enabled");
    Click(control, Spot::YesImage);
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
}

// Loading sets the surface's state only, not the window's: it must be deaf all the same.
TEST_F(YesNoMouseTest, GetsNothingWhenLoadedDisabled)
{
    host::Button& elsewhere = AddElsewhere();
    const auto bag = MakeCom<host::PropertyBag>();
    bag->Set(L"Enabled", Variant(false));
    host::SiteOptions options = Placed();
    options.load = bag.Get();
    HostedYesNo control(TheForm(), options);
    ShowForm();
    EXPECT_TRUE(IsWindowEnabled(control.Window()));
    Click(control, Spot::YesImage);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
    EXPECT_EQ(GetFocus(), elsewhere.Window());
}

} // namespace

} // namespace kiv::test
