// What a YesNo shows, held pixel by pixel against a picture painted independently.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/TestFont.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class YesNoPaintTest : public HostedTest
{
protected:
    // A control without the focus, on a form that is shown.
    HostedYesNo& Shown(RECT bounds = {20, 20, 140, 40})
    {
        AddElsewhere();
        control_ = std::make_unique<HostedYesNo>(TheForm(), Placed(bounds));
        ShowForm();
        return *control_;
    }

    // Handles the painting that waits and holds the picture against the look.
    void ExpectPicture(const YesNoLook& look)
    {
        PumpPending(TheForm());
        EXPECT_EQ(Difference(PaintYesNo(look, FocusAt::None), PixelsOfWindow(control_->Window())), "");
    }

private:
    std::unique_ptr<HostedYesNo> control_;
};

struct HeightRow
{
    int Height;
    int ImageTop;
};

// Half of what is left over, truncated toward zero.
constexpr HeightRow HeightRows[] = {{1, -6}, {4, -5}, {5, -4}, {12, -1}, {13, 0}, {14, 0},
                                    {15, 0}, {16, 1}, {17, 1}, {20, 3},  {21, 3}, {33, 9}};

// The topmost row of the image has its black in columns 5 to 8 of the mask, and is drawn in a colour that is
// not the background's.
int TopOfOptionImage(const Pixels& picture, COLORREF backColor)
{
    for (int y = 0; y < picture.Size().cy; ++y)
    {
        for (int x = 0; x < 14; ++x)
        {
            if (picture.At(x, y) != backColor)
                return y;
        }
    }
    return -1;
}

TEST_F(YesNoPaintTest, CentresTheOptionImagesAtAnyHeight)
{
    HostedYesNo& control = Shown();
    // Where the image itself begins within its 14 rows.
    control.Site().Move({20, 20, 140, 20 + 14});
    PumpPending(TheForm());
    const COLORREF backColor = control.Look().BackColor;
    const int margin = TopOfOptionImage(PixelsOfWindow(control.Window()), backColor);
    ASSERT_GE(margin, 0);
    for (const HeightRow& row : HeightRows)
    {
        SCOPED_TRACE(row.Height);
        control.Site().Move({20, 20, 140, 20 + row.Height});
        ASSERT_EQ(control.Size().cy, row.Height);
        ExpectPicture(control.Look());
        if (row.ImageTop >= 0)
        {
            EXPECT_EQ(TopOfOptionImage(PixelsOfWindow(control.Window()), backColor), row.ImageTop + margin);
        }
    }
}

TEST_F(YesNoPaintTest, ShowsNothingAtNoHeight)
{
    HostedYesNo& control = Shown();
    for (const RECT& bounds : {RECT{20, 20, 140, 20}, RECT{20, 20, 20, 40}, RECT{20, 20, 20, 20}})
    {
        control.Site().Move(bounds);
        PumpPending(TheForm());
        const SIZE size = control.Size();
        EXPECT_TRUE(size.cx == 0 || size.cy == 0);
        control.SetValue(3 - control.Value());
        AnswerEnums focus = No;
        EXPECT_HRESULT_SUCCEEDED(control.Control()->DrawFocusState(&focus));
    }
    control.Site().Move({20, 20, 140, 40});
    ExpectPicture(control.Look());
}

TEST_F(YesNoPaintTest, LaysOutAnyWidth)
{
    HostedYesNo& control = Shown();
    control.SetValue(2);
    for (const int width : {1, 2, 13, 14, 19, 20, 33, 50, 72, 73, 74, 99, 120, 260})
    {
        SCOPED_TRACE(width);
        control.Site().Move({20, 20, 20 + width, 40});
        ASSERT_EQ(control.Size().cx, width);
        ExpectPicture(control.Look());
    }
}

