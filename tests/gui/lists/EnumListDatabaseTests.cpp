// Lists of codes and their picker on real databases, over ODBC.

#include "host/container/Automation.h"
#include "host/data/DataError.h"
#include "tests/gui/lists/CodeDatabase.h"
#include "tests/gui/lists/ListsTest.h"
#include "tests/support/MessageBoxWatcher.h"

namespace kiv::test
{

namespace
{

using Microsoft::WRL::ComPtr;

constexpr long ByCode = 0;
constexpr long ByDescription = 1;
constexpr int MessageTextId = 0xFFFF; // of the text in a message box
constexpr const wchar_t* Unread = L"Could not read enum table from database.";

class EnumListDatabaseTest : public ListsTest, public testing::WithParamInterface<DatabaseEngine>
{
protected:
    void SetUp() override
    {
        ListsTest::SetUp();
        if (const std::string reason = WhyMissing(GetParam()); !reason.empty())
            GTEST_SKIP() << reason;
        codes_ = OpenCodes(GetParam().Codes);
    }

    // On a form that is shown, with the focus.
    host::ControlSite& ShownCodes(const wchar_t* state, const wchar_t* table, long style = ByCode)
    {
        host::ControlSite& list = ShownList();
        list.Put(L"Database", Variant(codes_.Get()));
        list.Put(L"StateCode", Variant(state));
        list.Put(L"TableName", Variant(table));
        list.Put(L"DisplayStyle", Variant(style));
        return list;
    }

    void CloseDatabase() { host::CallMethod(codes_.Get(), L"Close", {}); }

    // Sets the code and tells what the list shows then; complained tells whether there was the message.
    static std::wstring TextOf(host::ControlSite& list, const wchar_t* code, bool* complained = nullptr)
    {
        MessageBoxWatcher boxes;
        list.Put(L"EnumCode", Variant(code));
        const auto& shown = boxes.Stop();
        EXPECT_EQ(CodeOf(list), code);
        for (const ShownMessageBox& box : shown)
            EXPECT_EQ(box.Text, Unread);
        if (complained)
            *complained = !shown.empty();
        else
            EXPECT_TRUE(shown.empty()) << code;
        return list.Get(L"EnumText").Text();
    }

