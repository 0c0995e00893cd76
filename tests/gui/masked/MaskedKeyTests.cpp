// Every row of the masked boxes' key tables, typed into a control on a form.

#include "tests/gui/masked/MaskedTest.h"
#include "tests/native/masked/DateBoxKeyRows.h"
#include "tests/native/masked/NumberBoxKeyRows.h"

#include "runtime/com/Errors.h"
#include "tests/support/Text.h"

#include <span>
#include <utility>

namespace kiv::test
{

namespace
{

class MaskedKeyTest : public MaskedTest
{
protected:
    void Press(Stroke key)
    {
        Type(key.KeyCode != 0 ? std::wstring(1, DeleteInKeys)
                              : std::wstring(1, static_cast<wchar_t>(key.KeyAscii)));
    }

    void ExpectRows(HostedBox& box, std::span<const KeyRow> rows)
    {
        for (const KeyRow& row : rows)
        {
            SCOPED_TRACE(row.Name);
            box.SetStyle(row.Style);
            box.Show({std::wstring(row.Text), row.SelStart, row.SelLength});
            Press(row.Key);
            EXPECT_EQ(box.Look(), (BoxLook{std::wstring(row.After), row.SelStartAfter, row.SelLengthAfter}));
            EXPECT_EQ(box.TakeChanges(), Changes(row));
        }
    }

    void ExpectTyping(HostedBox& box, std::span<const TypingRow> rows)
    {
        for (const TypingRow& row : rows)
        {
            SCOPED_TRACE(row.Name);
            box.SetStyle(row.Style);
            box.Show({std::wstring(row.Text), row.SelStart, 0});
            Type(std::wstring(row.Keys));
            EXPECT_EQ(box.Look(), (BoxLook{std::wstring(row.After), row.SelStartAfter, 0}));
            EXPECT_EQ(box.TakeChanges().size(), static_cast<std::size_t>(row.Changes));
        }
    }
};

TEST_F(MaskedKeyTest, DoToANumberBoxWhatTheRowsSay)
{
    HostedBox box = ShownNumberBox();
    ExpectRows(box, NumberKeyRows);
}

TEST_F(MaskedKeyTest, DoToADateBoxWhatTheRowsSay)
{
    HostedBox box = ShownDateBox();
    ExpectRows(box, DateKeyRows);
}

TEST_F(MaskedKeyTest, FillANumberBoxAsTheRowsSay)
{
    HostedBox box = ShownNumberBox();
    ExpectTyping(box, NumberTypingRows);
}

TEST_F(MaskedKeyTest, FillADateBoxAsTheRowsSay)
{
    HostedBox box = ShownDateBox();
    ExpectTyping(box, DateTypingRows);
}

// What the rules leave alone the text box does by itself.
TEST_F(MaskedKeyTest, ReachTheTextBoxWhereThereIsNoMask)
{
    HostedBox box = ShownNumberBox();
    for (const PassedKeyRow& row : NumberPassedKeyRows)
    {
        SCOPED_TRACE(row.Name);
        box.SetStyle(row.Style);
        box.Site().Put(L"MaxLength", Variant(static_cast<short>(row.MaxLength)));
        box.Show({std::wstring(row.Text), row.SelStart, row.SelLength});
        Press(row.Key);
        EXPECT_EQ(box.Look(), (BoxLook{std::wstring(row.After), row.SelStartAfter, 0}));
        EXPECT_EQ(box.TakeChanges(), row.After == row.Text ? Texts() : Texts{std::wstring(row.After)});
    }
}

TEST_F(MaskedKeyTest, MoveTheCaretAndSelectAsInAnyTextBox)
{
    HostedBox number = ShownNumberBox();
    const auto expectMoves = [&](HostedBox& box) {
        const std::wstring text = box.Text();
        const int length = static_cast<int>(text.size());
        Key(VK_HOME);
        EXPECT_EQ(box.Look(), (BoxLook{text, 0, 0}));
        Key(VK_RIGHT);
        Key(VK_RIGHT);
        Key(VK_LEFT);
        EXPECT_EQ(box.Look(), (BoxLook{text, 1, 0}));
        Key(VK_RIGHT, {VK_SHIFT});
        EXPECT_EQ(box.Look(), (BoxLook{text, 1, 1}));
        Key(VK_END);
        EXPECT_EQ(box.Look(), (BoxLook{text, length, 0}));
        EXPECT_EQ(box.TakeChanges(), Texts());
    };
    expectMoves(number);
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    date.Site().Focus();
    expectMoves(date);
}

TEST_F(MaskedKeyTest, AreToldToTheHostInTheirOrder)
{
    HostedBox number = ShownNumberBox();
    number.Select(0, 0);
    Type(L"1x");
    EXPECT_EQ(number.TakeEvents(), (Texts{L"KeyDown 49", L"KeyPress 49", L"Change 1__-__-____", L"KeyUp 49",
                                          L"KeyDown 88", L"KeyPress 120", L"KeyUp 88"}));
    Type(L"\b");
    EXPECT_EQ(number.TakeEvents(), (Texts{L"KeyDown 8", L"KeyPress 8", L"Change ___-__-____", L"KeyUp 8"}));
    number.Show({L"123-45-6789", 0, 0});
    Type(L"\x7F");
    EXPECT_EQ(number.TakeEvents(), (Texts{L"KeyDown 46", L"Change _23-45-6789", L"KeyUp 46"}));
    Key(VK_LEFT);
    EXPECT_EQ(number.TakeEvents(), (Texts{L"KeyDown 37", L"KeyUp 37"}));

    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    date.Site().Focus();
    date.TakeEvents();
    date.Select(0, 0);
    Type(L"1/");
    EXPECT_EQ(date.TakeEvents(), (Texts{L"KeyDown 49", L"KeyPress 49", L"Change 1_/__/__", L"KeyUp 49",
                                        L"KeyDown 191", L"KeyPress 47", L"KeyUp 191"}));
}

TEST_F(MaskedKeyTest, TellTheHostOfShiftAndControl)
{
    HostedBox box = ShownNumberBox();
    std::vector<long> shifts;
    box.On(L"KeyDown", [&](const host::EventRecord& event, DISPPARAMS&) {
        if (event.Arguments[0].Value.Long() == VK_LEFT)
            shifts.push_back(event.Find(L"Shift")->Long());
    });
    Key(VK_LEFT);
    Key(VK_LEFT, {VK_SHIFT});
    Key(VK_LEFT, {VK_CONTROL});
    Key(VK_LEFT, {VK_SHIFT, VK_CONTROL});
    EXPECT_EQ(shifts, (std::vector<long>{0, 1, 2, 3}));
}

HostedBox::Handler Return(const wchar_t* argument, short key)
{
    return [=](const host::EventRecord& event, DISPPARAMS& raised) {
        EXPECT_TRUE(host::Return(event, raised, argument, Variant(key)));
    };
}

TEST_F(MaskedKeyTest, AreCancelledByTheHost)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&number, &date})
    {
        const bool isNumber = box == &number;
        const std::wstring full = isNumber ? L"123-45-6789" : L"01/05/01";
        box->Site().Focus();
        box->Show({full, 0, 0});
        box->On(L"KeyPress", Return(L"KeyAscii", 0));
        Type(L"9\b");
        EXPECT_EQ(box->Look(), (BoxLook{full, 0, 0}));
        Type(L"\x7F");
        EXPECT_EQ(box->Text(), isNumber ? L"_23-45-6789" : L"_1/05/01") << "Delete is no character";
        box->On(L"KeyPress", nullptr);
        box->Show({full, 0, 0});
        box->On(L"KeyDown", Return(L"KeyCode", 0));
        Type(L"\x7F");
        Key(VK_END);
        EXPECT_EQ(box->Look(), (BoxLook{full, 0, 0}));
        box->On(L"KeyDown", nullptr);
    }
    number.SetStyle(3);
    number.Site().Focus();
    number.Show({L"12", 2, 0});
    number.On(L"KeyPress", Return(L"KeyAscii", 0));
    Type(L"3");
    EXPECT_EQ(number.Text(), L"12");
}

