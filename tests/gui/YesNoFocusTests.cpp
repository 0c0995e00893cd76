// The focus rectangle of a YesNo: where it shows, and that it is never left behind.

#include "tests/gui/HostedTest.h"
#include "tests/support/AutomationCalls.h"

#include "host/container/Button.h"

namespace kiv::test
{

namespace
{

class YesNoFocusTest : public HostedTest
{
protected:
    // A control without the focus, on a form that is shown.
    HostedYesNo& Shown(host::SiteOptions options = Placed())
    {
        elsewhere_ = &AddElsewhere();
        control_ = std::make_unique<HostedYesNo>(TheForm(), std::move(options));
        ShowForm();
        return *control_;
    }
    HostedYesNo& ShownWithFocus()
    {
        HostedYesNo& control = Shown();
        control.Site().Focus();
        return control;
    }
    host::Button& Elsewhere() { return *elsewhere_; }

    static void DrawFocusState(const HostedYesNo& control, long target)
    {
        auto focus = static_cast<AnswerEnums>(target);
        EXPECT_HRESULT_SUCCEEDED(control.Control()->DrawFocusState(&focus));
    }
    static void Repaint(const HostedYesNo& control)
    {
        RedrawWindow(control.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }

private:
    host::Button* elsewhere_ = nullptr;
    std::unique_ptr<HostedYesNo> control_;
};

TEST_F(YesNoFocusTest, ShowsWithTheFocusOnly)
{
    HostedYesNo& control = Shown();
    EXPECT_EQ(control.FocusShown(), "None");
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "Yes");
    SetFocus(Elsewhere().Window());
    EXPECT_EQ(control.FocusShown(), "None");
    control.Site().UIActivate();
    EXPECT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(control.FocusShown(), "Yes");
    SetFocus(nullptr);
    EXPECT_EQ(control.FocusShown(), "None");
}

TEST_F(YesNoFocusTest, ComesBackWhereItWas)
{
    HostedYesNo& control = ShownWithFocus();
    Key(VK_RIGHT);
    EXPECT_EQ(control.FocusShown(), "No");
    SetFocus(Elsewhere().Window());
    EXPECT_EQ(control.FocusShown(), "None");
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "No");
}

TEST_F(YesNoFocusTest, SurvivesRepaints)
{
    HostedYesNo& control = ShownWithFocus();
    for (const char* where : {"Yes", "No"})
    {
        Repaint(control);
        EXPECT_EQ(control.FocusShown(), where);
        // Parts across the rectangle's lines, and one that they do not touch.
        for (const RECT& part : {RECT{0, 0, 10, 10}, RECT{10, 5, 60, 30}, RECT{3, 3, 8, 8},
                                 RECT{100, 0, 120, 20}, RECT{19, 19, 101, 20}, RECT{0, 7, 120, 8}})
        {
            InvalidateRect(control.Window(), &part, FALSE);
            UpdateWindow(control.Window());
            EXPECT_EQ(control.FocusShown(), where);
        }
        DrawFocusState(control, 2);
    }
}

TEST_F(YesNoFocusTest, SurvivesWhatCoversThePicture)
{
    HostedYesNo& control = ShownWithFocus();
    for (const RECT& cover : {RECT{10, 10, 60, 30}, RECT{25, 25, 80, 35}, RECT{0, 0, 300, 120}})
    {
        const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, cover.left, cover.top,
                                            cover.right - cover.left, cover.bottom - cover.top,
                                            TheForm().Window(), nullptr, nullptr, nullptr);
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        PumpPending(TheForm());
        DestroyWindow(window);
        PumpPending(TheForm());
        EXPECT_EQ(control.FocusShown(), "Yes");
    }
}

