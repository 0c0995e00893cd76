// Labels and the border of a surface, as they are drawn.

#include "tests/module/LabelSheet.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/MeasuredText.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

constexpr wchar_t Caption[] = L"1,2 && &34";
constexpr int PlaceWidth = LabelSheet::Place.right - LabelSheet::Place.left;

TEST(LabelTest, ShowsItsCaptionAsItIsOnItsBackground)
{
    struct
    {
        Label::Alignment Alignment;
        int SharesOfTheRoom; // at the left, of two
    } const rows[] = {
        {Label::Alignment::Left, 0}, {Label::Alignment::Centre, 1}, {Label::Alignment::Right, 2}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.SharesOfTheRoom);
        LabelSheet sheet(row.Alignment);
        sheet.TheLabel.Caption(Caption);
        const int left = (PlaceWidth - sheet.WidthOf(Caption)) * row.SharesOfTheRoom / 2;
        EXPECT_EQ(Difference(LabelPicture(sheet).Write(Caption, left).Content(), sheet.Painted()), "");
        EXPECT_FALSE(LabelPicture(sheet).Content() == sheet.Painted());
    }
}

// Why each character of a label has its place: a line that the system draws as a whole ends elsewhere.
TEST(LabelTest, StandsWhereItIsMeasured)
{
    LabelSheet sheet(Label::Alignment::Left);
    KnownPlatformGap("a text is drawn as wide as it is measured, in a font with bitmaps of its own too", [&] {
        const Canvas canvas({200, 30});
        const Canvas measured({200, 30});
        for (const Canvas* each : {&canvas, &measured})
            SelectObject(each->Dc(), sheet.TheSurface.FontHandle());
        TextOutW(canvas.Dc(), 0, 0, L"1,234.50", 8);
        WriteMeasured(measured.Dc(), 0, 0, L"1,234.50");
        const bool same = canvas.Content() == measured.Content();
        for (const Canvas* each : {&canvas, &measured})
            SelectObject(each->Dc(), GetStockObject(SYSTEM_FONT));
        return same;
    });
}

TEST(LabelTest, ShowsTheWholeOfALastDigitThatIsWiderThanItsPlace)
{
    const auto inkOf = [](const wchar_t* caption, Label::Alignment alignment) {
        LabelSheet sheet(alignment);
        sheet.TheLabel.Caption(caption);
        return sheet.Painted().Count(LabelSheet::LabelFore);
    };
    for (const wchar_t* caption : {L"0.5", L"1,204.75", L"4"})
        EXPECT_EQ(inkOf(caption, Label::Alignment::Right), inkOf(caption, Label::Alignment::Left));
}

TEST(LabelTest, ShowsOfSeveralLinesThoseThatHaveRoom)
{
    LabelSheet sheet(Label::Alignment::Left);
    const int line = sheet.TheLabel.LineHeight();
    sheet.TheLabel.Caption(L"Head of\r\nhouse\nhold");
    struct
    {
        int Height;
        std::vector<std::wstring> Lines;
    } const rows[] = {{3 * line, {L"Head of", L"house", L"hold"}},
                      {3 * line - 1, {L"Head of", L"house..."}},
                      {2 * line, {L"Head of", L"house..."}},
                      {2 * line - 1, {L"Head of..."}},
                      {line, {L"Head of..."}},
                      {line - 1, {L"Head of..."}}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.Height);
        sheet.Resize(PlaceWidth, row.Height);
        LabelPicture picture(sheet);
        picture.Clip();
        int top = 0;
        for (const std::wstring& text : row.Lines)
            picture.Write(text, 0, std::exchange(top, top + line));
        EXPECT_EQ(Difference(picture.Content(), sheet.Painted()), "");
        EXPECT_EQ(sheet.TheLabel.IsCut(), row.Lines.size() < 3);
    }
}

TEST(LabelTest, IsEmbossedWhileDisabled)
{
    LabelSheet sheet(Label::Alignment::Right);
    sheet.TheLabel.Caption(Caption);
    sheet.TheLabel.Enabled(false);
    const int left = PlaceWidth - sheet.WidthOf(Caption);
    EXPECT_EQ(Difference(LabelPicture(sheet).Emboss(Caption, left).Content(), sheet.Painted()), "");
}

// Not the letters that come nearest to them in the system's code page.
TEST(LabelTest, ShowsLettersThatTheCodePageLacks)
{
    LabelSheet sheet(Label::Alignment::Left);
    const struct
    {
        const wchar_t* Text;
        const wchar_t* BestFit;
    } rows[] = {{L"\u0141\u00F3d\u017A", L"L\u00F3dz"}, {L"\u03A9 \u0416", L"O ?"}};
    for (const bool enabled : {true, false})
    {
        sheet.TheLabel.Enabled(enabled);
        for (const auto& row : rows)
        {
            sheet.TheLabel.Caption(row.Text);
            const Pixels painted = sheet.Painted();
            LabelPicture picture(sheet);
            enabled ? picture.Write(row.Text, 0) : picture.Emboss(row.Text, 0);
            EXPECT_EQ(Difference(picture.Content(), painted), "");
            sheet.TheLabel.Caption(row.BestFit);
            EXPECT_FALSE(sheet.Painted() == painted);
        }
    }
}

TEST(LabelTest, KnowsTheHeightOfALineOfTheSurfacesFont)
{
    const LabelSheet sheet(Label::Alignment::Left);
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
    constexpr SIZE outer = LabelSheet::Outer;
    LabelSheet sheet(Label::Alignment::Right, Label::Content::Text, true);
    sheet.TheLabel.Caption(Caption);
    const int width = GetSystemMetrics(SM_CXEDGE);
    const int height = GetSystemMetrics(SM_CYEDGE);
    EXPECT_EQ(sheet.TheSurface.OuterSize().cx, outer.cx);
    EXPECT_EQ(sheet.TheSurface.OuterSize().cy, outer.cy);
    EXPECT_EQ(sheet.TheSurface.PixelSize().cx, outer.cx - 2 * width);
    EXPECT_EQ(sheet.TheSurface.PixelSize().cy, outer.cy - 2 * height);

    const Pixels inside = LabelPicture(sheet).WriteAtRight(Caption).Content();
    const Canvas expected(outer);
    RECT edge = {0, 0, outer.cx, outer.cy};
    DrawEdge(expected.Dc(), &edge, EDGE_SUNKEN, BF_RECT);
    for (int y = 0; y < outer.cy - 2 * height; ++y)
    {
        for (int x = 0; x < outer.cx - 2 * width; ++x)
            SetPixelV(expected.Dc(), x + width, y + height, inside.At(x, y));
    }
    EXPECT_EQ(Difference(expected.Content(), sheet.Painted()), "");
}

} // namespace

} // namespace kiv::test