TEST_F(MaskedKeyTest, AreChangedByTheHost)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    number.Show({L"123-45-6789", 0, 0});
    number.On(L"KeyPress", Return(L"KeyAscii", L'7'));
    Type(L"x");
    EXPECT_EQ(number.Look(), (BoxLook{L"723-45-6789", 1, 0}));
    number.SetStyle(3);
    number.Show({L"12", 2, 0});
    Type(L"x");
    EXPECT_EQ(number.Look(), (BoxLook{L"127", 3, 0})) << "the text box gets the host's character";
    number.On(L"KeyDown", Return(L"KeyCode", VK_DELETE));
    number.Select(0, 0);
    Key(VK_END);
    EXPECT_EQ(number.Look(), (BoxLook{L"27", 0, 0})) << "and the host's key";

    date.Site().Focus();
    date.Show({L"01/05/01", 0, 0});
    date.On(L"KeyPress", Return(L"KeyAscii", L' '));
    Type(L"x");
    EXPECT_EQ(date.Look(), (BoxLook{L"_1/05/01", 1, 0}));
    date.On(L"KeyDown", Return(L"KeyCode", VK_DELETE));
    Key(VK_END);
    EXPECT_EQ(date.Look(), (BoxLook{L"__/05/01", 1, 0}));
}

TEST_F(MaskedKeyTest, ThatNoKeyboardHasAreSwallowed)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&number, &date})
    {
        box->Site().Focus();
        const BoxLook before = box->Look();
        for (const wchar_t character : {L'\u00E9', L'\u65E5', L'\u0661'})
            Character(character);
        Key('Z', {VK_CONTROL});
        EXPECT_EQ(box->Look(), before);
        EXPECT_EQ(box->TakeChanges(), Texts());
    }
    number.SetStyle(3);
    number.Site().Focus();
    for (const wchar_t character : {L'\u00E9', L'\u65E5', L'\u0661'})
        Character(character);
    EXPECT_EQ(number.Text(), L"");
}

// The second half of an edit would undo what the host has made of the first.
TEST_F(MaskedKeyTest, LeaveTheTextThatTheHostAnswersAChangeWith)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&number, &date})
    {
        const std::wstring before = box == &number ? L"123-45-6789" : L"01/05/01";
        const std::wstring answer = box == &number ? L"987-65-4321" : L"12/31/04";
        box->Site().Focus();
        box->Show({before, 0, static_cast<int>(before.size())});
        bool answered = false;
        box->On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
            if (std::exchange(answered, true))
                return;
            EXPECT_EQ(Hr(box->Assign(Variant(answer))), Hr(S_OK));
        });
        Type(L"1");
        EXPECT_TRUE(answered);
        EXPECT_EQ(box->Text(), answer);
    }
}

// Undoing in the text box would bring back half an entry.
TEST_F(MaskedKeyTest, CannotBeUndoneByTheTextBox)
{
    HostedBox number = ShownNumberBox();
    number.Select(0, 0);
    Type(L"12\b");
    SendMessageW(number.Edit(), WM_UNDO, 0, 0);
    EXPECT_EQ(number.Text(), L"1__-__-____");
}

} // namespace

} // namespace kiv::test