// The focus comes or goes while a repaint still waits.
TEST_F(YesNoFocusTest, SurvivesARepaintThatWaits)
{
    HostedYesNo& control = Shown();
    const RECT part = {5, 0, 30, 20};
    for (const RECT* waiting : {&part, static_cast<const RECT*>(nullptr)})
    {
        InvalidateRect(control.Window(), waiting, FALSE);
        SetFocus(control.Window());
        PumpPending(TheForm());
        EXPECT_EQ(control.FocusShown(), "Yes");
        InvalidateRect(control.Window(), waiting, FALSE);
        SetFocus(Elsewhere().Window());
        PumpPending(TheForm());
        EXPECT_EQ(control.FocusShown(), "None");
    }
}

TEST_F(YesNoFocusTest, SurvivesWhatTheHostSets)
{
    HostedYesNo& control = ShownWithFocus();
    Key(VK_RIGHT);
    control.SetValue(1);
    EXPECT_EQ(control.FocusShown(), "No");
    control.SetText(Variant(L"N"));
    EXPECT_EQ(control.FocusShown(), "No");
    control.Site().Put(L"BackColor", Variant(0xFF00L));
    EXPECT_EQ(control.FocusShown(), "No");
    control.Site().Put(L"ForeColor", Variant(0xFFL));
    EXPECT_EQ(control.FocusShown(), "No");
    control.Site().Move({30, 10, 200, 43});
    PumpPending(TheForm());
    EXPECT_EQ(control.FocusShown(), "No");
    control.Site().Move({30, 10, 110, 27});
    PumpPending(TheForm());
    EXPECT_EQ(control.FocusShown(), "No");
}

TEST_F(YesNoFocusTest, GoesAndComesWithTheFormsActivation)
{
    HostedYesNo& control = ShownWithFocus();
    Key(VK_RIGHT);
    host::Form other(L"Other", {100, 60});
    other.Show();
    ASSERT_TRUE(PumpUntil(other, [&] { return GetForegroundWindow() == other.Window(); }));
    EXPECT_EQ(control.FocusShown(), "None");
    SetForegroundWindow(TheForm().Window());
    ASSERT_TRUE(PumpUntil(TheForm(), [&] { return GetFocus() == control.Window(); }));
    EXPECT_EQ(control.FocusShown(), "No");
}

TEST_F(YesNoFocusTest, SurvivesHidingTheForm)
{
    HostedYesNo& control = ShownWithFocus();
    ShowWindow(TheForm().Window(), SW_HIDE);
    PumpPending(TheForm());
    ShowForm();
    ASSERT_TRUE(PumpUntil(TheForm(), [&] { return GetFocus() == control.Window(); }));
    EXPECT_EQ(control.FocusShown(), "Yes");
}

TEST_F(YesNoFocusTest, ShowsOnOneControlAtATime)
{
    HostedYesNo& one = ShownWithFocus();
    HostedYesNo other(TheForm(), Placed({20, 50, 140, 70}));
    PumpPending(TheForm());
    EXPECT_EQ(one.FocusShown() + other.FocusShown(), "YesNone");
    other.Site().Focus();
    Key(VK_RIGHT);
    EXPECT_EQ(one.FocusShown() + other.FocusShown(), "NoneNo");
    one.Site().Focus();
    EXPECT_EQ(one.FocusShown() + other.FocusShown(), "YesNone");
    Click(other, Spot::YesImage);
    EXPECT_EQ(one.FocusShown() + other.FocusShown(), "NoneYes");
}

TEST_F(YesNoFocusTest, IsMovedByTheHost)
{
    HostedYesNo& control = ShownWithFocus();
    DrawFocusState(control, 2);
    EXPECT_EQ(control.FocusShown(), "No");
    DrawFocusState(control, 2);
    EXPECT_EQ(control.FocusShown(), "No");
    DrawFocusState(control, 1);
    EXPECT_EQ(control.FocusShown(), "Yes");
    EXPECT_EQ(control.TakeTrace(), "");
    Repaint(control);
    EXPECT_EQ(control.FocusShown(), "Yes");
}

