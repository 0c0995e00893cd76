// The picker as a window: its layout and width, what becomes of its host meanwhile, and what may go wrong.

#include "tests/gui/lists/ListsTest.h"

#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Pixels.h"
#include "tests/support/StrayMessages.h"

namespace kiv::test
{

namespace
{

using PickerFormTest = ListsTest;

// Places in pixels, as left, top, width, height.
std::vector<long> At(const Picker& picker, HWND part)
{
    const RECT place = picker.Place(part);
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

using Place = std::vector<long>;

TEST_F(PickerFormTest, IsLaidOutForItsSize)
{
    ShownList();
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.InnerSize().cx, 252);
        EXPECT_EQ(picker.InnerSize().cy, 272);
        EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 236, 158}));
        EXPECT_EQ(At(picker, picker.Frame()), (Place{8, 190, 236, 41}));
        EXPECT_EQ(At(picker, picker.Option(0)), (Place{20, 206, 61, 17}));
        EXPECT_EQ(At(picker, picker.Option(1)), (Place{92, 206, 101, 17}));
        EXPECT_EQ(At(picker, picker.Ok()), (Place{90, 239, 73, 25}));
        EXPECT_EQ(At(picker, picker.CancelButton()), (Place{171, 239, 73, 25}));
        // 234 pixels are 3510 twips, 233 are 3495: up to 3500 nothing moves.
        picker.ResizeInside({234, 234});
        EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 218, 120}));
        EXPECT_EQ(At(picker, picker.CancelButton()), (Place{153, 201, 73, 25}));
        picker.ResizeInside({233, 233});
        EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 218, 120}));
        EXPECT_EQ(At(picker, picker.CancelButton()), (Place{153, 201, 73, 25}));
        picker.ResizeInside({233, 300});
        EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 218, 186}));
        EXPECT_EQ(At(picker, picker.CancelButton()), (Place{153, 267, 73, 25}));
        picker.ResizeInside({400, 200});
        EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 384, 186}));
        EXPECT_EQ(At(picker, picker.Frame()), (Place{8, 218, 384, 41}));
    });
}

TEST_F(PickerFormTest, WithoutTheFrameTheListReachesDownToTheButtons)
{
    ShownList(1);
    Pick([&](Picker& picker) { EXPECT_EQ(At(picker, picker.List()), (Place{8, 24, 236, 207})); });
}

TEST_F(PickerFormTest, IsAsWideAsItsLongestLineWithinTheScreen)
{
    ShownList();
    const int screen = GetSystemMetrics(SM_CXSCREEN);
    const auto width = [&] {
        long found = 0;
        Pick([&](Picker& picker) {
            RECT outer = {};
            GetWindowRect(picker.Window(), &outer);
            found = outer.right - outer.left;
        });
        return found;
    };
    const long narrow = width();
    Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(std::wstring(60, L'W'))}});
    const long wide = width();
    EXPECT_GT(wide, narrow);
    EXPECT_LT(wide, screen);
    Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(L"short\r\n" + std::wstring(60, L'W'))}});
    EXPECT_EQ(width(), wide) << "every line counts";
    Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(std::wstring(600, L'W'))}});
    EXPECT_EQ(width(), screen);
}

// Neither the caption nor the list takes letters that the code page lacks for others.
TEST_F(PickerFormTest, ShowsLettersThatTheCodePageLacks)
{
    host::ControlSite& list = ShownList();
    const wchar_t* const texts[] = {L"\u0141\u00F3d\u017A \u65E5", L"L\u00F3dz ?", L"Lodz ?"};
    std::vector<Pixels> shown;
    for (const wchar_t* const text : texts)
    {
        Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(text)}});
        list.Put(L"EnumListTitle", Variant(text));
        Pick([&](Picker& picker) {
            picker.Settle();
            shown.push_back(PixelsOfWindow(picker.List()));
            EXPECT_EQ(WindowText(picker.Window()), text);
        });
    }
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_NE(Difference(shown[1], shown[0]), "");
    EXPECT_NE(Difference(shown[2], shown[0]), "");
}

TEST_F(PickerFormTest, IsAsWideAsLettersThatTheCodePageLacks)
{
    ShownList();
    const auto beside = [&](wchar_t letter) {
        const std::wstring line(60, letter);
        Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(line)}});
        SIZE text = {};
        long inner = 0;
        Pick([&](Picker& picker) {
            inner = picker.InnerSize().cx;
            const HDC dc = GetDC(picker.List());
            const HGDIOBJ former =
                SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(picker.List(), WM_GETFONT, 0, 0)));
            GetTextExtentPoint32W(dc, line.c_str(), static_cast<int>(line.size()), &text);
            SelectObject(dc, former);
            ReleaseDC(picker.List(), dc);
        });
        return inner - text.cx;
    };
    EXPECT_EQ(beside(L'\u0416'), beside(L'?'));
}

