// Entering and leaving, and what is in view then.

#include "tests/gui/amount/AmountTest.h"
#include "tests/native/amount/CurrencyEntryRows.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Text.h"

#include <utility>

namespace kiv::test
{

namespace
{

class AmountExitTest : public AmountTest
{
protected:
    static void PressAndRelease(HWND window, MouseButton button = MouseButton::Left, POINT place = {30, 8})
    {
        ClientToScreen(window, &place);
        PointAt(place);
        PressButton(button);
        ReleaseButton(button);
    }
};

TEST_F(AmountExitTest, EnteringBringsTheBoxIntoViewAndSelectsAll)
{
    HostedBox currency = AddCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    ShowWithFocusElsewhere();
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Put(L"Value", Variant(0.5));
        EXPECT_TRUE(IsParked(*box));
        box->Site().Focus();
        EXPECT_EQ(GetFocus(), box->Edit());
        EXPECT_TRUE(IsInView(*box));
        const std::wstring text = box->Text();
        EXPECT_EQ(box->Look(), (BoxLook{text, 0, static_cast<int>(text.size())}));
        RECT inner = {};
        RECT place = {};
        GetClientRect(box->Site().Window(), &inner);
        GetWindowRect(box->Edit(), &place);
        MapWindowPoints(nullptr, box->Site().Window(), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, 1);
        EXPECT_EQ(place.right, inner.right - 1);
        EXPECT_EQ(place.top, (inner.bottom - (place.bottom - place.top)) / 2) << "in the middle";
    }
}

// Nothing is parked where the control would show it.
TEST_F(AmountExitTest, TheParkedBoxIsOutOfSight)
{
    HostedBox currency = AddCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    ShowWithFocusElsewhere();
    for (HostedBox* box : {&currency, &percent})
    {
        ExpectLabel(*box, L"");
        RECT place = {};
        GetWindowRect(box->Edit(), &place);
        MapWindowPoints(nullptr, box->Site().Window(), reinterpret_cast<POINT*>(&place), 2);
        const int twipsPerPixel = 15;
        EXPECT_EQ(place.top, 10000 / twipsPerPixel);
        EXPECT_EQ(place.left, 1);
        box->Site().Put(L"Value", Variant(0.5));
        ExpectLabel(*box, box == &currency ? L"1" : L"50.");
    }
}

TEST_F(AmountExitTest, LeavingACurrencyBoxDoesWhatTheRowsSay)
{
    HostedBox box = ShownCurrencyBox();
    ExpectRows(CurrencyExitRows, [&](const CurrencyExitRow& row, const NumberLocale& locale) {
        box.Site().Focus();
        SetRange(box, row.MinValue, row.MaxValue);
        box.Site().Put(L"AllowRounding", Variant(row.AllowRounding));
        const std::wstring before = Localized(row.Before, locale);
        box.Show({before, 0, 0});
        MessageBoxWatcher watcher;
        Leave(box);
        EXPECT_TRUE(watcher.Stop().empty()) << "nobody is shown anything";
        const std::wstring after = Localized(row.After, locale);
        EXPECT_EQ(box.Text(), after);
        EXPECT_EQ(box.TakeChanges(), after == before ? Texts() : Texts{after});
        EXPECT_EQ(IsParked(box), row.Parked);
        EXPECT_EQ(IsInView(box), !row.Parked);
        if (row.Parked)
            ExpectLabel(box, Localized(row.Label, locale));
    });
}

// The amount that was out of range is in view, and stays the user's own text when the focus comes back.
TEST_F(AmountExitTest, AnAmountOutOfRangeStaysUntilItIsMended)
{
    HostedBox box = ShownCurrencyBox();
    SetRange(box, 0, 100);
    Type(L"150");
    Leave(box);
    EXPECT_TRUE(IsInView(box));
    box.ExpectComplaint(L"Please enter a value between 0 and 100");
    Enter(box);
    EXPECT_EQ(box.Look(), (BoxLook{L"150", 0, 3}));
    Type(L"15");
    Leave(box);
    ExpectLabel(box, L"15");
}

// A lone point is cleared in view, and the empty field is parked by the next exit.
TEST_F(AmountExitTest, ALonePointIsClearedInView)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        Settle();
        Type(L".");
        box->TakeEvents();
        Leave(*box);
        EXPECT_EQ(box->TakeChanges(), Texts{L""});
        EXPECT_TRUE(IsInView(*box));
        EXPECT_EQ(box->Value(), L"Null");
        Enter(*box);
        Leave(*box);
        ExpectLabel(*box, L"");
    }
}

