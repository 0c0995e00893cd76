// The drawing routines that controls share, held against the system's own.

#include "framework/subclass/SubClass.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/Pixels.h"
#include "tests/support/SystemColour.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

constexpr SIZE CanvasSize = {90, 24};
constexpr COLORREF BackColor = RGB(0, 128, 160);
constexpr COLORREF TextColor = RGB(200, 40, 10);

// A canvas in one colour, with another one for text.
class Sheet : public Canvas
{
public:
    Sheet() : Canvas(CanvasSize)
    {
        const RECT whole = {0, 0, CanvasSize.cx, CanvasSize.cy};
        const HBRUSH brush = CreateSolidBrush(BackColor);
        FillRect(Dc(), &whole, brush);
        DeleteObject(brush);
        SelectObject(Dc(), GetStockObject(DEFAULT_GUI_FONT));
        SetBkMode(Dc(), TRANSPARENT);
        SetTextColor(Dc(), TextColor);
    }
};

class FocusIfFocusedTest : public testing::Test
{
protected:
    static DRAWITEMSTRUCT Item(HDC dc, UINT state)
    {
        DRAWITEMSTRUCT item = {};
        item.itemState = state;
        item.hDC = dc;
        item.rcItem = {10, 5, 60, 20};
        return item;
    }
};

TEST_F(FocusIfFocusedTest, DrawsNothingWithoutTheFocus)
{
    for (const UINT state : {0U, UINT{ODS_SELECTED | ODS_DISABLED | ODS_GRAYED | ODS_CHECKED}})
    {
        const Sheet sheet;
        DrawFocusIfFocused(Item(sheet.Dc(), state), -4);
        EXPECT_EQ(Difference(Sheet().Content(), sheet.Content()), "");
    }
}

TEST_F(FocusIfFocusedTest, DrawsTheItemsRectangleGrownByTheInset)
{
    struct
    {
        short Inset;
        RECT Drawn;
    } const rows[] = {{0, {10, 5, 60, 20}}, {-4, {14, 9, 56, 16}}, {3, {7, 2, 63, 23}}};
    for (const auto& row : rows)
    {
        for (const UINT state : {UINT{ODS_FOCUS}, UINT{ODS_FOCUS | ODS_SELECTED | ODS_DEFAULT}})
        {
            SCOPED_TRACE(row.Inset);
            const Sheet expected;
            DrawFocusRect(expected.Dc(), &row.Drawn);
            const Sheet sheet;
            DrawFocusIfFocused(Item(sheet.Dc(), state), row.Inset);
            EXPECT_EQ(Difference(expected.Content(), sheet.Content()), "");
            EXPECT_FALSE(sheet.Content() == Sheet().Content());
        }
    }
}

class CaptionTest : public testing::Test
{
protected:
    // The picture of a caption, which must leave its rectangle and the text's colour as they were.
    static Pixels Drawn(std::wstring_view text, const RECT& rectangle, UINT flags, bool enabled)
    {
        const Sheet sheet;
        RECT changed = rectangle;
        DrawCaption(sheet.Dc(), text, changed, flags, enabled);
        EXPECT_TRUE(EqualRect(&changed, &rectangle));
        EXPECT_EQ(GetTextColor(sheet.Dc()), TextColor);
        return sheet.Content();
    }

    static void DrawPlain(const Sheet& sheet, const char* text, RECT rectangle, UINT flags)
    {
        DrawTextA(sheet.Dc(), text, -1, &rectangle, flags);
    }
};

constexpr RECT Rectangles[] = {{0, 0, 90, 24}, {5, 3, 70, 17}, {20, 0, 30, 24}};
constexpr UINT Formats[] = {DT_RIGHT | DT_VCENTER | DT_SINGLELINE, DT_LEFT, DT_CENTER | DT_WORDBREAK};

TEST_F(CaptionTest, IsPlainTextWhileEnabled)
{
    for (const RECT& rectangle : Rectangles)
    {
        for (const UINT format : Formats)
        {
            const Sheet expected;
            DrawPlain(expected, "Some &caption", rectangle, format);
            const Pixels drawn = Drawn(L"Some &caption", rectangle, format, true);
            EXPECT_EQ(Difference(expected.Content(), drawn), "");
            EXPECT_FALSE(drawn == Sheet().Content());
        }
    }
}

