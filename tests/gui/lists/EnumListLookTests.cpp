// The description of a code as it is shown: what does not fit, letters of any kind, the tool tip; and the
// headings of the picker.

#include "tests/gui/lists/ListsTest.h"

#include "tests/support/MeasuredText.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"
#include "tests/support/ToolTips.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr long ByDescription = 1;
constexpr DWORD LongerThanATipTakes = 1500;
constexpr int Edge = 2; // the border, at either side
// Polish and Greek: what comes nearest to it in the code page of Western Europe has other letters.
constexpr const wchar_t* Foreign = L"\u0141\u00F3d\u017A \u03A9";
constexpr const wchar_t* BestFit = L"L\u00F3dz O";

class EnumListLookTest : public ListsTest
{
protected:
    void SetUp() override
    {
        ListsTest::SetUp();
        PointElsewhere();
    }
    void TearDown() override
    {
        PointElsewhere();
        ListsTest::TearDown();
    }

    // A list that shows a description, which the database has, with the focus elsewhere.
    host::ControlSite& ShownText(const std::wstring& text)
    {
        Database().Rows({{L"MA", L"Single", Variant(L"1"), Variant(text)}});
        host::ControlSite& list = AddList(ByDescription, L"1");
        const host::Button& elsewhere = AddElsewhere();
        ShowForm();
        SetFocus(elsewhere.Window());
        Settle();
        return list;
    }
    int WidthOf(std::wstring_view text)
    {
        const Canvas canvas({1, 1});
        const HGDIOBJ former = SelectObject(canvas.Dc(), TheForm().Font());
        const int width = test::WidthOf(canvas.Dc(), text);
        SelectObject(canvas.Dc(), former);
        return width;
    }
    static int ButtonWidth(const host::ControlSite& list)
    {
        RECT button = {};
        GetClientRect(ButtonOf(list), &button);
        return button.right;
    }
    // So many pixels for the label, which takes what the button leaves.
    void GiveRoom(host::ControlSite& list, int pixels)
    {
        list.Move({20, 20, 20 + pixels + ButtonWidth(list) + 2 * Edge, 45});
        PumpPending(TheForm());
    }
    // What is beside the button.
    static Pixels LabelOf(const Pixels& inside, const host::ControlSite& list)
    {
        Pixels label({inside.Size().cx - ButtonWidth(list), inside.Size().cy});
        for (int y = 0; y < label.Size().cy; ++y)
        {
            for (int x = 0; x < label.Size().cx; ++x)
                label.Set(x, y, inside.At(x, y));
        }
        return label;
    }
    static Pixels Shown(const host::ControlSite& list)
    {
        return LabelOf(PixelsOfWindow(list.Window()), list);
    }
    Pixels Expected(const host::ControlSite& list, std::wstring_view text)
    {
        RECT inside = {};
        GetClientRect(list.Window(), &inside);
        const Canvas canvas({inside.right - ButtonWidth(list), inside.bottom});
        FillRect(canvas.Dc(), &inside, GetSysColorBrush(COLOR_WINDOW));
        const HGDIOBJ former = SelectObject(canvas.Dc(), TheForm().Font());
        TEXTMETRICW metrics = {};
        GetTextMetricsW(canvas.Dc(), &metrics);
        SetBkMode(canvas.Dc(), TRANSPARENT);
        SetTextColor(canvas.Dc(), GetSysColor(COLOR_BTNTEXT));
        WriteMeasured(canvas.Dc(), 0, (inside.bottom - metrics.tmHeight) / 2, text);
        SelectObject(canvas.Dc(), former);
        return canvas.Content();
    }