TEST_F(YesNoPaintTest, ShowsWhichOptionIsSelected)
{
    HostedYesNo& control = Shown();
    for (const long value : {1, 2, 5, -1, 0})
    {
        SCOPED_TRACE(value);
        control.SetValue(value);
        YesNoLook look = control.Look();
        look.Value = value;
        ExpectPicture(look);
    }
    // Else the above would hold for images that are all alike.
    YesNoLook look = control.Look();
    const Pixels neither = PaintYesNo(look, FocusAt::None);
    for (const long value : {1, 2})
    {
        look.Value = value;
        EXPECT_FALSE(PaintYesNo(look, FocusAt::None) == neither);
    }
}

constexpr OLE_COLOR SystemColor(int index)
{
    return 0x80000000U | static_cast<OLE_COLOR>(index);
}

struct ColorRow
{
    OLE_COLOR Color;
    COLORREF Shown;
};

std::vector<ColorRow> ColorRows()
{
    std::vector<ColorRow> rows;
    for (const COLORREF color : {RGB(255, 0, 0), RGB(0, 0, 0), RGB(255, 255, 255), RGB(18, 52, 86)})
        rows.push_back({color, color});
    for (const int index : {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_HIGHLIGHT,
                            COLOR_BTNSHADOW, COLOR_INFOBK})
        rows.push_back({SystemColor(index), GetSysColor(index)});
    return rows;
}

TEST_F(YesNoPaintTest, IsFilledWithBackColor)
{
    HostedYesNo& control = Shown();
    for (const ColorRow& row : ColorRows())
    {
        for (const long value : {0, 1, 2})
        {
            SCOPED_TRACE(testing::Message() << std::hex << row.Color << " value " << value);
            control.SetValue(value);
            control.TakeTrace();
            control.Site().Put(L"BackColor", Variant(static_cast<long>(row.Color)));
            EXPECT_EQ(control.TakeTrace(), "BackColor");
            OLE_COLOR color = 0;
            EXPECT_HRESULT_SUCCEEDED(control.Control()->get_BackColor(&color));
            EXPECT_EQ(color, row.Color);
            YesNoLook look = control.Look();
            look.BackColor = row.Shown;
            ExpectPicture(look);
        }
    }
}

TEST_F(YesNoPaintTest, WritesItsCaptionsInForeColor)
{
    HostedYesNo& control = Shown();
    for (const ColorRow& row : ColorRows())
    {
        SCOPED_TRACE(testing::Message() << std::hex << row.Color);
        control.TakeTrace();
        control.Site().Put(L"ForeColor", Variant(static_cast<long>(row.Color)));
        EXPECT_EQ(control.TakeTrace(), "ForeColor");
        OLE_COLOR color = 0;
        EXPECT_HRESULT_SUCCEEDED(control.Control()->get_ForeColor(&color));
        EXPECT_EQ(color, row.Color);
        YesNoLook look = control.Look();
        look.ForeColor = row.Shown;
        ExpectPicture(look);
    }
}

TEST_F(YesNoPaintTest, BeginsInTheColoursOfAButton)
{
    HostedYesNo& control = Shown();
    YesNoLook look = control.Look();
    look.BackColor = GetSysColor(COLOR_BTNFACE);
    look.ForeColor = GetSysColor(COLOR_BTNTEXT);
    ExpectPicture(look);
}

TEST_F(YesNoPaintTest, EmbossesItsCaptionsWhileDisabled)
{
    HostedYesNo& control = Shown();
    for (const OLE_COLOR backColor : {SystemColor(COLOR_BTNFACE), OLE_COLOR{RGB(0, 64, 128)}})
    {
        control.Site().Put(L"BackColor", Variant(static_cast<long>(backColor)));
        control.Site().Put(L"ForeColor", Variant(static_cast<long>(RGB(255, 0, 0))));
        for (const long value : {0, 1, 2})
        {
            control.SetValue(value);
            YesNoLook look = control.Look();
            const Pixels enabled = PixelsOfWindow(control.Window());
            control.Site().Put(L"Enabled", Variant(false));
            look.Enabled = false;
            ExpectPicture(look);
            const Pixels disabled = PixelsOfWindow(control.Window());
            EXPECT_FALSE(enabled == disabled);
            // The images stay as they are.
            for (int y = 0; y < look.Size.cy; ++y)
            {
                for (int x = 0; x < 14; ++x)
                    ASSERT_EQ(disabled.At(x, y), enabled.At(x, y));
            }
            control.Site().Put(L"Enabled", Variant(true));
            look.Enabled = true;
            ExpectPicture(look);
        }
    }
}

