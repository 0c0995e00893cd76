// Keys that are the same in all boxes: those with Alt, and the older ones for the clipboard.

#include "tests/gui/ClipboardUse.h"
#include "tests/gui/entry/BoxTest.h"

namespace kiv::test
{

namespace
{

class BoxKey : public BoxTest
{
protected:
    void TearDown() override
    {
        EmptyTheClipboard(TheForm().Window());
        BoxTest::TearDown();
    }

    void PutText(const std::wstring& text) { PutTextOnClipboard(TheForm().Window(), text); }
    std::wstring ClipboardText() { return TextOnClipboard(TheForm().Window()); }
};

constexpr short AltDown = 4;

// The host hears of a key that is held with Alt going down as well as coming up, with Alt in Shift.
TEST_P(BoxKey, WithAltAreToldBothWays)
{
    HostedBox box = ShownBox();
    std::vector<short> shifts;
    for (const wchar_t* event : {L"KeyDown", L"KeyUp"})
        box.On(event, [&](const host::EventRecord& record, DISPPARAMS&) {
            shifts.push_back(record.Arguments[1].Value.Short());
        });
    Key('Q', {VK_MENU});
    EXPECT_EQ(box.TakeEvents(), (Texts{L"KeyDown 18", L"KeyDown 81", L"KeyUp 81", L"KeyUp 18"}));
    ASSERT_EQ(shifts.size(), 4U);
    EXPECT_EQ(shifts[0], AltDown);
    EXPECT_EQ(shifts[1], AltDown);
    EXPECT_EQ(shifts[2], AltDown);
    EXPECT_EQ(box.Text(), GetParam().Blank) << "a key with Alt types nothing";
}

// One that the host takes for itself opens no menu and closes no window.
TEST_P(BoxKey, WithAltCanBeTakenByTheHost)
{
    HostedBox box = ShownBox();
    bool asked = false;
    TheForm().OnClosing = [&] {
        asked = true;
        return false;
    };
    box.On(L"KeyDown", [](const host::EventRecord& record, DISPPARAMS& raised) {
        if (record.Arguments[0].Value.Long() == VK_F4)
            *V_I2REF(&raised.rgvarg[1]) = 0;
    });
    Key(VK_F4, {VK_MENU});
    EXPECT_FALSE(asked);
    box.On(L"KeyDown", {});
    Key(VK_F4, {VK_MENU});
    EXPECT_TRUE(asked) << "left alone it is the form's";
}

// A control that does not answer keeps nothing from the form.
TEST_P(BoxKey, WithAltAreTheFormsWhileTheControlIsDeaf)
{
    HostedBox box = ShownBox();
    bool asked = false;
    TheForm().OnClosing = [&] {
        asked = true;
        return false;
    };
    box.Site().SetUserMode(false);
    box.TakeEvents();
    SetFocus(box.Edit());
    Key(VK_F4, {VK_MENU});
    EXPECT_TRUE(asked);
    EXPECT_EQ(box.TakeEvents(), Texts());
}

TEST_P(BoxKey, ShiftInsertPastes)
{
    HostedBox box = ShownBox();
    PutText(GetParam().Full);
    Key(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(box.Text(), GetParam().Shown);
    EXPECT_EQ(box.TakeChanges(), Texts{GetParam().Shown});
    // What the control does not take is not pasted, whatever room there is.
    for (const wchar_t* refused : {L"x", L"12x"})
    {
        box.Show({GetParam().Blank, 0, 0});
        PutText(refused);
        Key(VK_INSERT, {VK_SHIFT});
        EXPECT_EQ(box.Text(), GetParam().Blank);
        EXPECT_EQ(box.TakeChanges(), Texts());
    }
}

TEST_P(BoxKey, ControlInsertCopies)
{
    HostedBox box = ShownBox();
    box.Site().Put(L"Value", Variant(GetParam().Full));
    PutText(L"before");
    box.Select(0, 2);
    box.TakeEvents();
    Key(VK_INSERT, {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), std::wstring(GetParam().Shown).substr(0, 2));
    EXPECT_EQ(box.Look(), (BoxLook{GetParam().Shown, 0, 2}));
    EXPECT_EQ(box.TakeChanges(), Texts());
}

// As Ctrl+X does: a masked entry goes as a whole.
TEST_P(BoxKey, ShiftDeleteCuts)
{
    HostedBox box = ShownBox();
    const std::wstring shown = GetParam().Shown;
    for (const WORD key : {WORD{VK_DELETE}, WORD{'X'}})
    {
        box.Show({shown, 0, 2});
        PutText(L"before");
        Key(key, {key == VK_DELETE ? WORD{VK_SHIFT} : WORD{VK_CONTROL}});
        EXPECT_EQ(ClipboardText(), shown.substr(0, 2));
        EXPECT_EQ(box.Text(), GetParam().IsMasked ? GetParam().Blank : shown.substr(2));
        EXPECT_EQ(box.TakeChanges().size(), 1U);
    }
}

// The host hears of the key first, and can keep it.
TEST_P(BoxKey, TheOlderKeysAreToldFirst)
{
    HostedBox box = ShownBox();
    PutText(GetParam().Full);
    box.On(L"KeyDown", [](const host::EventRecord& record, DISPPARAMS& raised) {
        if (record.Arguments[0].Value.Long() == VK_INSERT)
            *V_I2REF(&raised.rgvarg[1]) = 0;
    });
    Key(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(box.Text(), GetParam().Blank);
    EXPECT_EQ(box.TakeEvents(), (Texts{L"KeyDown 16", L"KeyDown 45", L"KeyUp 45", L"KeyUp 16"}));
}

INSTANTIATE_TEST_SUITE_P(Rows, BoxKey, testing::ValuesIn(BoxRows), RowName());

} // namespace

} // namespace kiv::test
