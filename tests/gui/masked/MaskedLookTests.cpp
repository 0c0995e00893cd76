// Colours, fonts and size of a box on the screen.

#include "tests/gui/masked/MaskedTest.h"

#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class MaskedLookTest : public MaskedTest
{
protected:
    static bool Shows(HWND edit, COLORREF color)
    {
        const Pixels pixels = PixelsOfWindow(edit);
        for (int y = 0; y < pixels.Size().cy; ++y)
        {
            for (int x = 0; x < pixels.Size().cx; ++x)
            {
                if (pixels.At(x, y) == color)
                    return true;
            }
        }
        return false;
    }
    static COLORREF Corner(HWND edit)
    {
        const Pixels pixels = PixelsOfWindow(edit);
        return pixels.At(pixels.Size().cx - 2, pixels.Size().cy - 2);
    }
    static LONG HeightOf(HWND window)
    {
        RECT outer = {};
        GetWindowRect(window, &outer);
        return outer.bottom - outer.top;
    }
    static ComPtr<IFont> FontOf(const HostedBox& box)
    {
        ComPtr<IFont> font;
        const Variant object = box.Site().Get(L"Font");
        EXPECT_HRESULT_SUCCEEDED(object.Object()->QueryInterface(IID_PPV_ARGS(&font)));
        return font;
    }
    static bool Called(const HostedBox& box, const char* call)
    {
        return std::ranges::count(RecordOf(box.Site()).Calls(), call) != 0;
    }
};

TEST_F(MaskedLookTest, HasItsColours)
{
    AddElsewhere();
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    ShowForm();
    for (HostedBox* box : {&number, &date})
    {
        EXPECT_EQ(Corner(box->Edit()), GetSysColor(COLOR_WINDOW));
        box->Site().Put(L"BackColor", Variant(0x00C0FFL));
        box->Site().Put(L"ForeColor", Variant(0xFF0000L));
        PumpPending(TheForm());
        EXPECT_EQ(Corner(box->Edit()), 0x00C0FFU);
        EXPECT_EQ(box->Site().Get(L"BackColor").Long(), 0x00C0FFL);
        EXPECT_TRUE(Shows(box->Edit(), 0xFF0000)) << "the text's colour";
        box->Site().Put(L"BackColor", Variant(static_cast<long>(0x8000000F)));
        PumpPending(TheForm());
        EXPECT_EQ(Corner(box->Edit()), GetSysColor(COLOR_BTNFACE));
    }
    number.SetStyle(2);
    number.Site().Put(L"BackColor", Variant(0x80FF80L));
    PumpPending(TheForm());
    EXPECT_EQ(Corner(number.Edit()), 0x80FF80U) << "the other box has them as well";
}

TEST_F(MaskedLookTest, GivesItsFontToEveryTextBox)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed({20, 60, 140, 80}));
    ShowForm();
    for (HostedBox* box : {&number, &date})
    {
        FontFacts facts;
        facts.Weight = 700;
        RecordOf(box->Site()).ClearNotifications();
        const ComPtr<IFontDisp> font = MakeFont(facts);
        box->Site().Put(L"Font", Variant(static_cast<IDispatch*>(font.Get())));
        EXPECT_EQ(RecordOf(box->Site()).Notifications(), Texts{L"Font"});
        HFONT handle = nullptr;
        EXPECT_HRESULT_SUCCEEDED(FontOf(*box)->get_hFont(&handle));
        for (const HWND edit : box->Edits())
        {
            LOGFONTW used = {};
            const auto inUse = reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0));
            ASSERT_NE(GetObjectW(inUse, sizeof used, &used), 0);
            EXPECT_EQ(used.lfWeight, 700);
            EXPECT_EQ(std::wstring(used.lfFaceName), L"Tahoma");
        }
        // The font object itself tells of a change.
        RecordOf(box->Site()).ClearNotifications();
        EXPECT_HRESULT_SUCCEEDED(FontOf(*box)->put_Italic(TRUE));
        EXPECT_EQ(RecordOf(box->Site()).Notifications(), Texts{L"Font"});
        for (const HWND edit : box->Edits())
        {
            LOGFONTW used = {};
            const auto inUse = reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0));
            ASSERT_NE(GetObjectW(inUse, sizeof used, &used), 0);
            EXPECT_NE(used.lfItalic, 0);
        }
    }
}

TEST_F(MaskedLookTest, GrowsWithItsFont)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed({150, 20, 270, 40}));
    ShowForm();
    for (HostedBox* box : {&number, &date})
    {
        const LONG before = HeightOf(box->Site().Window());
        RecordOf(box->Site()).ClearCalls();
        EXPECT_HRESULT_SUCCEEDED(FontOf(*box)->put_Size({{300000, 0}}));
        const LONG after = HeightOf(box->Site().Window());
        EXPECT_GT(after, before);
        EXPECT_GE(after, 30 * 96 / 72) << "a line of thirty points";
        EXPECT_TRUE(Called(*box, "IOleInPlaceSite::OnPosRectChange"));
        for (const HWND edit : box->Edits())
            EXPECT_EQ(HeightOf(edit), after);
        // It does not shrink again by itself.
        EXPECT_HRESULT_SUCCEEDED(FontOf(*box)->put_Size({{97500, 0}}));
        EXPECT_EQ(HeightOf(box->Site().Window()), after);
        for (const HWND edit : box->Edits())
            EXPECT_EQ(HeightOf(edit), after);
    }
}

// Some containers give no more room than they did.
TEST_F(MaskedLookTest, LivesWithAContainerThatInsistsOnItsSize)
{
    for (const bool isNumber : {true, false})
    {
        host::ControlSite* site = nullptr;
        int asked = 0;
        HostedBox box = isNumber ? AddNumberBox(Placed()) : AddDateBox(Placed());
        RecordOf(box.Site()).HandleCalls([&](std::string_view call) -> std::optional<HRESULT> {
            if (call != "IOleInPlaceSite::OnPosRectChange" || !site)
                return std::nullopt;
            ++asked;
            ComPtr<IOleInPlaceObject> object = site->Query<IOleInPlaceObject>();
            const RECT place = Placed().bounds;
            object->SetObjectRects(&place, &place);
            return S_OK;
        });
        ShowForm();
        site = &box.Site();
        EXPECT_HRESULT_SUCCEEDED(FontOf(box)->put_Size({{300000, 0}}));
        EXPECT_EQ(asked, 1) << "once is enough";
        EXPECT_EQ(HeightOf(box.Site().Window()), 20);
        EXPECT_GE(HeightOf(box.Edit()), 30 * 96 / 72) << "a text box is never lower than its line";
        site = nullptr;
        TheForm().Remove(box.Site());
    }
}

TEST_F(MaskedLookTest, FillsTheControl)
{
    HostedBox number = AddNumberBox();
    HostedBox date = AddDateBox(Placed({150, 20, 270, 40}));
    ShowForm();
    for (HostedBox* box : {&number, &date})
    {
        box->Site().Move({10, 10, 210, 70});
        RECT inner = {};
        GetClientRect(box->Site().Window(), &inner);
        EXPECT_EQ(inner.right, 200);
        EXPECT_EQ(inner.bottom, 60);
        for (const HWND edit : box->Edits())
        {
            RECT place = {};
            GetWindowRect(edit, &place);
            MapWindowPoints(nullptr, box->Site().Window(), reinterpret_cast<POINT*>(&place), 2);
            EXPECT_TRUE(EqualRect(&place, &inner)) << place.right << " x " << place.bottom;
        }
    }
}

} // namespace

} // namespace kiv::test