ComPtr<IFont> FontOf(const HostedYesNo& control)
{
    ComPtr<IFontDisp> object;
    ComPtr<IFont> font;
    EXPECT_HRESULT_SUCCEEDED(control.Control()->get_Font(&object));
    EXPECT_HRESULT_SUCCEEDED(object.As(&font));
    return font;
}

CY Points(int points)
{
    CY size = {};
    size.int64 = points * 10000LL;
    return size;
}

TEST_F(YesNoPaintTest, TakesAnyFont)
{
    HostedYesNo& control = Shown({20, 20, 240, 70});
    for (const wchar_t* name : {L"Tahoma", L"Courier"})
    {
        for (const int points : {6, 8, 11, 18, 30})
        {
            for (const bool strong : {false, true})
            {
                SCOPED_TRACE(testing::Message() << name << points << strong);
                FontFacts facts;
                facts.Name = name;
                facts.Size = Points(points);
                facts.Weight = strong ? FW_BOLD : FW_NORMAL;
                facts.Italic = facts.Underline = facts.Strikethrough = strong;
                const ComPtr<IFontDisp> font = MakeFont(facts);
                control.TakeTrace();
                EXPECT_HRESULT_SUCCEEDED(control.Control()->putref_Font(font.Get()));
                EXPECT_EQ(control.TakeTrace(), "Font");
                ComPtr<IFontDisp> kept;
                EXPECT_HRESULT_SUCCEEDED(control.Control()->get_Font(&kept));
                EXPECT_EQ(kept.Get(), font.Get());
                ComPtr<IFont> given;
                HFONT handle = nullptr;
                EXPECT_HRESULT_SUCCEEDED(font.As(&given));
                EXPECT_HRESULT_SUCCEEDED(given->get_hFont(&handle));
                YesNoLook look = control.Look();
                look.Font = handle;
                ExpectPicture(look);
            }
        }
    }
}

// A host changes an attribute of the font that it got from the control: nothing is set on the control itself.
TEST_F(YesNoPaintTest, FollowsEveryChangeOfItsFont)
{
    HostedYesNo& control = Shown({20, 20, 240, 70});
    const ComPtr<IFont> font = FontOf(control);
    Pixels before = PixelsOfWindow(control.Window());
    const auto expectChange = [&](const char* what) {
        SCOPED_TRACE(what);
        ExpectPicture(control.Look());
        const Pixels after = PixelsOfWindow(control.Window());
        EXPECT_FALSE(before == after);
        before = after;
    };
    EXPECT_HRESULT_SUCCEEDED(font->put_Size(Points(16)));
    expectChange("size");
    EXPECT_HRESULT_SUCCEEDED(font->put_Bold(TRUE));
    expectChange("bold");
    EXPECT_HRESULT_SUCCEEDED(font->put_Italic(TRUE));
    expectChange("italic");
    EXPECT_HRESULT_SUCCEEDED(font->put_Underline(TRUE));
    expectChange("underline");
    EXPECT_HRESULT_SUCCEEDED(font->put_Strikethrough(TRUE));
    expectChange("strikethrough");
    EXPECT_HRESULT_SUCCEEDED(font->put_Weight(FW_NORMAL));
    expectChange("weight");
    const Bstr name(L"Courier");
    EXPECT_HRESULT_SUCCEEDED(font->put_Name(name.Get()));
    expectChange("name");
}

TEST_F(YesNoPaintTest, MovesTheOptionsWithTheFont)
{
    HostedYesNo& control = Shown({20, 20, 240, 70});
    const POINT between = control.PlaceOf(Spot::BesideYes);
    EXPECT_HRESULT_SUCCEEDED(FontOf(control)->put_Size(Points(24)));
    ASSERT_LT(between.x, RegionsOf(control.Look()).YesRight);
    POINT place = between;
    ClientToScreen(control.Window(), &place);
    PointAt(place);
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    Settle();
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
    EXPECT_HRESULT_SUCCEEDED(FontOf(control)->put_Size(Points(8)));
    EXPECT_EQ(control.FocusShown(), "Yes");
    ASSERT_GT(between.x, RegionsOf(control.Look()).YesRight);
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    Settle();
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes");
}