TEST_F(CaptionTest, IsEmbossedWhileDisabled)
{
    for (const RECT& rectangle : Rectangles)
    {
        for (const UINT format : Formats)
        {
            const Sheet expected;
            SetTextColor(expected.Dc(), GetSysColor(COLOR_BTNHIGHLIGHT));
            DrawPlain(expected, "Some &caption",
                      {rectangle.left + 1, rectangle.top + 1, rectangle.right + 1, rectangle.bottom + 1},
                      format);
            SetTextColor(expected.Dc(), GetSysColor(COLOR_BTNSHADOW));
            DrawPlain(expected, "Some &caption", rectangle, format);
            const Pixels drawn = Drawn(L"Some &caption", rectangle, format, false);
            EXPECT_EQ(Difference(expected.Content(), drawn), "");
        }
    }
}

TEST_F(CaptionTest, IsGreyWhileDisabledInHighContrast)
{
    for (const COLORREF ground : {RGB(0, 0, 0), RGB(255, 255, 255)})
    {
        const HighContrast scheme(ground);
        const Sheet expected;
        SetTextColor(expected.Dc(), HighContrast::Disabled);
        DrawPlain(expected, "Some &caption", Rectangles[0], DT_LEFT);
        EXPECT_EQ(Difference(expected.Content(), Drawn(L"Some &caption", Rectangles[0], DT_LEFT, false)), "");
    }
}

// Until then the scheme's colours stand for it.
TEST_F(CaptionTest, TheSystemKeepsThatHighContrastIsWanted)
{
    HIGHCONTRASTW settings = {};
    settings.cbSize = sizeof settings;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0);
    HIGHCONTRASTW on = settings;
    on.dwFlags |= HCF_HIGHCONTRASTON;
    SystemParametersInfoW(SPI_SETHIGHCONTRAST, sizeof on, &on, 0);
    KnownPlatformGap("the system keeps that high contrast is wanted", [] {
        HIGHCONTRASTW kept = {};
        kept.cbSize = sizeof kept;
        SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof kept, &kept, 0);
        return (kept.dwFlags & HCF_HIGHCONTRASTON) != 0;
    });
    SystemParametersInfoW(SPI_SETHIGHCONTRAST, sizeof settings, &settings, 0);
}

// A highlight pixel shows below and to the right of a shadow pixel, and shadow lies on top.
TEST_F(CaptionTest, HasItsHighlightBelowAndToTheRight)
{
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    ASSERT_NE(highlight, shadow);
    // One upright stroke.
    const Pixels drawn = Drawn(L"|", Rectangles[0], DT_LEFT, false);
    int shadows = 0;
    int highlights = 0;
    for (int y = 1; y < CanvasSize.cy; ++y)
    {
        for (int x = 1; x < CanvasSize.cx; ++x)
        {
            shadows += drawn.At(x, y) == shadow;
            if (drawn.At(x, y) != highlight)
                continue;
            ++highlights;
            EXPECT_EQ(drawn.At(x - 1, y - 1), shadow);
        }
    }
    EXPECT_GT(shadows, 0);
    EXPECT_EQ(highlights, shadows);
}

TEST_F(CaptionTest, IsWrittenInTheAnsiCodePage)
{
    const auto ansi = [](const wchar_t* text) {
        char bytes[32] = {};
        WideCharToMultiByte(CP_ACP, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
        return std::string(bytes);
    };
    for (const wchar_t* text : {L"Gr\u00FC\u00DFe \u20AC", L"\u042F and \u4E2D", L""})
    {
        const Sheet expected;
        DrawPlain(expected, ansi(text).c_str(), Rectangles[0], DT_LEFT);
        EXPECT_EQ(Difference(expected.Content(), Drawn(text, Rectangles[0], DT_LEFT, true)), "");
    }
}

} // namespace

} // namespace kiv::test
