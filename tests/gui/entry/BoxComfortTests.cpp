// Keys that every box on the system has: Ctrl+A selects all, Ctrl+Z takes the last change back.

#include "tests/gui/ClipboardUse.h"
#include "tests/gui/entry/BoxTest.h"

namespace kiv::test
{

namespace
{

class BoxComfort : public BoxTest
{
protected:
    void TearDown() override
    {
        EmptyTheClipboard(TheForm().Window());
        BoxTest::TearDown();
    }
    void SelectAll() { Key('A', {VK_CONTROL}); }
    void Undo() { Key('Z', {VK_CONTROL}); }
};

TEST_P(BoxComfort, CtrlASelectsAll)
{
    HostedBox box = ShownBox();
    Type(L"12");
    box.TakeChanges();
    box.Select(1, 0);
    SelectAll();
    const BoxLook look = box.Look();
    EXPECT_EQ(look.SelStart, 0);
    EXPECT_EQ(look.SelLength, static_cast<int>(look.Text.size()));
    EXPECT_EQ(box.TakeChanges(), Texts{});
}

TEST_P(BoxComfort, CtrlZTakesTheLastChangeBack)
{
    HostedBox box = ShownBox();
    Type(L"1");
    const std::wstring first = box.Text();
    Type(L"2");
    const std::wstring second = box.Text();
    box.TakeChanges();
    Undo();
    EXPECT_EQ(box.Text(), first);
    EXPECT_EQ(box.TakeChanges(), Texts{first}) << "the host hears of it as of any change";
    Undo();
    EXPECT_EQ(box.Text(), second) << "and back again";
    EXPECT_EQ(box.TakeChanges(), Texts{second});
}

TEST_P(BoxComfort, CtrlZTakesAPasteBack)
{
    HostedBox box = ShownBox();
    Type(L"1");
    const std::wstring typed = box.Text();
    PutTextOnClipboard(TheForm().Window(), GetParam().Full);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(box.Text(), GetParam().Shown);
    Undo();
    EXPECT_EQ(box.Text(), typed);
}

TEST_P(BoxComfort, CtrlZTakesADeletionBack)
{
    HostedBox box = ShownBox();
    Type(L"12");
    const std::wstring typed = box.Text();
    Type(L"\b");
    EXPECT_NE(box.Text(), typed);
    Undo();
    EXPECT_EQ(box.Text(), typed);
}

TEST_P(BoxComfort, WhatTheHostHasSetIsNotTakenBack)
{
    HostedBox box = ShownBox();
    Undo();
    EXPECT_EQ(box.Text(), GetParam().Blank);
    Type(L"1");
    box.Assign(Variant(GetParam().Full));
    const std::wstring assigned = box.Text();
    box.TakeChanges();
    Undo();
    EXPECT_EQ(box.Text(), assigned);
    EXPECT_EQ(box.TakeChanges(), Texts{});
}

// As any key, they are the host's first.
TEST_P(BoxComfort, TheHostHearsOfTheKeysFirst)
{
    HostedBox box = ShownBox();
    Type(L"12");
    box.Select(1, 0);
    box.TakeEvents();
    SelectAll();
    Undo();
    const Texts heard = box.TakeEvents();
    EXPECT_NE(std::ranges::find(heard, L"KeyPress 1"), heard.end());
    EXPECT_NE(std::ranges::find(heard, L"KeyPress 26"), heard.end());
    const std::wstring text = box.Text();
    box.On(L"KeyPress",
           [](const host::EventRecord&, DISPPARAMS& raised) { *V_I2REF(&raised.rgvarg[0]) = 0; });
    box.Select(1, 0);
    SelectAll();
    Undo();
    EXPECT_EQ(box.Look(), (BoxLook{text, 1, 0}));
    box.On(L"KeyPress", {});
}

INSTANTIATE_TEST_SUITE_P(Rows, BoxComfort, testing::ValuesIn(BoxRows), RowName());

} // namespace

} // namespace kiv::test
