// A control is left when the focus goes elsewhere in its own form, and not when another window is in front.

#include "tests/gui/entry/BoxTest.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Text.h"
#include "tests/support/Thread.h"

#include <atomic>
#include <memory>
#include <utility>

namespace kiv::test
{

namespace
{

// An entry that leaving makes another one, as each control does: rounded, completed, or not at all.
struct LeftRow
{
    const wchar_t* Typed;
    const wchar_t* Left;
};

LeftRow LeftRowOf(const BoxRow& row)
{
    if (row.Class == &CLSID_CurrencyBox)
        return {L"12.5", L"13"};
    if (row.Class == &CLSID_DateBox)
        return {L"1/5/1", L"01/05/01"};
    return row.IsMasked ? LeftRow{L"123", L"123-__-____"} : LeftRow{L"7.5", L"7.5"};
}

class BoxLeaving : public BoxTest
{
protected:
    void SetUp() override
    {
        BoxTest::SetUp();
        other_ = std::make_unique<host::Form>(L"Other", SIZE{100, 60});
    }
    void TearDown() override
    {
        other_.reset();
        BoxTest::TearDown();
    }

    // With an entry typed into it that leaving would change.
    HostedBox TypedInto()
    {
        HostedBox box = AddBox();
        elsewhere_ = &AddElsewhere();
        ShowForm();
        box.Site().Focus();
        Settle();
        Type(LeftRowOf(GetParam()).Typed);
        box.Select(1, 1);
        box.TakeEvents();
        RecordOf(box.Site()).ClearNotifications();
        return box;
    }

    void BringInFront(host::Form& form)
    {
        ASSERT_TRUE(PumpUntil(form, [&] {
            return GetForegroundWindow() == form.Window() || (SetForegroundWindow(form.Window()), false);
        }));
        PumpPending(form);
    }
    void Leave()
    {
        SetFocus(elsewhere_->Window());
        PumpPending(TheForm());
    }

    host::Form& Other() { return *other_; }
    // A button of the other form's.
    host::Button& AddThere()
    {
        host::ButtonOptions options;
        options.name = L"there";
        options.caption = L"There";
        options.bounds = {10, 10, 90, 40};
        return Other().AddButton(options);
    }
    host::Button& Elsewhere() { return *elsewhere_; }

    void ExpectUntouched(HostedBox& box, const BoxLook& look)
    {
        EXPECT_EQ(box.Look(), look);
        EXPECT_EQ(box.TakeEvents(), Texts());
        EXPECT_EQ(RecordOf(box.Site()).Notifications(), Texts());
    }
    void ExpectLeft(HostedBox& box) { EXPECT_EQ(box.Text(), LeftRowOf(GetParam()).Left); }

private:
    std::unique_ptr<host::Form> other_;
    host::Button* elsewhere_ = nullptr;
};

TEST_P(BoxLeaving, AnotherFormInFrontLeavesTheEntryAsItIs)
{
    HostedBox box = TypedInto();
    const BoxLook look = box.Look();
    AddThere();
    Other().Show();
    BringInFront(Other());
    EXPECT_NE(GetFocus(), box.Edit());
    ExpectUntouched(box, look);
    BringInFront(TheForm());
    EXPECT_EQ(GetFocus(), box.Edit());
    ExpectUntouched(box, look);
    Leave();
    ExpectLeft(box);
}

// The focus of another program's windows is that of another input queue: this one hears of nobody.
TEST_P(BoxLeaving, AnotherProgramInFrontLeavesTheEntryAsItIs)
{
    HostedBox box = TypedInto();
    const BoxLook look = box.Look();
    std::atomic<bool> shown = false;
    std::atomic<bool> done = false;
    {
        const Thread program([&] {
            OleInitialize(nullptr);
            {
                host::Form form(L"Program", {100, 60});
                form.Show();
                PumpUntil(form, [&] {
                    return GetForegroundWindow() == form.Window() ||
                           (SetForegroundWindow(form.Window()), false);
                });
                shown = true;
                PumpUntil(
                    form, [&] { return done.load(); }, 20000);
            }
            OleUninitialize();
        });
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return shown && GetFocus() == nullptr; }));
        ExpectUntouched(box, look);
        BringInFront(TheForm());
        done = true;
    }
    PumpUntil(TheForm(), [&] { return GetFocus() == box.Edit(); });
    EXPECT_EQ(GetFocus(), box.Edit());
    ExpectUntouched(box, look);
    Leave();
    ExpectLeft(box);
}

TEST_P(BoxLeaving, AMessageOfTheHostLeavesTheEntryAsItIs)
{
    HostedBox box = TypedInto();
    const BoxLook look = box.Look();
    MessageBoxWatcher watcher;
    MessageBoxW(TheForm().Window(), L"Is that so?", L"Host", MB_OK);
    EXPECT_EQ(watcher.Stop().size(), 1U);
    Settle();
    EXPECT_EQ(GetFocus(), box.Edit());
    ExpectUntouched(box, look);
    Leave();
    ExpectLeft(box);
}