TEST_F(PickerFormTest, APresetCodeIsSelectedAndScrolledToTheTop)
{
    std::vector<EnumRow> rows;
    for (int i = 1; i <= 100; ++i)
        rows.push_back(
            {L"MA", L"Single", Variant(std::to_wstring(i)), Variant(L"Row " + std::to_wstring(i))});
    Database().Rows(rows);
    host::ControlSite& list = ShownList(0, L"50");
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Selected(), 50);
        EXPECT_EQ(picker.Top(), 50);
    });
    list.Put(L"EnumCode", Variant(L"050"));
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Selected(), -1) << "not in the list";
        EXPECT_EQ(picker.Top(), 0);
    });
}

TEST_F(PickerFormTest, ItsOwnerIsDisabledMeanwhile)
{
    host::ControlSite& list = ShownList();
    RecordOf(list).ClearCalls();
    Pick([&](Picker& picker) {
        EXPECT_EQ(GetWindow(picker.Window(), GW_OWNER), TheForm().Window());
        EXPECT_FALSE(IsWindowEnabled(TheForm().Window()));
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
    EXPECT_TRUE(IsWindowEnabled(TheForm().Window()));
    EXPECT_EQ(GetForegroundWindow(), TheForm().Window());
    EXPECT_EQ(GetFocus(), ButtonOf(list));
}

TEST_F(PickerFormTest, AQueryThatFailsIsToldAndThePickerStillOpens)
{
    host::ControlSite& list = ShownList(0, L"7");
    MessageBoxWatcher watcher;
    Database().Fail(L"OpenRecordset", 0);
    Pick([&](Picker& picker) { EXPECT_EQ(picker.Items(), Texts()); });
    list.Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
    Pick([&](Picker& picker) { EXPECT_EQ(picker.Items(), Texts()); });
    const std::vector<ShownMessageBox>& shown = watcher.Stop();
    ASSERT_EQ(shown.size(), 2U);
    for (const ShownMessageBox& box : shown)
    {
        EXPECT_EQ(box.Text, L"Could not read enum table from database.");
        EXPECT_EQ(box.Icon, LoadIconA(nullptr, IDI_HAND));
    }
    EXPECT_EQ(CodeOf(list), L"7");
}

TEST_F(PickerFormTest, ASortThatFailsKeepsTheList)
{
    ShownList();
    MessageBoxWatcher watcher;
    Pick([&](Picker& picker) {
        const Texts before = picker.Items();
        Database().Fail(L"OpenRecordset", 0);
        picker.Click(picker.Option(1));
        EXPECT_TRUE(picker.WaitUntil([&] { return GetForegroundWindow() == picker.Window(); }));
        EXPECT_EQ(picker.Items(), before);
    });
    EXPECT_EQ(watcher.Stop().size(), 1U);
}

TEST_F(PickerFormTest, RowsThatFailHalfWayStay)
{
    ShownList();
    const struct
    {
        const wchar_t* Call;
        int Number;
        std::size_t Items;
    } rows[] = {{L"EOF", 0, 1},   {L"Fields Enum Text", 0, 1}, {L"Fields Enum Code", 1, 2},
                {L"Value", 2, 2}, {L"MoveNext", 1, 3},         {L"EOF", 3, 4}};
    for (const auto& row : rows)
    {
        MessageBoxWatcher watcher;
        Database().Fail(row.Call, row.Number);
        Pick([&](Picker& picker) { EXPECT_EQ(picker.Items().size(), row.Items); });
        EXPECT_EQ(watcher.Stop().size(), 1U);
        EXPECT_EQ(Database().StillOpen(), 0);
    }
}

TEST_F(PickerFormTest, NullFieldsAndAHugeDescriptionAreShown)
{
    Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant::Null()},
                     {L"MA", L"Single", Variant::Null(), Variant(L"No code")},
                     {L"MA", L"Single", Variant(L"2"), Variant(std::wstring(1 << 20, L'x'))}});
    host::ControlSite& list = ShownList(0, L"1");
    Pick([&](Picker& picker) {
        const Texts items = picker.Items();
        ASSERT_EQ(items.size(), 4U);
        EXPECT_EQ(items[1], L"\tNo code");
        EXPECT_EQ(items[2], L"1\t");
        EXPECT_EQ(items[3].size(), 4096U) << "what a screen could show of it";
        picker.Key(VK_UP);
        TapKey(VK_RETURN);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"") << "an entry without a code";
    // Behind a description that long the code is there all the same.
    list.Put(L"DisplayStyle", Variant(1L));
    Pick([&](Picker& picker) {
        picker.DoubleClickItem(3);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"2");
}

// --- Messages that nobody should send ---

TEST_F(PickerFormTest, SurvivesStrayMessages)
{
    host::ControlSite& list = ShownList(0, L"7");
    Pick([&](Picker& picker) {
        const HWND items = picker.List();
        const HWND byText = picker.Option(1);
        for (const HWND window : WindowsOf(picker.Window()))
        {
            SendStrayMessages(window);
            EXPECT_TRUE(IsWindow(window));
        }
        // It is as large as before, and what the messages took out of the list comes back.
        EXPECT_EQ(picker.InnerSize().cx, picker.Place(picker.Surface()).right);
        EXPECT_EQ(picker.InnerSize().cy, picker.Place(picker.Surface()).bottom);
        picker.Click(byText);
        EXPECT_EQ(picker.Items().size(), 5U);
        SetForegroundWindow(picker.Window());
        picker.Click(items);
        picker.Key(VK_HOME);
        picker.Key(VK_DOWN);
        TapKey(VK_RETURN);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"100");
}

// A program may have put something of its own into the list.
TEST_F(PickerFormTest, FindsNoCodeForItemsThatAreNotItsOwn)
{
    host::ControlSite& list = ShownList(0, L"7");
    for (const LPARAM data : {LPARAM{-1}, LPARAM{1000000}, LPARAM{0}})
    {
        Pick([&](Picker& picker) {
            const LRESULT item =
                SendMessageA(picker.List(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("99\tforeign"));
            SendMessageA(picker.List(), LB_SETITEMDATA, static_cast<WPARAM>(item), data);
            picker.DoubleClickItem(static_cast<int>(item));
            picker.WaitUntilGone();
        });
        EXPECT_EQ(CodeOf(list), L"");
        list.Put(L"EnumCode", Variant(L"7"));
    }
}

// --- Its host goes ---

TEST_F(PickerFormTest, SurvivesThatItsControlIsTakenAway)
{
    host::ControlSite& list = ShownList(0, L"7");
    Pick([&](Picker& picker) {
        EXPECT_TRUE(TheForm().Post([&] { TheForm().Remove(list); }));
        picker.WaitUntilGone();
    });
    EXPECT_TRUE(IsWindowEnabled(TheForm().Window()));
}

TEST_F(PickerFormTest, SurvivesThatItsFormIsDestroyed)
{
    ShownList(0, L"7");
    Pick([&](Picker& picker) {
        EXPECT_TRUE(TheForm().Post([&] { TheForm().Destroy(); }));
        picker.WaitUntilGone();
    });
    EXPECT_TRUE(TheForm().Closed());
}

TEST_F(PickerFormTest, SurvivesThatTheDatabaseTakesTheControlAway)
{
    for (const wchar_t* call :
         {L"OpenRecordset", L"EOF", L"Fields Enum Code", L"Value", L"MoveNext", L"Close"})
    {
        SCOPED_TRACE(testing::Message() << call);
        host::ControlSite& list = ShownList(0, L"7");
        bool done = false;
        Database().OnCall([&](const std::wstring& arrived) {
            if (arrived == call && !std::exchange(done, true))
                TheForm().Remove(list);
        });
        TapKey(VK_SPACE);
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return done; }));
        Settle();
        Database().OnCall({});
        EXPECT_EQ(Database().StillOpen(), 0);
    }
}