TEST_F(YesNoFocusTest, IsToggledByTheHost)
{
    HostedYesNo& control = ShownWithFocus();
    DrawFocusState(control, 0);
    EXPECT_EQ(control.FocusShown(), "None");
    DrawFocusState(control, 0);
    EXPECT_EQ(control.FocusShown(), "Yes");
    EXPECT_HRESULT_SUCCEEDED(CallByName(control.Control().Get(), L"DrawFocusState").Result);
    EXPECT_EQ(control.FocusShown(), "None");
    // There is no record of it being off: a repaint of a control with the focus shows it again.
    Repaint(control);
    EXPECT_EQ(control.FocusShown(), "Yes");
}

// Without the focus nothing shows, and moving inverts at both places: deliberate, for hosts that draw so.
TEST_F(YesNoFocusTest, IsDrawnAtBothOptionsWhenMovedWithoutTheFocus)
{
    HostedYesNo& control = Shown();
    DrawFocusState(control, 1);
    EXPECT_EQ(control.FocusShown(), "None");
    DrawFocusState(control, 2);
    EXPECT_EQ(control.FocusShown(), "Both");
    Repaint(control);
    EXPECT_EQ(control.FocusShown(), "None");
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "No");
}

TEST_F(YesNoFocusTest, IsAtNoForAnyOptionThatIsNotYes)
{
    HostedYesNo& control = ShownWithFocus();
    DrawFocusState(control, 5);
    EXPECT_EQ(control.FocusShown(), "No");
    control.TakeTrace();
    // The space bar chooses the very option.
    Key(VK_SPACE);
    EXPECT_EQ(control.TakeOutcome(), "5 Null @No | Click 5, Value, Text, Change 5");
    DrawFocusState(control, 1);
    EXPECT_EQ(control.FocusShown(), "Yes");
}

host::SiteOptions Designing(host::SiteOptions options)
{
    options.userMode = false;
    return options;
}

TEST_F(YesNoFocusTest, NeverShowsInADesigner)
{
    HostedYesNo& control = Shown(Designing(Placed()));
    SetFocus(control.Window());
    ASSERT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(control.FocusShown(), "None");
    Repaint(control);
    EXPECT_EQ(control.FocusShown(), "None");
    for (const long target : {0, 1, 2, 0})
    {
        DrawFocusState(control, target);
        EXPECT_EQ(control.FocusShown(), "None");
    }
    SetFocus(Elsewhere().Window());
    EXPECT_EQ(control.FocusShown(), "None");
}

TEST_F(YesNoFocusTest, IsNotEvenRecordedInADesigner)
{
    HostedYesNo& control = Shown(Designing(Placed()));
    DrawFocusState(control, 2);
    control.Site().SetUserMode(true);
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "Yes");
    Key(VK_RIGHT);
    EXPECT_EQ(control.FocusShown(), "No");
    // And back: what was recorded at run time stays.
    SetFocus(Elsewhere().Window());
    control.Site().SetUserMode(false);
    DrawFocusState(control, 1);
    control.Site().SetUserMode(true);
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "No");
}

TEST_F(YesNoFocusTest, LooksInADesignerAsItWillAtRunTime)
{
    HostedYesNo& control = Shown(Designing(Placed()));
    for (const long value : {1, 2, 0})
    {
        control.SetValue(value);
        EXPECT_EQ(control.FocusShown(), "None");
    }
    control.Site().Put(L"Enabled", Variant(false));
    EXPECT_EQ(control.FocusShown(), "None");
}

TEST_F(YesNoFocusTest, IsNotAnsweredInADesigner)
{
    HostedYesNo& control = Shown(Designing(Placed()));
    SetFocus(control.Window());
    Key('Y');
    Key(VK_SPACE);
    Click(control, Spot::NoCaption);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
}

// A host that gives no ambient properties is taken to be at run time.
TEST_F(YesNoFocusTest, ShowsInAHostWithoutAmbients)
{
    host::SiteOptions options = Placed();
    options.giveAmbients = false;
    HostedYesNo& control = Shown(options);
    SetFocus(control.Window());
    EXPECT_EQ(control.FocusShown(), "Yes");
}

} // namespace

} // namespace kiv::test