// How many listen to a font's changes.
int ListenersOf(const ComPtr<IFont>& font)
{
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ComPtr<IEnumConnections> connections;
    EXPECT_HRESULT_SUCCEEDED(font.As(&container));
    EXPECT_HRESULT_SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, &point));
    // A font that nobody listens to may fail with CONNECT_E_NOCONNECTION.
    if (FAILED(point->EnumConnections(&connections)))
        return 0;
    int count = 0;
    CONNECTDATA listener = {};
    while (connections->Next(1, &listener, nullptr) == S_OK)
    {
        listener.pUnk->Release();
        ++count;
    }
    return count;
}

TEST_F(YesNoPaintTest, ListensToTheFontThatItHasOnly)
{
    HostedYesNo& control = Shown();
    const ComPtr<IFont> former = FontOf(control);
    EXPECT_EQ(ListenersOf(former), 1);
    EXPECT_HRESULT_SUCCEEDED(control.Control()->putref_Font(MakeFont().Get()));
    EXPECT_EQ(ListenersOf(former), 0);
    const YesNoLook look = control.Look();
    EXPECT_HRESULT_SUCCEEDED(former->put_Size(Points(30)));
    ExpectPicture(look);
    Click(control, Spot::NoFirstColumn);
    EXPECT_EQ(control.Value(), 2);

    const ComPtr<IFont> last = FontOf(control);
    EXPECT_EQ(ListenersOf(last), 1);
    DestroyForm();
    EXPECT_EQ(ListenersOf(last), 0);
}

TEST_F(YesNoPaintTest, TwoControlsShareAFontObject)
{
    HostedYesNo& one = Shown();
    HostedYesNo other(TheForm(), Placed({20, 50, 140, 70}));
    const ComPtr<IFontDisp> font = MakeFont();
    EXPECT_HRESULT_SUCCEEDED(one.Control()->putref_Font(font.Get()));
    EXPECT_HRESULT_SUCCEEDED(other.Control()->putref_Font(font.Get()));
    EXPECT_HRESULT_SUCCEEDED(FontOf(one)->put_Bold(TRUE));
    PumpPending(TheForm());
    EXPECT_EQ(one.FocusShown(), "None");
    EXPECT_EQ(other.FocusShown(), "None");
}

// Each control has its own font object from the form's: changing one does not change the other's, or the
// form's.
TEST_F(YesNoPaintTest, KeepsItsFontApartFromTheForms)
{
    HostedYesNo& one = Shown();
    HostedYesNo other(TheForm(), Placed({20, 50, 140, 70}));
    EXPECT_HRESULT_SUCCEEDED(FontOf(one)->put_Size(Points(30)));
    CY size = {};
    EXPECT_HRESULT_SUCCEEDED(FontOf(other)->get_Size(&size));
    EXPECT_NE(size.int64, Points(30).int64);
    ComPtr<IFont> formFont;
    ASSERT_HRESULT_SUCCEEDED(TheForm().FontObject()->QueryInterface(IID_PPV_ARGS(&formFont)));
    EXPECT_HRESULT_SUCCEEDED(formFont->get_Size(&size));
    EXPECT_NE(size.int64, Points(30).int64);
}

TEST_F(YesNoPaintTest, BeginsInTheFormsFont)
{
    FontFacts facts;
    facts.Name = L"Tahoma";
    facts.Size = Points(12);
    facts.Italic = true;
    host::SiteOptions options = Placed();
    options.ambientFont = MakeFont(facts);
    HostedYesNo control(TheForm(), options);
    EXPECT_EQ(FactsOf(FontOf(control).Get()), facts);
}

} // namespace

} // namespace kiv::test
