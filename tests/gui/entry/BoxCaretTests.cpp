// Where the caret is when the whole text of a box was set.

#include "tests/gui/ClipboardUse.h"
#include "tests/gui/entry/BoxTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/Text.h"

#include <functional>

namespace kiv::test
{

namespace
{

class BoxCaret : public BoxTest
{
protected:
    void TearDown() override
    {
        EmptyTheClipboard(TheForm().Window());
        BoxTest::TearDown();
    }

    // The box shows the text with the caret at its start, which is in view.
    static void ExpectAtStart(const HostedBox& box, const std::wstring& text)
    {
        EXPECT_EQ(box.Look(), (BoxLook{text, 0, 0}));
        if (!text.empty())
        {
            const LRESULT place = SendMessageW(box.Edit(), EM_POSFROMCHAR, 0, 0);
            EXPECT_GE(static_cast<short>(LOWORD(place)), 0) << "the first character is out of sight";
        }
    }
};

TEST_P(BoxCaret, IsAtTheStartOfAValueThatTheHostAssigns)
{
    HostedBox box = ShownBox();
    box.Select(0, 0);
    EXPECT_EQ(Hr(box.Assign(Variant(GetParam().Full))), Hr(S_OK));
    ExpectAtStart(box, GetParam().Shown);
    SendMessageW(box.Edit(), EM_SETSEL, 3, 3);
    EXPECT_EQ(Hr(box.Assign(Variant::Null())), Hr(S_OK));
    ExpectAtStart(box, GetParam().Blank);
}

TEST_P(BoxCaret, IsAtTheStartOfAPastedEntry)
{
    HostedBox box = ShownBox();
    PutTextOnClipboard(TheForm().Window(), GetParam().Full);
    for (const WORD key : {WORD{'V'}, WORD{VK_INSERT}})
    {
        box.Show({GetParam().Blank, 0, 0});
        Key(key, {key == VK_INSERT ? WORD{VK_SHIFT} : WORD{VK_CONTROL}});
        ExpectAtStart(box, GetParam().Shown);
    }
}

// A host that hands back what the box holds, as a data source does, does not disturb the user.
TEST_P(BoxCaret, StaysWhereTheTextIsWhatItWas)
{
    HostedBox box = ShownBox();
    EXPECT_EQ(Hr(box.Assign(Variant(GetParam().Full))), Hr(S_OK));
    box.Select(2, 1);
    box.TakeEvents();
    EXPECT_EQ(Hr(box.Assign(Variant(GetParam().Full))), Hr(S_OK));
    EXPECT_EQ(box.Look(), (BoxLook{GetParam().Shown, 2, 1}));
    EXPECT_EQ(box.TakeEvents(), Texts());
}

// The first characters are in sight, not the last.
TEST_P(BoxCaret, ShowsTheStartInANarrowBox)
{
    HostedBox box = AddBox(Placed({20, 20, 50, 40}));
    AddElsewhere();
    ShowForm();
    box.Site().Focus();
    Settle();
    SendMessageW(box.Edit(), EM_SETSEL, 99, 99);
    SendMessageW(box.Edit(), EM_SCROLLCARET, 0, 0);
    EXPECT_EQ(Hr(box.Assign(Variant(GetParam().Full))), Hr(S_OK));
    ExpectAtStart(box, GetParam().Shown);
}

INSTANTIATE_TEST_SUITE_P(Rows, BoxCaret, testing::ValuesIn(BoxRows), RowName());

// What empties a masked box, and leaves it to be filled again from its start.
struct EmptyingRow : NamedRow
{
    std::function<void(HostedBox& box)> Empty;
};

void Send(const HostedBox& box, UINT message)
{
    SendMessageW(box.Edit(), message, 0, 0);
}

const std::vector<EmptyingRow> EmptyingRows = {
    {{"Cut"}, [](HostedBox& box) { Send(box, WM_CUT); }},
    {{"Clear"}, [](HostedBox& box) { Send(box, WM_CLEAR); }},
    {{"Null"}, [](HostedBox& box) { box.Site().Put(L"Value", Variant::Null()); }},
    {{"EmptyText"}, [](HostedBox& box) { box.Site().Put(L"Value", Variant()); }}};

class MaskedEmptying : public BoxTest
{
};

TEST_P(MaskedEmptying, LeavesTheBoxToBeFilledFromItsStart)
{
    const std::wstring keys = L"12";
    HostedBox box = ShownBox();
    const std::wstring blank = GetParam().Blank;
    const std::wstring full = GetParam().Full;
    for (const EmptyingRow& row : EmptyingRows)
    {
        // Whatever was selected, and where an empty box had its caret.
        for (const std::wstring& before : {full, blank})
        {
            for (const BoxLook& look : {BoxLook{before, 0, static_cast<int>(before.size())},
                                        BoxLook{before, 1, 3}, BoxLook{before, 4, 0}})
            {
                if (before == blank && row.Name != std::string("Cut") && row.Name != std::string("Clear"))
                    continue; // nothing is set: the caret stays
                SCOPED_TRACE(std::string(row.Name) + " of " + Narrow(before) + " at " +
                             std::to_string(look.SelStart));
                box.Show(look);
                row.Empty(box);
                EXPECT_EQ(box.Look(), (BoxLook{blank, 0, 0}));
                Type(keys);
                EXPECT_EQ(box.Text(), keys + blank.substr(keys.size()));
            }
        }
    }
}

// As users do it: all of it selected by keys and cut, or Delete chosen from the box's own menu.
TEST_P(MaskedEmptying, GoesOnAtTheStartAfterCutting)
{
    HostedBox box = ShownBox();
    box.Site().Put(L"Value", Variant(GetParam().Full));
    Key(VK_HOME);
    Key(VK_END, {VK_SHIFT});
    Key('X', {VK_CONTROL});
    Type(L"98");
    const std::wstring blank = GetParam().Blank;
    EXPECT_EQ(box.Look(), (BoxLook{L"98" + blank.substr(2), 2, 0}));
    EmptyTheClipboard(TheForm().Window());

    box.Select(0, 3);
    RECT place = {};
    GetWindowRect(box.Edit(), &place);
    PointAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    PressButton(MouseButton::Right);
    ReleaseButton(MouseButton::Right);
    TapKey('D');
    Settle();
    EXPECT_EQ(box.Look(), (BoxLook{blank, 0, 0}));
    Type(L"1");
    EXPECT_EQ(box.Look(), (BoxLook{L"1" + blank.substr(1), 1, 0}));
}

INSTANTIATE_TEST_SUITE_P(Rows, MaskedEmptying, testing::Values(BoxRows[0], BoxRows[1]), RowName());

} // namespace

} // namespace kiv::test
