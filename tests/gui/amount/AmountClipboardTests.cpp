// Cut, copy and paste: from the keyboard, and as the messages that a text box's own menu sends.

#include "tests/gui/ClipboardUse.h"
#include "tests/gui/amount/AmountTest.h"
#include "tests/native/amount/CurrencyEntryRows.h"
#include "tests/native/amount/PercentEntryRows.h"
#include "tests/support/Thread.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

class AmountClipboardTest : public AmountTest
{
protected:
    void TearDown() override
    {
        EmptyTheClipboard(TheForm().Window());
        AmountTest::TearDown();
    }

    void PutText(const std::wstring& text) { PutTextOnClipboard(TheForm().Window(), text); }
    std::wstring ClipboardText() { return TextOnClipboard(TheForm().Window()); }
    static void Send(const HostedBox& box, UINT message) { SendMessageW(box.Edit(), message, 0, 0); }

    void ExpectPaste(HostedBox& box, const wchar_t* clipboard, const wchar_t* after,
                     const NumberLocale& locale)
    {
        PutText(Localized(clipboard, locale));
        for (const bool byKey : {true, false})
        {
            // Something of the entry is selected: the whole of it is replaced, or nothing.
            box.Show({L"77", 1, 1});
            byKey ? Key('V', {VK_CONTROL}) : Send(box, WM_PASTE);
            EXPECT_EQ(box.Text(), after ? Localized(after, locale) : L"77") << byKey;
            EXPECT_EQ(box.TakeChanges(), after ? Texts{Localized(after, locale)} : Texts()) << byKey;
        }
    }
};

TEST_F(AmountClipboardTest, PastesIntoACurrencyBoxAsTheRowsSay)
{
    HostedBox box = ShownCurrencyBox();
    ExpectRows(CurrencyPasteRows, [&](const CurrencyPasteRow& row, const NumberLocale& locale) {
        SetRange(box, row.MinValue, row.MaxValue);
        ExpectPaste(box, row.Clipboard, row.After, locale);
    });
}

TEST_F(AmountClipboardTest, PastesIntoAPercentBoxAsTheRowsSay)
{
    HostedBox box = ShownPercentBox();
    ExpectRows(PercentPasteRows, [&](const PercentPasteRow& row, const NumberLocale& locale) {
        ExpectPaste(box, row.Clipboard, row.After, locale);
    });
}

// The label is told of a paste as of any value.
TEST_F(AmountClipboardTest, ShowsWhatWasPasted)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    PutText(L"1,000");
    Leave(currency);
    for (HostedBox* box : {&currency, &percent})
    {
        RecordOf(box->Site()).ClearNotifications();
        Send(*box, WM_PASTE);
        ExpectLabel(*box, box == &currency ? L"1,000" : L"100000.");
        EXPECT_EQ(RecordOf(box->Site()).Notifications(), (Texts{L"Value", L"Value"}));
    }
}

TEST_F(AmountClipboardTest, PastesNothingWithoutText)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    const DWORD pixels[4] = {};
    const BITMAPINFOHEADER picture = {sizeof picture, 2, 2, 1, 32, BI_RGB, sizeof pixels, 0, 0, 0, 0};
    for (const bool isPicture : {false, true})
    {
        PutOnClipboard(TheForm().Window(), CF_DIB, isPicture ? &picture : nullptr, sizeof picture);
        for (HostedBox* box : {&currency, &percent})
        {
            box->Show({L"12", 0, 1});
            Send(*box, WM_PASTE);
            EXPECT_EQ(box->Look(), (BoxLook{L"12", 0, 1}));
            EXPECT_EQ(box->TakeEvents(), Texts());
        }
    }
}

TEST_F(AmountClipboardTest, PastesNarrowText)
{
    HostedBox box = ShownCurrencyBox();
    const char number[] = "1,234.5";
    PutOnClipboard(TheForm().Window(), CF_TEXT, number, sizeof number);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(box.Text(), L"1235");
}

// Far more than any number has: looked at as a whole, and refused or taken as a whole.
TEST_F(AmountClipboardTest, SurvivesLongTexts)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    constexpr std::size_t many = 100000;
    for (HostedBox* box : {&currency, &percent})
    {
        for (const std::wstring& text : {std::wstring(many, L'9'), std::wstring(many, L'x'),
                                         std::wstring(many, L' '), L"5" + std::wstring(many, L'-')})
        {
            box->Show({L"12", 0, 0});
            PutText(text);
            Send(*box, WM_PASTE);
            EXPECT_EQ(box->Text(), L"12");
        }
        PutText(std::wstring(many, L'0') + L"1");
        Send(*box, WM_PASTE);
        EXPECT_EQ(box->Text(), box == &currency ? L"1" : L"100.");
    }
}

TEST_F(AmountClipboardTest, CutsAndCopiesTheSelection)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    for (HostedBox* box : {&currency, &percent})
    {
        for (const bool byKey : {true, false})
        {
            PutText(L"before");
            box->Site().Focus();
            box->Show({L"12345", 1, 2});
            byKey ? Key('C', {VK_CONTROL}) : Send(*box, WM_COPY);
            EXPECT_EQ(ClipboardText(), L"23");
            EXPECT_EQ(box->Look(), (BoxLook{L"12345", 1, 2}));
            byKey ? Key('X', {VK_CONTROL}) : Send(*box, WM_CUT);
            EXPECT_EQ(ClipboardText(), L"23");
            EXPECT_EQ(box->Look(), (BoxLook{L"145", 1, 0}));
            EXPECT_EQ(box->TakeChanges(), Texts{L"145"});
        }
    }
}

// Another program keeps the clipboard to itself: nothing is pasted.
TEST_F(AmountClipboardTest, SurvivesAClipboardThatIsKept)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 90}));
    PutText(L"1");
    const HANDLE taken = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    {
        const Thread other([&] {
            EXPECT_TRUE(OpenClipboard(nullptr));
            SetEvent(taken);
            WaitForSingleObject(done, 20000);
            CloseClipboard();
        });
        WaitForSingleObject(taken, 20000);
        for (HostedBox* box : {&currency, &percent})
        {
            box->Show({L"12", 0, 0});
            Send(*box, WM_PASTE);
            EXPECT_EQ(box->Text(), L"12");
        }
        SetEvent(done);
    }
    CloseHandle(taken);
    CloseHandle(done);
}

// A host that watches the change may paste once more.
TEST_F(AmountClipboardTest, MayBeUsedInsideChange)
{
    HostedBox box = ShownCurrencyBox();
    PutText(L"250");
    box.On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
        if (box.Text() == L"1")
            Send(box, WM_PASTE);
    });
    box.Show({});
    Type(L"1");
    EXPECT_EQ(box.Text(), L"250");
    EXPECT_EQ(box.TakeChanges(), (Texts{L"1", L"250"}));
}

} // namespace

} // namespace kiv::test