    void PointElsewhere()
    {
        PointAt({0, 0});
        PumpPending(TheForm());
    }
    static void PointAtLabelOf(const host::ControlSite& list)
    {
        RECT place = {};
        GetWindowRect(list.Window(), &place);
        PointAt({place.left + 20, (place.top + place.bottom) / 2});
    }
    void ExpectTip(const host::ControlSite& list, const std::wstring& text)
    {
        PointAtLabelOf(list);
        EXPECT_TRUE(PumpUntil(TheForm(), [] { return !ShownToolTip().empty(); }));
        EXPECT_EQ(ShownToolTip(), text);
    }
    void ExpectNoTip(const host::ControlSite& list)
    {
        PointAtLabelOf(list);
        EXPECT_FALSE(PumpUntil(
            TheForm(), [] { return !ToolTips().empty(); }, LongerThanATipTakes));
    }
};

TEST_F(EnumListLookTest, ADescriptionIsShownWhereItJustFitsAndElseEndsInAnEllipsis)
{
    const std::wstring text = L"Married, filing separately";
    host::ControlSite& list = ShownText(text);
    const int width = WidthOf(text);
    GiveRoom(list, width);
    EXPECT_EQ(Difference(Expected(list, text), Shown(list)), "");
    for (const int room : {width - 1, 100, 60})
    {
        GiveRoom(list, room);
        std::size_t kept = text.size();
        while (WidthOf(text.substr(0, kept) + L"...") > room)
            --kept;
        EXPECT_EQ(Difference(Expected(list, text.substr(0, kept) + L"..."), Shown(list)), "") << room;
        EXPECT_EQ(list.Get(L"EnumText").Text(), text);
    }
}

TEST_F(EnumListLookTest, ACodeEndsInAnEllipsisToo)
{
    host::ControlSite& list = ShownText(L"");
    list.Put(L"DisplayStyle", Variant(0L));
    list.Put(L"EnumCode", Variant(L"990000000001"));
    GiveRoom(list, WidthOf(L"9900..."));
    EXPECT_EQ(Difference(Expected(list, L"9900..."), Shown(list)), "");
    EXPECT_EQ(CodeOf(list), L"990000000001");
    EXPECT_EQ(list.Get(L"EnumText").Text(), L"990000000001");
}

TEST_F(EnumListLookTest, HiddenLinesMakeAnEllipsis)
{
    const std::wstring text = L"First line\r\nsecond line\r\nthird line";
    host::ControlSite& list = ShownText(text);
    EXPECT_EQ(Difference(Expected(list, L"First line..."), Shown(list)), "");
    EXPECT_EQ(list.Get(L"EnumText").Text(), text);
    Database().Rows({{L"MA", L"Single", Variant(L"2"), Variant(L"Ends with a break\r\n")}});
    list.Put(L"EnumCode", Variant(L"2"));
    EXPECT_EQ(Difference(Expected(list, L"Ends with a break"), Shown(list)), "") << "nothing is hidden";
}

TEST_F(EnumListLookTest, ItIsDrawnElsewhereAsOnTheScreen)
{
    host::ControlSite& list = ShownText(L"First line\r\nsecond line");
    for (const bool enabled : {true, false})
    {
        list.Put(L"Enabled", Variant(enabled));
        PumpPending(TheForm());
        const Pixels shown = PixelsOfWindow(list.Window());
        const Canvas canvas({shown.Size().cx + 2 * Edge, shown.Size().cy + 2 * Edge});
        EXPECT_HRESULT_SUCCEEDED(
            list.Draw(canvas.Dc(), {0, 0, shown.Size().cx + 2 * Edge, shown.Size().cy + 2 * Edge}));
        const Pixels whole = canvas.Content();
        Pixels inside(shown.Size());
        for (int y = 0; y < inside.Size().cy; ++y)
        {
            for (int x = 0; x < inside.Size().cx; ++x)
                inside.Set(x, y, whole.At(x + Edge, y + Edge));
        }
        EXPECT_EQ(Difference(Shown(list), LabelOf(inside, list)), "");
        EXPECT_EQ(Shown(list).Count(GetSysColor(COLOR_BTNTEXT)) == 0, !enabled);
    }
}

