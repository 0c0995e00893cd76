// Cut, copy, paste and clear: from the keyboard, and as the messages that a text box's own menu sends.

#include "tests/gui/ClipboardUse.h"
#include "tests/gui/masked/MaskedTest.h"
#include "tests/native/masked/DateBoxEntryRows.h"
#include "tests/native/masked/NumberBoxEntryRows.h"
#include "tests/support/Thread.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

class MaskedClipboardTest : public MaskedTest
{
protected:
    void TearDown() override
    {
        EmptyTheClipboard(TheForm().Window());
        MaskedTest::TearDown();
    }

    void Put(UINT format, const void* data, std::size_t size)
    {
        PutOnClipboard(TheForm().Window(), format, data, size);
    }
    void PutText(const std::wstring& text) { PutTextOnClipboard(TheForm().Window(), text); }
    std::wstring ClipboardText() { return TextOnClipboard(TheForm().Window()); }
    static void Send(const HostedBox& box, UINT message) { SendMessageW(box.Edit(), message, 0, 0); }
};

TEST_F(MaskedClipboardTest, PastesIntoANumberBoxAsTheRowsSay)
{
    HostedBox box = ShownNumberBox();
    const std::wstring complete[] = {L"987-65-4321", L"98-7654321", L"321000015", L"77"};
    for (const NumberPasteRow& row : NumberPasteRows)
    {
        for (const bool byKey : {true, false})
        {
            SCOPED_TRACE(std::string(row.Name) + (byKey ? " by key" : " by message"));
            box.SetStyle(row.Style);
            box.Site().Put(L"MaxLength", Variant(static_cast<short>(row.MaxLength)));
            const std::wstring before = complete[row.Style];
            // What is selected does not matter: the whole entry is replaced, or nothing.
            box.Show({before, 1, 1});
            PutText(row.Clipboard);
            byKey ? Key('V', {VK_CONTROL}) : Send(box, WM_PASTE);
            EXPECT_EQ(box.Text(), row.After.value_or(before));
            EXPECT_EQ(box.TakeChanges(), row.After ? Texts{*row.After} : Texts());
        }
    }
}

TEST_F(MaskedClipboardTest, PastesIntoADateBoxAsTheRowsSay)
{
    HostedBox box = ShownDateBox();
    for (const DatePasteRow& row : DatePasteRows)
    {
        SCOPED_TRACE(row.Name);
        box.SetStyle(row.Style);
        box.Site().Put(L"AllowVarious", Variant(row.AllowVarious));
        box.Show({L"12", 1, 1});
        PutText(row.Clipboard);
        Key('V', {VK_CONTROL});
        EXPECT_EQ(box.Text(), row.After.value_or(L"12"));
        EXPECT_EQ(box.TakeChanges(), row.After ? Texts{*row.After} : Texts());
    }
}

TEST_F(MaskedClipboardTest, PastesNothingWithoutText)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    const DWORD pixels[4] = {};
    const BITMAPINFOHEADER picture = {sizeof picture, 2, 2, 1, 32, BI_RGB, sizeof pixels, 0, 0, 0, 0};
    for (const bool isPicture : {false, true})
    {
        Put(CF_DIB, isPicture ? &picture : nullptr, sizeof picture);
        for (const long style : {0, 1, 2, 3})
        {
            number.SetStyle(style);
            number.Show({L"321000015", 0, 0});
            Send(number, WM_PASTE);
            EXPECT_EQ(number.Text(), L"321000015") << style;
        }
        date.Show({L"01/05/01", 0, 0});
        Send(date, WM_PASTE);
        EXPECT_EQ(date.Text(), L"01/05/01");
    }
}

// A text in the code page of a host that knows no other.
TEST_F(MaskedClipboardTest, PastesNarrowText)
{
    HostedBox box = ShownNumberBox();
    const char number[] = "123-45-6789";
    Put(CF_TEXT, number, sizeof number);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(box.Text(), L"123-45-6789");
}

TEST_F(MaskedClipboardTest, CutsTheSelectionAndClearsAll)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    for (const bool byKey : {true, false})
    {
        number.SetStyle(0);
        number.Site().Focus();
        number.Show({L"123-45-6789", 4, 2});
        byKey ? Key('X', {VK_CONTROL}) : Send(number, WM_CUT);
        EXPECT_EQ(ClipboardText(), L"45");
        EXPECT_EQ(number.Text(), L"___-__-____");
        EXPECT_EQ(number.TakeChanges(), Texts{L"___-__-____"});
        number.SetStyle(2);
        number.Show({L"011000015", 0, 2});
        byKey ? Key('X', {VK_CONTROL}) : Send(number, WM_CUT);
        EXPECT_EQ(ClipboardText(), L"01");
        EXPECT_EQ(number.Text(), L"");
        date.Site().Focus();
        date.Show({L"01/05/01", 0, 3});
        date.TakeEvents();
        byKey ? Key('X', {VK_CONTROL}) : Send(date, WM_CUT);
        EXPECT_EQ(ClipboardText(), L"01/");
        EXPECT_EQ(date.Text(), L"__/__/__");
        EXPECT_EQ(date.TakeChanges(), Texts{L"__/__/__"});
    }
}