// Neither checked nor rounded, and shown as it was typed.
TEST_F(AmountExitTest, LeavingAPercentBoxShowsTheTextAsItIs)
{
    HostedBox box = ShownPercentBox();
    for (const wchar_t* text : {L"7.5", L"150", L"007.", L".123456789", L""})
    {
        SCOPED_TRACE(Narrow(text));
        box.Site().Focus();
        box.Show({text, 0, 0});
        MessageBoxWatcher watcher;
        Leave(box);
        EXPECT_TRUE(watcher.Stop().empty()) << "nobody is shown anything";
        EXPECT_EQ(box.Text(), text);
        EXPECT_EQ(box.TakeEvents(), Texts());
        ExpectLabel(box, text);
    }
}

// The label of a percent box follows every change; a host that reads Text inside Change sees it.
TEST_F(AmountExitTest, ThePercentLabelIsThereBeforeTheHostHears)
{
    HostedBox box = ShownPercentBox();
    Texts heard;
    box.On(L"Change",
           [&](const host::EventRecord&, DISPPARAMS&) { heard.push_back(box.Site().Get(L"Text").Text()); });
    Type(L"7.5");
    EXPECT_EQ(heard, (Texts{L"7", L"7.", L"7.5"}));
}

// The label of a currency box follows when the amount is assigned or the box is left, and not before.
TEST_F(AmountExitTest, TextIsComputedWheneverItIsRead)
{
    HostedBox box = ShownCurrencyBox();
    Type(L"1234");
    EXPECT_EQ(box.Site().Get(L"Text").Text(), L"1,234");
    Type(L".5");
    EXPECT_EQ(box.Site().Get(L"Text").Text(), L"1,234.50");
    Leave(box);
    EXPECT_EQ(box.Site().Get(L"Text").Text(), L"1,235");
    ExpectLabel(box, L"1,235");
}

// A host that answers the rounding by another amount has the last word.
TEST_F(AmountExitTest, TheHostMayAnswerTheRounding)
{
    HostedBox box = ShownCurrencyBox();
    Type(L"12.5");
    bool answered = false;
    box.On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
        if (std::exchange(answered, true))
            return;
        EXPECT_EQ(Hr(box.Assign(Variant(7L))), Hr(S_OK));
    });
    Leave(box);
    EXPECT_TRUE(answered);
    EXPECT_EQ(box.Text(), L"7");
    ExpectLabel(box, L"7");
}

// A changed locale is followed at once by a control that lives.
TEST_F(AmountExitTest, AControlFollowsTheUsersSettings)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    currency.Site().Put(L"AllowRounding", Variant(false));
    currency.Site().Put(L"Value", Variant(1234.5));
    Leave(currency);
    ExpectLabel(currency, L"1,234.50");
    const UserLocale german(NumberLocales[1]);
    currency.Site().Put(L"Value", Variant(1234.5));
    ExpectLabel(currency, L"1.234,50");
    percent.Site().Put(L"Value", Variant(0.075));
    ExpectLabel(percent, L"7,5");
    EXPECT_EQ(percent.Value(), L"0,075");
}

TEST_F(AmountExitTest, DisabledBoxesAreDeaf)
{
    HostedBox currency = AddCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    host::Button& elsewhere = AddElsewhere();
    ShowForm();
    SetFocus(elsewhere.Window());
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Put(L"Enabled", Variant(false));
        EXPECT_FALSE(IsWindowEnabled(box->Edit()));
        box->TakeEvents();
        PressAndRelease(box->Site().Window());
        Settle();
        Type(L"1");
        EXPECT_EQ(GetFocus(), elsewhere.Window());
        EXPECT_EQ(box->Text(), L"");
        EXPECT_EQ(box->TakeEvents(), Texts());
        EXPECT_EQ(Hr(box->Assign(Variant(short{1}))), Hr(S_OK));
        EXPECT_NE(box->Text(), L"") << "the host's own assignments work all the while";
        box->Site().Put(L"Enabled", Variant(true));
        EXPECT_TRUE(IsWindowEnabled(box->Edit()));
    }
}

// A click on the surface brings the box into view; a currency box tells of it as well.
TEST_F(AmountExitTest, AClickEnters)
{
    HostedBox currency = AddCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    ShowWithFocusElsewhere();
    for (HostedBox* box : {&currency, &percent})
    {
        box->TakeEvents();
        PressAndRelease(box->Site().Window());
        Settle();
        EXPECT_EQ(GetFocus(), box->Edit());
        EXPECT_TRUE(IsInView(*box));
    }
}

TEST_F(AmountExitTest, AClickOnTheSurfaceIsToldByACurrencyBox)
{
    HostedBox currency = AddCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    AddElsewhere();
    ShowForm();
    currency.Site().Focus();
    Settle();
    for (HostedBox* box : {&currency, &percent})
    {
        box->TakeEvents();
        // Beside the text box, which leaves a pixel of the surface at its left.
        PressAndRelease(box->Site().Window(), MouseButton::Left, {0, 8});
        Settle();
        EXPECT_EQ(box->TakeEvents(), box == &currency ? Texts{L"Click"} : Texts());
    }
}

} // namespace

} // namespace kiv::test
