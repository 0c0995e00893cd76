// Colours, fonts and size of a box on the screen.

#include "tests/gui/amount/AmountTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class AmountLookTest : public AmountTest
{
protected:
    // Both, on a form that is shown, with the focus elsewhere.
    std::vector<HostedBox> ShownBoxes()
    {
        std::vector<HostedBox> boxes = {AddCurrencyBox(), AddPercentBox(Placed({150, 20, 270, 45}))};
        ShowWithFocusElsewhere();
        return boxes;
    }

    // The lower left one, where no text is.
    static COLORREF Corner(HWND window)
    {
        const Pixels pixels = PixelsOfWindow(window);
        return pixels.At(0, pixels.Size().cy - 1);
    }
    static SIZE Inside(const HostedBox& box)
    {
        RECT inner = {};
        GetClientRect(box.Site().Window(), &inner);
        return {inner.right, inner.bottom};
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
};

TEST_F(AmountLookTest, LabelAndBoxHaveItsColours)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Put(L"Value", Variant(short{1}));
        EXPECT_EQ(box.Site().Get(L"BackColor").Long(), static_cast<long>(0x80000005));
        EXPECT_EQ(box.Site().Get(L"ForeColor").Long(), static_cast<long>(0x80000008));
        const std::wstring label = box.Site().Get(L"Text").Text();
        ExpectLabel(box, label);
        box.Site().ClearNotifications();
        box.Site().Put(L"BackColor", Variant(0x00C0FFL));
        box.Site().Put(L"ForeColor", Variant(0xFF0000L));
        EXPECT_EQ(box.Site().Notifications(), (Texts{L"BackColor", L"ForeColor"}));
        TheForm().PumpPending();
        ExpectLabel(box, label);
        box.Site().Focus();
        TheForm().PumpPending();
        EXPECT_EQ(Corner(box.Edit()), 0x00C0FFU);
        EXPECT_EQ(Corner(box.Site().Window()), 0x00C0FFU) << "the surface around it";
    }
}

// The amount does not jump when the box comes into view over its label.
TEST_F(AmountLookTest, LabelAndBoxLookAlike)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Put(L"Value", Variant(short{1}));
        TheForm().PumpPending();
        const Pixels label = PixelsOfWindow(box.Site().Window());
        box.Site().Focus();
        box.Select(0, 0);
        HideCaret(box.Edit());
        TheForm().PumpPending();
        RECT place = {};
        GetWindowRect(box.Edit(), &place);
        MapWindowPoints(nullptr, box.Site().Window(), reinterpret_cast<POINT*>(&place), 2);
        const Pixels edit = PixelsOfWindow(box.Edit());
        Pixels beneath(edit.Size());
        for (int y = 0; y < edit.Size().cy; ++y)
        {
            for (int x = 0; x < edit.Size().cx; ++x)
                beneath.Set(x, y, label.At(x + place.left, y + place.top));
        }
        EXPECT_EQ(Difference(beneath, edit), "");
    }
}

TEST_F(AmountLookTest, GrowsWithItsFontAndCentresBoth)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Put(L"Value", Variant(short{1}));
        const LONG before = HeightOf(box.Site().Window());
        EXPECT_HRESULT_SUCCEEDED(FontOf(box)->put_Size({{300000, 0}}));
        TheForm().PumpPending();
        const LONG after = HeightOf(box.Site().Window());
        EXPECT_GT(after, before);
        EXPECT_EQ(Inside(box).cy, HeightOf(box.Edit()) + 2) << "a pixel above and below the box";
        ExpectLabel(box, box.Site().Get(L"Text").Text());
        box.Site().Focus();
        EXPECT_TRUE(IsInView(box));
        // It does not shrink again by itself.
        EXPECT_HRESULT_SUCCEEDED(FontOf(box)->put_Size({{97500, 0}}));
        EXPECT_EQ(HeightOf(box.Site().Window()), after);
    }
}

TEST_F(AmountLookTest, ResizingParksTheBox)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Put(L"Value", Variant(short{1}));
        box.Site().Move({10, 50, 140, 100});
        TheForm().PumpPending();
        ExpectLabel(box, box.Site().Get(L"Text").Text());
        RECT edit = {};
        GetWindowRect(box.Edit(), &edit);
        EXPECT_EQ(edit.right - edit.left, Inside(box).cx - 2);
        TheForm().Remove(box.Site());
    }
}

TEST_F(AmountLookTest, ResizingParksABoxThatIsTypedInto)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Focus();
        ASSERT_TRUE(IsInView(box));
        box.Site().Move({10, 50, 140, 100});
        EXPECT_TRUE(IsParked(box));
        EXPECT_EQ(GetFocus(), box.Edit());
        TheForm().Remove(box.Site());
    }
}

// Of less height than the font needs, the control becomes as high as it needs to be, and no higher.
TEST_F(AmountLookTest, IsNeverTooLow)
{
    const RECT low = {20, 20, 140, 24};
    for (const bool isCurrency : {true, false})
    {
        HostedBox box = isCurrency ? AddCurrencyBox(Placed(low)) : AddPercentBox(Placed(low));
        ShowForm();
        EXPECT_EQ(Inside(box).cy, HeightOf(box.Edit()) + 2);
        TheForm().Remove(box.Site());
    }
}

} // namespace

} // namespace kiv::test