// Also with one that the host shows while it hears of a key, as hosts do that check as the user types.
TEST_P(BoxLeaving, AMessageInsideAnEventLeavesTheEntryAsItIs)
{
    HostedBox box = TypedInto();
    const BoxLook look = box.Look();
    bool asked = false;
    box.On(L"KeyDown", [&](const host::EventRecord&, DISPPARAMS&) {
        if (!std::exchange(asked, true))
            MessageBoxW(TheForm().Window(), L"Is that so?", L"Host", MB_OK);
    });
    MessageBoxWatcher watcher;
    TapKey('A');
    ASSERT_TRUE(PumpUntil(TheForm(), [&] { return asked; }));
    EXPECT_EQ(watcher.Stop().size(), 1U);
    Settle();
    EXPECT_EQ(GetFocus(), box.Edit());
    EXPECT_EQ(box.Look(), look);
    EXPECT_EQ(box.TakeChanges(), Texts());
}

// While another window is in front the host may move the focus in the form behind it: that is leaving.
TEST_P(BoxLeaving, TheFocusMayGoElsewhereBehindTheOtherForm)
{
    HostedBox box = TypedInto();
    Other().Show();
    BringInFront(Other());
    Leave();
    ExpectLeft(box);
    box.TakeEvents();
    BringInFront(TheForm());
    EXPECT_EQ(GetFocus(), Elsewhere().Window());
    EXPECT_EQ(box.TakeEvents(), Texts());
    // It is entered like any other that was left.
    box.Site().Focus();
    const std::wstring text = box.Text();
    EXPECT_EQ(box.Look(), (BoxLook{text, 0, static_cast<int>(text.size())}));
}

// A click on another item of the form brings the form in front and leaves the control in one.
TEST_P(BoxLeaving, AClickElsewhereInTheFormLeaves)
{
    HostedBox box = TypedInto();
    Other().Show();
    BringInFront(Other());
    RECT place = {};
    GetWindowRect(Elsewhere().Window(), &place);
    SetWindowPos(TheForm().Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    PointAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    ASSERT_TRUE(PumpUntil(TheForm(), [&] { return GetFocus() == Elsewhere().Window(); }));
    ExpectLeft(box);
}

TEST_P(BoxLeaving, AControlThatIsTakenAwayMeanwhileIsLeft)
{
    HostedBox box = TypedInto();
    Other().Show();
    BringInFront(Other());
    Check(box.Site().Deactivate());
    Check(box.Site().Activate());
    ExpectLeft(box);
    box.TakeEvents();
    BringInFront(TheForm());
    box.Site().Focus();
    PumpPending(TheForm());
    EXPECT_EQ(GetFocus(), box.Edit());
    const std::wstring text = box.Text();
    EXPECT_EQ(box.Look(), (BoxLook{text, 0, static_cast<int>(text.size())}));
}

// Nothing of the control is left to be told.
TEST_P(BoxLeaving, AControlMayGoMeanwhile)
{
    for (const bool withForm : {false, true})
    {
        HostedBox box = TypedInto();
        Other().Show();
        BringInFront(Other());
        if (withForm)
            DestroyForm();
        else
            TheForm().Remove(box.Site());
        host::Button& there = AddThere();
        SetFocus(there.Window());
        SetFocus(Other().Window());
        PumpPending(Other());
        StartAnew();
    }
}

// A disabled control has no focus, and none in its form has: it is left.
TEST_P(BoxLeaving, DisablingLeaves)
{
    HostedBox box = TypedInto();
    box.Site().Put(L"Enabled", Variant(false));
    Settle();
    if (GetFocus() != box.Edit())
        ExpectLeft(box);
    EXPECT_NE(GetFocus(), box.Edit());
}

INSTANTIATE_TEST_SUITE_P(Rows, BoxLeaving, testing::ValuesIn(BoxRows), RowName());

// Those that raise an event as they are left.
class BoxHeardLeaving : public BoxLeaving
{
};

// Left inside an event of being left: whoever is told first may take the control away.
TEST_P(BoxHeardLeaving, TheHostMayTakeItAwayAsItIsLeft)
{
    HostedBox box = TypedInto();
    bool heard = false;
    host::Form& form = TheForm();
    box.On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
        heard = true;
        form.Remove(box.Site());
    });
    Other().Show();
    BringInFront(Other());
    Leave();
    EXPECT_TRUE(heard);
}

INSTANTIATE_TEST_SUITE_P(Rows, BoxHeardLeaving, testing::Values(BoxRows[1], BoxRows[2]), RowName());

// The message of a control's own check leaves the entry as the user typed it, and selected.
class OwnMessageTest : public HostedTest
{
};

TEST_F(OwnMessageTest, DoesNotRoundTheAmountThatItIsAbout)
{
    const UserLocale english(NumberLocales.front());
    HostedBox box(TheForm(), CLSID_CurrencyBox, Placed());
    AddElsewhere();
    ShowForm();
    box.Site().Put(L"MaxValue", Variant(500L));
    box.Site().Focus();
    Settle();
    Type(L"500.4");
    box.TakeEvents();
    box.ExpectComplaint(L"Please enter a value between -99999999999999 and 500");
    Settle();
    EXPECT_EQ(GetFocus(), box.Edit());
    EXPECT_EQ(box.Look(), (BoxLook{L"500.4", 0, 5}));
    EXPECT_EQ(box.TakeChanges(), Texts());
    EXPECT_FALSE(box.IsValidInput()) << "it did not become a valid 500";
}

} // namespace

} // namespace kiv::test
