// Changing the style of a box that is in use: the right text box shows, is hooked, and has the focus.

#include "tests/gui/masked/MaskedTest.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

enum NumberStyle : long
{
    SSN,
    FederalId,
    Routing,
    Custom
};

LONG_PTR ProcedureOf(HWND window)
{
    return GetWindowLongPtrA(window, GWLP_WNDPROC);
}

BOOL CALLBACK Count(HWND, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count)
{
    Count(window, count);
    EnumChildWindows(window, Count, count);
    return TRUE;
}

int Windows()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWithChildren, reinterpret_cast<LPARAM>(&count));
    return count;
}

using MaskedStyleTest = MaskedTest;

TEST_F(MaskedStyleTest, ShowsTheBlankOfTheStyle)
{
    HostedBox box = ShownNumberBox();
    const struct
    {
        NumberStyle Style;
        const wchar_t* Blank;
        short MaxLength;
    } rows[] = {{FederalId, L"__-_______", 10},
                {Routing, L"", 9},
                {SSN, L"___-__-____", 11},
                {Custom, L"", 11}, // left as it was
                {Routing, L"", 9},
                {Custom, L"", 9},
                {SSN, L"___-__-____", 11}};
    EXPECT_EQ(box.Text(), L"___-__-____");
    EXPECT_EQ(box.Value(), L"Null");
    for (const auto& row : rows)
    {
        box.SetStyle(row.Style);
        EXPECT_EQ(box.Text(), row.Blank) << row.Style;
        EXPECT_EQ(box.Site().Get(L"MaxLength").Long(), row.MaxLength) << row.Style;
        EXPECT_EQ(box.Site().Get(L"Style").Long(), row.Style);
        EXPECT_EQ(SendMessageW(box.Edit(), EM_GETLIMITTEXT, 0, 0), row.MaxLength);
    }
}