TEST_F(EnumListLookTest, ShowsLettersThatTheCodePageLacks)
{
    host::ControlSite& list = ShownText(Foreign);
    EXPECT_EQ(list.Get(L"EnumText").Text(), Foreign);
    EXPECT_EQ(Difference(Expected(list, Foreign), Shown(list)), "");
    EXPECT_NE(Difference(Expected(list, BestFit), Shown(list)), "");
    // As a code, which is its own description.
    list.Put(L"DisplayStyle", Variant(0L));
    list.Put(L"EnumCode", Variant(Foreign));
    EXPECT_EQ(list.Get(L"EnumText").Text(), Foreign);
    EXPECT_EQ(Difference(Expected(list, Foreign), Shown(list)), "");
}

TEST_F(EnumListLookTest, ATipTellsAllLinesOfADescription)
{
    const std::wstring text = std::wstring(L"First & foremost ") + Foreign + L"\r\nsecond line\r\nthird line";
    host::ControlSite& list = ShownText(text);
    EXPECT_TRUE(ToolTips().empty());
    const HWND focus = GetFocus();
    ExpectTip(list, text);
    EXPECT_EQ(GetFocus(), focus);
    EXPECT_EQ(GetForegroundWindow(), TheForm().Window());
    ASSERT_EQ(ToolTips().size(), 1U);
    RECT several = {};
    GetWindowRect(ToolTips().front(), &several);
    TEXTMETRICW metrics = {};
    const HDC dc = GetDC(nullptr);
    GetTextMetricsW(dc, &metrics);
    ReleaseDC(nullptr, dc);
    EXPECT_GT(several.bottom - several.top, 2 * metrics.tmHeight) << "three lines";

    Database().Rows({{L"MA", L"Single", Variant(L"2"), Variant(L"Alone")}});
    list.Put(L"EnumCode", Variant(L"2"));
    EXPECT_TRUE(ToolTips().empty());
    ExpectNoTip(list);
}

TEST_F(EnumListLookTest, ATipGoesWithTheControl)
{
    host::ControlSite& list = ShownText(L"First line\r\nsecond line");
    ExpectTip(list, L"First line\r\nsecond line");
    TheForm().Remove(list);
    EXPECT_TRUE(ToolTips().empty());
}

// Its window is disabled too, and gets no mouse.
TEST_F(EnumListLookTest, ADisabledListHasNoTip)
{
    host::ControlSite& list = ShownText(L"First line\r\nsecond line");
    list.Put(L"Enabled", Variant(false));
    ExpectNoTip(list);
}

TEST_F(EnumListLookTest, ThePickersHeadingsAreWhole)
{
    ShownList();
    Pick([&](Picker& picker) {
        const SIZE size = {picker.InnerSize().cx, 24}; // above the list
        const Canvas shown(size);
        SendMessageW(picker.Surface(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(shown.Dc()), PRF_CLIENT);
        const auto font = MakeFont({.Name = L"MS Sans Serif", .Size = {{82500, 0}}, .Weight = FW_BOLD});
        Microsoft::WRL::ComPtr<IFont> bold;
        HFONT handle = nullptr;
        ASSERT_HRESULT_SUCCEEDED(font.As(&bold));
        ASSERT_HRESULT_SUCCEEDED(bold->get_hFont(&handle));
        const Canvas canvas(size);
        const RECT whole = {0, 0, size.cx, size.cy};
        FillRect(canvas.Dc(), &whole, GetSysColorBrush(COLOR_BTNFACE));
        const HGDIOBJ former = SelectObject(canvas.Dc(), handle);
        SetBkMode(canvas.Dc(), TRANSPARENT);
        SetTextColor(canvas.Dc(), GetSysColor(COLOR_BTNTEXT));
        WriteMeasured(canvas.Dc(), 12, 8, L"Code");
        WriteMeasured(canvas.Dc(), 78, 8, L"Description");
        SelectObject(canvas.Dc(), former);
        EXPECT_EQ(Difference(canvas.Content(), shown.Content()), "");
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
}

} // namespace

} // namespace kiv::test