TEST_F(MaskedClipboardTest, CopiesTheSelection)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    for (const bool byKey : {true, false})
    {
        PutText(L"before");
        number.Site().Focus();
        number.Show({L"123-4_-____", 2, 4});
        byKey ? Key('C', {VK_CONTROL}) : Send(number, WM_COPY);
        EXPECT_EQ(ClipboardText(), L"3-4_");
        EXPECT_EQ(number.Look(), (BoxLook{L"123-4_-____", 2, 4}));
        date.Site().Focus();
        date.Show({L"01/05/01", 3, 2});
        byKey ? Key('C', {VK_CONTROL}) : Send(date, WM_COPY);
        EXPECT_EQ(ClipboardText(), L"05");
        EXPECT_EQ(date.Look(), (BoxLook{L"01/05/01", 3, 2}));
    }
}

// The box's own menu, chosen from by its letters: Cut, Paste, Delete.
TEST_F(MaskedClipboardTest, AnswersTheMenuOfTheBox)
{
    HostedBox number = ShownNumberBox();
    const auto choose = [&](WORD letter) {
        RECT place = {};
        GetWindowRect(number.Edit(), &place);
        PointAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
        PressButton(MouseButton::Right);
        ReleaseButton(MouseButton::Right);
        TapKey(letter);
        Settle();
    };
    number.Show({L"123-45-6789", 4, 2});
    choose('T');
    EXPECT_EQ(ClipboardText(), L"45");
    EXPECT_EQ(number.Look().Text, L"___-__-____");
    PutText(L"987-65-4321");
    choose('P');
    EXPECT_EQ(number.Text(), L"987-65-4321");
    PutText(L"987");
    choose('P');
    EXPECT_EQ(number.Text(), L"987-65-4321");
    number.Show({L"987-65-4321", 0, 3});
    choose('D');
    EXPECT_EQ(number.Text(), L"___-__-____");
}

TEST_F(MaskedClipboardTest, ClearsAll)
{
    HostedBox number = ShownNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    PutText(L"before");
    number.Show({L"123-45-6789", 0, 1});
    Send(number, WM_CLEAR);
    EXPECT_EQ(number.TakeEvents(), Texts{L"Change ___-__-____"});
    number.SetStyle(3);
    number.Show({L"123", 0, 1});
    Send(number, WM_CLEAR);
    EXPECT_EQ(number.TakeEvents(), Texts{L"Change "});
    date.Show({L"01/05/01", 0, 1});
    Send(date, WM_CLEAR);
    EXPECT_EQ(date.TakeEvents(), Texts{L"Change __/__/__"});
    EXPECT_EQ(ClipboardText(), L"before");
}

// The older keys for the same: Shift+Insert, Ctrl+Insert.
TEST_F(MaskedClipboardTest, KnowsTheInsertKey)
{
    HostedBox box = ShownNumberBox();
    PutText(L"123-45-6789");
    Key(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(box.Text(), L"123-45-6789");
    PutText(L"12345");
    Key(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(box.Text(), L"123-45-6789");
    box.Select(0, 3);
    Key(VK_INSERT, {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), L"123");
}

// Another program keeps the clipboard to itself: the entry is cleared all the same, and nothing is pasted.
TEST_F(MaskedClipboardTest, SurvivesAClipboardThatIsKept)
{
    HostedBox box = ShownNumberBox();
    PutText(L"123-45-6789");
    HANDLE taken = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    {
        const Thread other([&] {
            EXPECT_TRUE(OpenClipboard(nullptr));
            SetEvent(taken);
            WaitForSingleObject(done, 20000);
            CloseClipboard();
        });
        WaitForSingleObject(taken, 20000);
        Send(box, WM_PASTE);
        EXPECT_EQ(box.Text(), L"___-__-____");
        box.Show({L"987-65-4321", 0, 3});
        Send(box, WM_CUT);
        EXPECT_EQ(box.Text(), L"___-__-____");
        SetEvent(done);
    }
    CloseHandle(taken);
    CloseHandle(done);
    EXPECT_EQ(ClipboardText(), L"123-45-6789");
}

// A host that watches the change may paste or cut once more.
TEST_F(MaskedClipboardTest, MayBeUsedInsideChange)
{
    HostedBox box = ShownNumberBox();
    PutText(L"123-45-6789");
    box.On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
        if (box.Text() == L"___-__-____")
            Send(box, WM_PASTE);
    });
    box.Show({L"987-65-4321", 0, 3});
    Send(box, WM_CLEAR);
    EXPECT_EQ(box.TakeChanges(), (Texts{L"___-__-____", L"123-45-6789"}));
    EXPECT_EQ(box.Text(), L"123-45-6789");
}

} // namespace

} // namespace kiv::test