TEST_F(MaskedStyleTest, HooksTheTextBoxInUse)
{
    HostedBox box = ShownNumberBox();
    const HWND first = box.Edit();
    const LONG_PTR hook = ProcedureOf(first);
    ASSERT_EQ(box.Edits().size(), 2U);
    const HWND second = box.Edits()[0] == first ? box.Edits()[1] : box.Edits()[0];
    EXPECT_NE(ProcedureOf(second), hook);
    ComPtr<ISubClass> owner = box.Site().Query<ISubClass>();
    for (const NumberStyle style : {Routing, SSN, Routing, Routing, Custom, FederalId, Routing, Custom})
    {
        box.SetStyle(style);
        const HWND used = style == Routing ? second : first;
        const HWND unused = style == Routing ? first : second;
        EXPECT_EQ(box.Edit(), used);
        EXPECT_TRUE(IsWindowVisible(used));
        EXPECT_FALSE(IsWindowVisible(unused));
        EXPECT_EQ(ProcedureOf(used), hook);
        EXPECT_NE(ProcedureOf(unused), hook) << "unhooked";
        EXPECT_EQ(GetWindowLongPtrA(used, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(owner.Get()));
        EXPECT_EQ(GetFocus(), used) << "the user types on";
    }
}

TEST_F(MaskedStyleTest, TakesKeysInTheNewStyleAtOnce)
{
    HostedBox box = ShownNumberBox();
    box.Select(0, 0);
    Type(L"12");
    box.SetStyle(Routing);
    EXPECT_EQ(box.Text(), L"");
    Type(L"011000015");
    EXPECT_EQ(box.Value(), L"011000015");
    Type(L"9x");
    EXPECT_EQ(box.Text(), L"011000015");
    SendMessageW(box.Edit(), WM_CLEAR, 0, 0);
    EXPECT_EQ(box.Text(), L"") << "the hook is on this box";
    box.SetStyle(FederalId);
    box.Select(0, 0);
    Type(L"123456789");
    EXPECT_EQ(box.Value(), L"12-3456789");
}

TEST_F(MaskedStyleTest, LeavesAFocusElsewhereAlone)
{
    AddElsewhere();
    HostedBox box = AddNumberBox();
    ShowForm();
    const HWND focus = GetFocus();
    for (const NumberStyle style : {Routing, SSN, Custom, Routing})
    {
        box.SetStyle(style);
        EXPECT_EQ(GetFocus(), focus);
    }
}

TEST_F(MaskedStyleTest, SameStyleAgainDiscardsTheEntry)
{
    HostedBox box = ShownNumberBox();
    box.Show({L"123-45-6789", 0, 0});
    RecordOf(box.Site()).ClearNotifications();
    box.SetStyle(SSN);
    EXPECT_EQ(box.TakeEvents(), Texts{L"Change ___-__-____"});
    EXPECT_EQ(RecordOf(box.Site()).Notifications(), (Texts{L"Style", L"Value"}));
}

// A number that is no style is kept, with the mask and the text box of the last one.
TEST_F(MaskedStyleTest, NoStyleKeepsTheMaskOfTheLast)
{
    HostedBox box = ShownNumberBox();
    box.SetStyle(FederalId);
    box.Show({L"12-3456789", 0, 0});
    for (const long style : {4L, -1L, 99L})
    {
        box.Show({L"12-3456789", 0, 0});
        box.SetStyle(style);
        EXPECT_EQ(box.Site().Get(L"Style").Long(), style);
        EXPECT_EQ(box.Text(), L"__-_______");
    }
}

TEST_F(MaskedStyleTest, DateStyleLeavesTheTextAlone)
{
    HostedBox box = ShownDateBox();
    const HWND edit = box.Edit();
    box.Show({L"01/05/01", 0, 0});
    const short lengths[] = {5, 8, 10, 5, 2, 4, 7, 8};
    for (long style = 0; style < 8; ++style)
    {
        RecordOf(box.Site()).ClearNotifications();
        box.SetStyle(style);
        EXPECT_EQ(RecordOf(box.Site()).Notifications(), Texts{L"Style"});
        EXPECT_EQ(box.Text(), L"01/05/01");
        EXPECT_EQ(SendMessageW(box.Edit(), EM_GETLIMITTEXT, 0, 0), lengths[style]) << style;
        EXPECT_EQ(box.Edit(), edit);
    }
    EXPECT_EQ(box.TakeEvents(), Texts());
}

TEST_F(MaskedStyleTest, SwitchesTenThousandTimes)
{
    HostedBox box = ShownNumberBox();
    PumpPending(TheForm());
    const int windows = Windows();
    const LONG_PTR hook = ProcedureOf(box.Edit());
    const ComPtr<_NumberBox> control = box.Site().Query<_NumberBox>();
    // What a host does with the news is its own.
    RecordOf(box.Site()).HandleEvents(nullptr);
    std::vector<ULONGLONG> milliseconds;
    for (int part = 0; part < 10; ++part)
    {
        const ULONGLONG begin = GetTickCount64();
        for (int turn = 0; turn < 1000; ++turn)
            ASSERT_HRESULT_SUCCEEDED(control->put_Style(static_cast<NumberFormatEnums>(turn % 4)));
        milliseconds.push_back(GetTickCount64() - begin);
        RecordProperty("part" + std::to_string(part), static_cast<int>(milliseconds.back()));
    }
    // Hooks on hooks, or anything else that piles up, would make every part slower than the one before. The
    // fastest of each half counts: a busy machine may hold up any of them.
    const auto half = milliseconds.begin() + 5;
    const ULONGLONG early = *std::min_element(milliseconds.begin(), half);
    const ULONGLONG late = *std::min_element(half, milliseconds.end());
    EXPECT_LT(late, 2 * early + 100);
    EXPECT_EQ(Windows(), windows);
    EXPECT_EQ(ProcedureOf(box.Edit()), hook);
    box.SetStyle(SSN);
    box.Select(0, 0);
    Type(L"1");
    EXPECT_EQ(box.Text(), L"1__-__-____");
}

} // namespace

} // namespace kiv::test