TEST_F(PickerFormTest, LeavesTheEndOfTheProgramToItsHost)
{
    ShownList();
    Pick([&](Picker& picker) {
        EXPECT_TRUE(TheForm().Post([] { PostQuitMessage(7); }));
        picker.WaitUntilGone();
    });
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

// Leaves the picker as soon as it is shown.
void CALLBACK LeavePicker(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND picker = FindWindowW(L"KivControls.Form", nullptr);
    if (picker && IsWindowVisible(picker))
        SendMessageW(picker, WM_CLOSE, 0, 0);
}

TEST_F(PickerFormTest, AThousandOpeningsLeaveNothing)
{
    host::ControlSite& list = ShownList(0, L"7");
    constexpr int openings = 1000;
    int closed = 0;
    // Closed from within its own loop, by a timer.
    for (int i = 0; i < openings; ++i)
    {
        const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LeavePicker);
        SendMessageW(ButtonOf(list), BM_CLICK, 0, 0);
        KillTimer(nullptr, timer);
        if (!FindWindowW(L"KivControls.Form", nullptr))
            ++closed;
    }
    EXPECT_EQ(closed, openings);
    EXPECT_EQ(Database().StillOpen(), 0);
    EXPECT_EQ(CodeOf(list), L"7");
    EXPECT_EQ(References(Database().Get()), 2U) << "the test's and the list's";
}

} // namespace

} // namespace kiv::test
