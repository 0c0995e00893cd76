// Labels and the border of a surface, as they are drawn.

#include "runtime/forms/Color.h"
#include "runtime/forms/Label.h"
#include "tests/support/Pixels.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

constexpr SIZE Outer = {120, 30};
constexpr RECT Place = {10, 5, 100, 20};
constexpr COLORREF Back = RGB(0, 128, 160);
constexpr COLORREF LabelBack = RGB(250, 240, 200);
constexpr COLORREF LabelFore = RGB(200, 40, 10);
constexpr wchar_t Caption[] = L"1,2 && &34";

void Fill(HDC dc, const RECT& rectangle, COLORREF color)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    FillRect(dc, &rectangle, brush.Get());
}

// A surface that shows one label.
class Sheet final : public SurfaceEvents
{
public:
    explicit Sheet(Label::Alignment alignment, bool bordered = false) :
        TheSurface(*this, Outer, bordered), TheLabel(TheSurface, alignment)
    {
        TheSurface.Font(CreateDefaultFont(), [] {});
        TheSurface.BackColor(Back);
        TheLabel.Move(Place.left, Place.top, Place.right - Place.left, Place.bottom - Place.top);
        TheLabel.BackColor(LabelBack);
        TheLabel.ForeColor(LabelFore);
        TheLabel.Caption(Caption);
    }

    Pixels Painted()
    {
        const Canvas canvas(Outer);
        TheSurface.PaintWithBorder(canvas.Dc());
        return canvas.Content();
    }

    Surface TheSurface;
    Label TheLabel;

private:
    LRESULT SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    void SurfacePaint() override { TheLabel.Draw(); }
    IUnknown* SurfaceOwner() noexcept override { return nullptr; }
};

// The same by the system's own means: background and text each in one colour.
class Expected
{
public:
    explicit Expected(const Sheet& sheet)
    {
        SelectObject(canvas_.Dc(), sheet.TheSurface.FontHandle());
        SetBkMode(canvas_.Dc(), TRANSPARENT);
        Fill(canvas_.Dc(), {0, 0, Outer.cx, Outer.cy}, Back);
        Fill(canvas_.Dc(), Place, LabelBack);
    }
    ~Expected() { SelectObject(canvas_.Dc(), GetStockObject(SYSTEM_FONT)); }

    Expected& Write(COLORREF color, UINT alignment, LONG shift = 0)
    {
        SetTextColor(canvas_.Dc(), color);
        RECT place = Place;
        OffsetRect(&place, shift, shift);
        DrawTextW(canvas_.Dc(), Caption, -1, &place, alignment | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
        return *this;
    }
    Pixels Content() const { return canvas_.Content(); }

private:
    Canvas canvas_{Outer};
};

TEST(LabelTest, ShowsItsCaptionAsItIsOnItsBackground)
{
    struct
    {
        Label::Alignment Alignment;
        UINT Format;
    } const rows[] = {{Label::Alignment::Left, DT_LEFT},
                      {Label::Alignment::Centre, DT_CENTER},
                      {Label::Alignment::Right, DT_RIGHT}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.Format);
        Sheet sheet(row.Alignment);
        EXPECT_EQ(Difference(Expected(sheet).Write(LabelFore, row.Format).Content(), sheet.Painted()), "");
        EXPECT_FALSE(Expected(sheet).Content() == sheet.Painted());
    }
}

TEST(LabelTest, ShowsTheWholeOfALastDigitThatIsWiderThanItsPlace)
{
    const auto inkOf = [](const wchar_t* caption, Label::Alignment alignment) {
        Sheet sheet(alignment);
        sheet.TheLabel.Caption(caption);
        return sheet.Painted().Count(LabelFore);
    };
    for (const wchar_t* caption : {L"0.5", L"1,204.75", L"4"})
        EXPECT_EQ(inkOf(caption, Label::Alignment::Right), inkOf(caption, Label::Alignment::Left));
}

TEST(LabelTest, ShowsOfSeveralLinesThoseThatHaveRoom)
{
    Sheet sheet(Label::Alignment::Left);
    sheet.TheLabel.Caption(L"Head of household");
    const Pixels one = sheet.Painted();
    sheet.TheLabel.Caption(L"Head of household\r\nUnmarried");
    const Pixels two = sheet.Painted();
    for (int x = 0; x < Outer.cx; ++x)
    {
        for (int y = 0; y < Place.top + sheet.TheLabel.LineHeight(); ++y)
            ASSERT_EQ(two.At(x, y), one.At(x, y)) << x << ' ' << y;
        for (int y = Place.bottom; y < Outer.cy; ++y)
            ASSERT_EQ(two.At(x, y), Back) << x << ' ' << y;
    }
}

TEST(LabelTest, IsEmbossedWhileDisabled)
{
    Sheet sheet(Label::Alignment::Right);
    sheet.TheLabel.Enabled(false);
    const Pixels expected = Expected(sheet)
                                .Write(GetSysColor(COLOR_BTNHIGHLIGHT), DT_RIGHT, 1)
                                .Write(GetSysColor(COLOR_BTNSHADOW), DT_RIGHT)
                                .Content();
    EXPECT_EQ(Difference(expected, sheet.Painted()), "");
}

TEST(LabelTest, KnowsTheHeightOfALineOfTheSurfacesFont)
{
    const Sheet sheet(Label::Alignment::Left);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ former = SelectObject(dc, sheet.TheSurface.FontHandle());
    SIZE extent = {};
    GetTextExtentPoint32A(dc, "X", 1, &extent);
    SelectObject(dc, former);
    DeleteDC(dc);
    EXPECT_EQ(sheet.TheLabel.LineHeight(), extent.cy);
}

// The border is part of the control's size; what is inside begins at its own origin.
TEST(SurfaceBorderTest, SurroundsTheSurface)
{
    Sheet sheet(Label::Alignment::Right, true);
    const int width = GetSystemMetrics(SM_CXEDGE);
    const int height = GetSystemMetrics(SM_CYEDGE);
    EXPECT_EQ(sheet.TheSurface.OuterSize().cx, Outer.cx);
    EXPECT_EQ(sheet.TheSurface.OuterSize().cy, Outer.cy);
    EXPECT_EQ(sheet.TheSurface.PixelSize().cx, Outer.cx - 2 * width);
    EXPECT_EQ(sheet.TheSurface.PixelSize().cy, Outer.cy - 2 * height);

    const Pixels inside = Expected(sheet).Write(LabelFore, DT_RIGHT).Content();
    const Canvas expected(Outer);
    RECT edge = {0, 0, Outer.cx, Outer.cy};
    DrawEdge(expected.Dc(), &edge, EDGE_SUNKEN, BF_RECT);
    for (int y = 0; y < Outer.cy - 2 * height; ++y)
    {
        for (int x = 0; x < Outer.cx - 2 * width; ++x)
            SetPixelV(expected.Dc(), x + width, y + height, inside.At(x, y));
    }
    EXPECT_EQ(Difference(expected.Content(), sheet.Painted()), "");
}

} // namespace

} // namespace kiv::test
