// Entering and leaving a box, and boxes that do not answer.

#include "tests/gui/masked/MaskedTest.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

using MaskedFocusTest = MaskedTest;

constexpr RECT Below = {20, 60, 140, 80};

POINT InnerPlace(HWND window)
{
    POINT place = {30, 8};
    ClientToScreen(window, &place);
    return place;
}

TEST_F(MaskedFocusTest, EnteringSelectsAll)
{
    AddElsewhere();
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed(Below));
    ShowForm();
    number.Show({L"123-45-6789", 2, 0});
    date.Show({L"01/05/01", 2, 0});
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), number.Edit());
    EXPECT_EQ(number.Look(), (BoxLook{L"123-45-6789", 0, 11}));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), date.Edit());
    EXPECT_EQ(date.Look(), (BoxLook{L"01/05/01", 0, 8}));
    number.Select(1, 1);
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(number.Look(), (BoxLook{L"123-45-6789", 0, 11}));
    number.SetStyle(2);
    number.Show({L"0110", 0, 0});
    Key(VK_TAB);
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), number.Edit());
    EXPECT_EQ(number.Look(), (BoxLook{L"0110", 0, 4}));
}

TEST_F(MaskedFocusTest, LeavingCompletesADate)
{
    HostedBox date = AddDateBox();
    AddElsewhere();
    ShowForm();
    ASSERT_EQ(GetFocus(), date.Edit());
    Type(L"1/5/1");
    EXPECT_EQ(date.Text(), L"1_/5_/1_");
    date.TakeEvents();
    Key(VK_TAB);
    EXPECT_EQ(date.Text(), L"01/05/01");
    EXPECT_EQ(date.TakeChanges(), Texts{L"01/05/01"});
    Key(VK_TAB);
    EXPECT_EQ(date.Look(), (BoxLook{L"01/05/01", 0, 8}));
    Type(L"13");
    Key(VK_TAB);
    EXPECT_EQ(date.Text(), L"13/__/__") << "what is no date stays";
    Key(VK_TAB);
    Type(L"\b");
    Key(VK_TAB);
    EXPECT_EQ(date.Text(), L"__/__/__");
}

// Leaving asks for no period.
TEST_F(MaskedFocusTest, LeavingCompletesADateOutsideThePeriod)
{
    HostedBox date = AddDateBox();
    AddElsewhere();
    ShowForm();
    date.SetStyle(2);
    date.Show({L"1_/5_/2030", 0, 0});
    Key(VK_TAB);
    EXPECT_EQ(date.Text(), L"01/05/2030");
}

TEST_F(MaskedFocusTest, LeavingKeepsANumberAsItIs)
{
    HostedBox number = AddNumberBox();
    AddElsewhere();
    ShowForm();
    Type(L"123");
    number.TakeEvents();
    Key(VK_TAB);
    EXPECT_EQ(number.Text(), L"123-__-____");
    EXPECT_EQ(number.TakeChanges(), Texts());
}

TEST_F(MaskedFocusTest, FollowsTheTabOrderAndPassesTheDisabled)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed(Below));
    host::Button& elsewhere = AddElsewhere();
    ShowForm();
    EXPECT_EQ(GetFocus(), number.Edit());
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), date.Edit());
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), elsewhere.Window());
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), number.Edit());
    date.Site().Put(L"Enabled", Variant(false));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), elsewhere.Window());
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), number.Edit());
}

TEST_F(MaskedFocusTest, DisabledBoxesAreDeaf)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed(Below));
    host::Button& elsewhere = AddElsewhere();
    ShowForm();
    SetFocus(elsewhere.Window());
    for (HostedBox* box : {&number, &date})
    {
        box->Site().Put(L"Enabled", Variant(false));
        for (const HWND edit : box->Edits())
            EXPECT_FALSE(IsWindowEnabled(edit));
        box->TakeEvents();
        const std::wstring before = box->Text();
        PointAt(InnerPlace(box->Edit()));
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
        Settle();
        Type(L"1");
        EXPECT_EQ(GetFocus(), elsewhere.Window());
        EXPECT_EQ(box->Text(), before);
        EXPECT_EQ(box->TakeEvents(), Texts());
        box->Site().Put(L"Enabled", Variant(true));
        for (const HWND edit : box->Edits())
            EXPECT_TRUE(IsWindowEnabled(edit));
    }
    // The host's own assignments work all the while.
    number.Site().Put(L"Enabled", Variant(false));
    EXPECT_EQ(Hr(number.Assign(Variant(L"123-45-6789"))), Hr(S_OK));
    EXPECT_EQ(number.Value(), L"123-45-6789");
}

TEST_F(MaskedFocusTest, AClickIsToldByADateBoxAlone)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed(Below));
    AddElsewhere();
    ShowForm();
    for (HostedBox* box : {&date, &number})
    {
        box->TakeEvents();
        PointAt(InnerPlace(box->Edit()));
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
        Settle();
        EXPECT_EQ(GetFocus(), box->Edit());
        EXPECT_EQ(box->TakeEvents(), box == &date ? Texts{L"Click"} : Texts());
    }
}

// A form that is being designed shows its boxes, but they do not answer and have no value to read.
TEST_F(MaskedFocusTest, DesignTimeBoxesDoNotAnswer)
{
    host::SiteOptions options = Placed();
    options.userMode = false;
    HostedBox number = AddNumberBox(options);
    options.bounds = Below;
    HostedBox date = AddDateBox(options);
    ShowForm();
    for (const wchar_t* property : {L"Text", L"Value"})
    {
        const CallOutcome outcome = GetByName(number.Site().Control(), property);
        EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(383)));
        EXPECT_EQ(outcome.ErrorSource, L"NumberBox");
    }
    EXPECT_EQ(date.Site().Get(L"Text").Text(), L"__/__/__");
    EXPECT_EQ(date.Value(), L"Null");
    for (HostedBox* box : {&number, &date})
    {
        const std::wstring before = box->Text();
        SetFocus(box->Edit());
        box->TakeEvents();
        Type(L"1\b\x7F");
        EXPECT_EQ(box->Text(), before);
        EXPECT_EQ(box->TakeEvents(), Texts());
    }
    number.Site().SetUserMode(true);
    EXPECT_EQ(number.Value(), L"Null");
    EXPECT_EQ(number.Site().Get(L"Text").Text(), L"");
}

} // namespace

} // namespace kiv::test