    // Opens the picker, reads it and leaves it.
    Texts ItemsOf()
    {
        Texts items;
        Pick([&](Picker& picker) {
            items = picker.Items();
            TapKey(VK_ESCAPE);
            picker.WaitUntilGone();
        });
        return items;
    }

private:
    ComPtr<host::Database> codes_;
};

TEST_P(EnumListDatabaseTest, SortsByCodeAndByDescription)
{
    ShownCodes(L"T1", L"Lengths");
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Items(),
                  (Texts{L"(none)\t", L"\tNothing", L"90000000005\tFive, of eleven digits", L"7\tSeven",
                         L"10000000008\tEight, of eleven digits", L"10\tTen", L"100\tA hundred"}));
        picker.Key('D', {VK_MENU});
        EXPECT_EQ(picker.Items(),
                  (Texts{L"(none)\t", L"100\tA hundred", L"10000000008\tEight, of eleven digits",
                         L"90000000005\tFive, of eleven digits", L"\tNothing", L"7\tSeven", L"10\tTen"}));
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
}

TEST_P(EnumListDatabaseTest, ShowsTheDescriptionOfACode)
{
    host::ControlSite& counties = ShownCodes(L"MD", L"County", ByDescription);
    EXPECT_EQ(TextOf(counties, L"17"), L"Prince George's");
    EXPECT_EQ(TextOf(counties, L"017"), L"") << "sent as it is";
    EXPECT_EQ(TextOf(counties, L"17 "), L"");
    EXPECT_EQ(TextOf(counties, L"100"), L"Cumberland\r\nTown in Allegany");
    EXPECT_EQ(TextOf(counties, L""), L"");
}

TEST_P(EnumListDatabaseTest, EveryLineOfADescriptionMeansItsCode)
{
    host::ControlSite& status = ShownCodes(L"US", L"Filing Status");
    Pick([&](Picker& picker) {
        const Texts items = picker.Items();
        ASSERT_EQ(items.size(), 11U);
        EXPECT_EQ(items[6], L"4\tHead of household");
        EXPECT_EQ(items[7], L"\tUnmarried, and paid more than half of the cost");
        EXPECT_EQ(items[8], L"\tof a home for a child or relative");
        picker.DoubleClickItem(8);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(status), L"4");
    EXPECT_EQ(TakeEvents(status), Texts{L"SelectionChanged"});
}

TEST_P(EnumListDatabaseTest, KeepsEmptyLinesOfADescription)
{
    ShownCodes(L"T1", L"Lines");
    EXPECT_EQ(ItemsOf(), (Texts{L"(none)\t", L"1\tOne", L"\t", L"\tthree"}));
}

TEST_P(EnumListDatabaseTest, ACodeWithAQuoteIsKeptButNotFound)
{
    host::ControlSite& methods = ShownCodes(L"US", L"Depreciation");
    Pick([&](Picker& picker) {
        const Texts items = picker.Items();
        const auto found =
            std::find(items.begin(), items.end(), L"ACRS'84\tAccelerated recovery, property of 1984 to 1986");
        ASSERT_NE(found, items.end());
        picker.DoubleClickItem(static_cast<int>(found - items.begin()));
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(methods), L"ACRS'84");
    MessageBoxWatcher boxes;
    methods.Put(L"DisplayStyle", Variant(ByDescription));
    EXPECT_EQ(boxes.Stop().size(), 1U);
    EXPECT_EQ(methods.Get(L"EnumText").Text(), L"");
    bool complained = false;
    EXPECT_EQ(TextOf(methods, L"ACRS'81", &complained), L"");
    EXPECT_TRUE(complained);
    // Only two of them make a text whole again.
    EXPECT_EQ(TextOf(methods, L"ACRS''81"), L"Accelerated recovery, property of 1981 to 1983")
        << "as a query reads it";
}

TEST_P(EnumListDatabaseTest, ShowsAnyLetters)
{
    host::ControlSite& towns = ShownCodes(L"PR", L"Municipality", ByDescription);
    EXPECT_EQ(TextOf(towns, L"6"), L"A\u00F1asco");
    towns.Put(L"DisplayStyle", Variant(ByCode));
    EXPECT_EQ(ItemsOf()[2], L"6\tA\u00F1asco");
    towns.Put(L"StateCode", Variant(L"T1"));
    towns.Put(L"TableName", Variant(L"Letters"));
    towns.Put(L"DisplayStyle", Variant(ByDescription));
    EXPECT_EQ(TextOf(towns, L"\u00E9"),
              L"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1, \u0423\u043A\u0440\u0430\u0457\u043D\u0430, "
              L"\u65E5\u672C, \U0001F0A1");
    EXPECT_EQ(TextOf(towns, L"[a] & b"), L"RIGHT('x', 1); -- \"?\" \\n {d}");
}

TEST_P(EnumListDatabaseTest, ComplainsOfADatabaseThatWasClosed)
{
    host::ControlSite& counties = ShownCodes(L"MD", L"County", ByDescription);
    EXPECT_EQ(TextOf(counties, L"7"), L"Carroll");
    CloseDatabase();
    bool complained = false;
    EXPECT_EQ(TextOf(counties, L"9", &complained), L"");
    EXPECT_TRUE(complained);
    // The picker opens nevertheless, with nothing in it.
    MessageBoxWatcher boxes;
    EXPECT_EQ(ItemsOf(), Texts());
    const auto& shown = boxes.Stop();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown.front().Text, Unread);
    EXPECT_EQ(CodeOf(counties), L"9");
}

// The message box in front of the picker, or null.
HWND BoxOver(const Picker& picker)
{
    const HWND box = GetForegroundWindow();
    return box != picker.Window() && GetDlgItem(box, MessageTextId) ? box : nullptr;
}

TEST_P(EnumListDatabaseTest, KeepsTheListWhenTheDatabaseIsClosedUnderIt)
{
    host::ControlSite& counties = ShownCodes(L"MD", L"County");
    Pick([&](Picker& picker) {
        const Texts before = picker.Items();
        EXPECT_EQ(before.size(), 31U);
        TheForm().Invoke([this] { CloseDatabase(); });
        TapKey('D', {VK_MENU});
        ASSERT_TRUE(picker.WaitUntil([&] { return BoxOver(picker) != nullptr; }));
        EXPECT_EQ(WindowText(GetDlgItem(BoxOver(picker), MessageTextId)), Unread);
        TapKey(VK_RETURN);
        ASSERT_TRUE(picker.WaitUntil(
            [&] { return GetForegroundWindow() == picker.Window() && IsWindowEnabled(picker.Window()); }));
        EXPECT_TRUE(picker.IsSelected(picker.Option(1)));
        EXPECT_EQ(picker.Items(), before);
        picker.DoubleClickItem(7);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(counties), L"7");
}

TEST_P(EnumListDatabaseTest, ComplainsOfWrongColumns)
{
    const ComPtr<host::Database> other = OpenCodes(GetParam().WrongColumns);
    host::ControlSite& counties = ShownCodes(L"MD", L"County", ByDescription);
    counties.Put(L"Database", Variant(other.Get()));
    // The query is answered; what is wrong with the answer is an error to the host.
    HRESULT raised = S_OK;
    try
    {
        counties.Put(L"EnumCode", Variant(L"7"));
    }
    catch (const ComError& error)
    {
        raised = error.Result();
    }
    EXPECT_EQ(raised, host::NoSuchItem);
    EXPECT_EQ(CodeOf(counties), L"7");
    // The picker tells of it as of a table that it cannot read.
    MessageBoxWatcher boxes;
    EXPECT_EQ(ItemsOf(), Texts{L"(none)\t"});
    const auto& shown = boxes.Stop();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown.front().Text, Unread);
}

TEST_P(EnumListDatabaseTest, NullIsAnEmptyDescription)
{
    host::ControlSite& list = ShownCodes(L"T1", L"Null", ByDescription);
    EXPECT_EQ(TextOf(list, L"1"), L"");
    EXPECT_EQ(TextOf(list, L"2"), L"Not Null");
    list.Put(L"DisplayStyle", Variant(ByCode));
    EXPECT_EQ(ItemsOf(), (Texts{L"(none)\t", L"1\t", L"2\tNot Null"}));
}

TEST_P(EnumListDatabaseTest, ShowsAMillionCharacters)
{
    constexpr std::size_t million = 1U << 20;
    host::ControlSite& list = ShownCodes(L"T1", L"Long", ByDescription);
    EXPECT_EQ(TextOf(list, L"1").size(), million);
    Pick([&](Picker& picker) {
        EXPECT_EQ(SendMessageW(picker.List(), LB_GETCOUNT, 0, 0), 2);
        EXPECT_EQ(SendMessageW(picker.List(), LB_GETTEXTLEN, 1, 0), 4096)
            << "more than any screen shows, and not all of it";
        RECT outer = {};
        GetWindowRect(picker.Window(), &outer);
        EXPECT_EQ(outer.right - outer.left, GetSystemMetrics(SM_CXSCREEN))
            << "as wide as the screen, no wider";
        picker.DoubleClickItem(1);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"1");
}

TEST_P(EnumListDatabaseTest, ListsTenThousandRows)
{
    host::ControlSite& activities = ShownCodes(L"US", L"Business Activity");
    Pick([&](Picker& picker) {
        EXPECT_EQ(SendMessageW(picker.List(), LB_GETCOUNT, 0, 0), 10001);
        // The first key only selects where the list is.
        picker.Key(VK_HOME);
        picker.Key(VK_END);
        EXPECT_EQ(picker.Selected(), 10000);
        TapKey(VK_RETURN);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(activities), L"722520");
    // The selected row is on top, as far as there are rows below it.
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Selected(), 10000);
        EXPECT_GT(picker.Top(), 9900);
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
}

TEST_P(EnumListDatabaseTest, AQuoteInTheStateIsNoQuery)
{
    host::ControlSite& list = ShownCodes(L"T'1", L"Quoted", ByDescription);
    bool complained = false;
    EXPECT_EQ(TextOf(list, L"1", &complained), L"");
    EXPECT_TRUE(complained);
}

INSTANTIATE_TEST_SUITE_P(Over, EnumListDatabaseTest, testing::ValuesIn(DatabaseEngines), EngineName);

} // namespace

} // namespace kiv::test
