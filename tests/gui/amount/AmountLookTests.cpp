// Colours, fonts and size of a box on the screen.

#include "tests/gui/amount/AmountTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/MeasuredText.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <algorithm>
#include <map>

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
    static LONG HeightOf(HWND window)
    {
        RECT outer = {};
        GetWindowRect(window, &outer);
        return outer.bottom - outer.top;
    }
    // What the user typed, or a host would set, without a change to it.
    static void AssignUnrounded(HostedBox& box, const std::wstring& number)
    {
        if (box.Site().HasMember(L"AllowRounding"))
            box.Site().Put(L"AllowRounding", Variant(false));
        EXPECT_EQ(box.Assign(Variant(number)), S_OK);
    }
    // The box in view, without selection and caret.
    Pixels Unselected(HostedBox& box)
    {
        box.Select(0, 0);
        HideCaret(box.Edit());
        PumpPending(TheForm());
        return PixelsOfWindow(box.Edit());
    }
    // Of a picture of the control's inside, what is where the box is.
    static Pixels Beneath(const HostedBox& box, const Pixels& inside)
    {
        RECT place = {};
        GetWindowRect(box.Edit(), &place);
        MapWindowPoints(nullptr, box.Site().Window(), reinterpret_cast<POINT*>(&place), 2);
        Pixels beneath({place.right - place.left, place.bottom - place.top});
        for (int y = 0; y < beneath.Size().cy; ++y)
        {
            for (int x = 0; x < beneath.Size().cx; ++x)
                beneath.Set(x, y, inside.At(x + place.left, y + place.top));
        }
        return beneath;
    }
    static Pixels CellOf(const Pixels& picture, int left, int width)
    {
        Pixels cell({width, picture.Size().cy});
        for (int y = 0; y < picture.Size().cy; ++y)
        {
            for (int x = 0; x < width; ++x)
                cell.Set(x, y, picture.At(left + x, y));
        }
        return cell;
    }
    static HFONT FontHandleOf(const HostedBox& box)
    {
        HFONT handle = nullptr;
        EXPECT_HRESULT_SUCCEEDED(FontOf(box)->get_hFont(&handle));
        return handle;
    }
    static int WidthIn(const HostedBox& box, wchar_t character)
    {
        const Canvas canvas({1, 1});
        const HGDIOBJ former = SelectObject(canvas.Dc(), FontHandleOf(box));
        const int width = WidthOf(canvas.Dc(), {&character, 1});
        SelectObject(canvas.Dc(), former);
        return width;
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
        RecordOf(box.Site()).ClearNotifications();
        box.Site().Put(L"BackColor", Variant(0x00C0FFL));
        box.Site().Put(L"ForeColor", Variant(0xFF0000L));
        EXPECT_EQ(RecordOf(box.Site()).Notifications(), (Texts{L"BackColor", L"ForeColor"}));
        PumpPending(TheForm());
        ExpectLabel(box, label);
        box.Site().Focus();
        PumpPending(TheForm());
        EXPECT_EQ(Corner(box.Edit()), 0x00C0FFU);
        EXPECT_EQ(Corner(box.Site().Window()), 0x00C0FFU) << "the surface around it";
    }
}

// The amount does not jump when the box comes into view over its label. Below a thousand both show the same.
TEST_F(AmountLookTest, LabelAndBoxLookAlike)
{
    for (HostedBox& box : ShownBoxes())
    {
        for (const wchar_t* number : {L"1", L"0.0725", L"0.5", L"-234.56"})
        {
            if (number != std::wstring_view(L"1")) // a whole amount of cents shows none in the label
                AssignUnrounded(box, number);
            else
                box.Site().Put(L"Value", Variant(number));
            PumpPending(TheForm());
            const Pixels label = PixelsOfWindow(box.Site().Window());
            box.Site().Focus();
            EXPECT_EQ(Difference(Beneath(box, label), Unselected(box)), "") << number;
            TheForm().Find(L"elsewhere")->Focus();
            EXPECT_TRUE(IsParked(box));
        }
    }
}

// A slanted font's digits reach beyond their width: that much stays free beside the label's last digit, and
// beside the box's.
TEST_F(AmountLookTest, ASlantedAmountHasRoomForAllOfItsLastDigit)
{
    for (HostedBox& box : ShownBoxes())
    {
        ASSERT_HRESULT_SUCCEEDED(FontOf(box)->put_Italic(TRUE));
        ASSERT_HRESULT_SUCCEEDED(FontOf(box)->put_Size({{120000, 0}}));
        AssignUnrounded(box, L"0.4444");
        PumpPending(TheForm());
        int reach = 0;
        for (const wchar_t character : std::wstring_view(L"0123456789#-.,"))
            reach = std::max(reach, InkOf(FontHandleOf(box), character).End - WidthIn(box, character));
        ASSERT_GT(reach, 0);
        const LRESULT margins = SendMessageW(box.Edit(), EM_GETMARGINS, 0, 0);
        EXPECT_EQ(HIWORD(margins), 1 + reach);
        const Pixels label = PixelsOfWindow(box.Site().Window());
        const std::wstring text = box.Site().Get(L"Text").Text();
        const int end = InkOf(FontHandleOf(box), text.back()).End - WidthIn(box, text.back());
        const int last = label.Size().cx - 2 - reach + end - 1;
        EXPECT_GT(CellOf(label, last, 1).Count(GetSysColor(COLOR_WINDOW)), 0);
        EXPECT_LT(CellOf(label, last, 1).Count(GetSysColor(COLOR_WINDOW)), label.Size().cy)
            << "its last column";
        EXPECT_EQ(CellOf(label, last + 1, 1).Count(GetSysColor(COLOR_WINDOW)), label.Size().cy);

        box.Site().Focus();
        KnownPlatformGap("a text box shows what its characters reach into its margin",
                         [&] { return Difference(Beneath(box, label), Unselected(box)).empty(); });
    }
}

// A box that is in view is drawn elsewhere as it looks.
TEST_F(AmountLookTest, TheBoxIsDrawnElsewhereAsItLooks)
{
    for (HostedBox& box : ShownBoxes())
    {
        AssignUnrounded(box, L"0.4725");
        box.Site().Focus();
        ASSERT_TRUE(IsInView(box));
        EXPECT_EQ(Difference(Unselected(box), Beneath(box, DrawnElsewhere(box))), "");
    }
}

// Unlike on the screen, nobody can move the text to see the rest of it.
TEST_F(AmountLookTest, ABoxThatIsTooNarrowIsDrawnElsewhereWithSigns)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Focus();
        box.Show({L"1234567890123456789012345", 0, 0});
        ASSERT_TRUE(IsInView(box));
        const Pixels drawn = Beneath(box, DrawnElsewhere(box));
        const Canvas canvas(drawn.Size());
        RECT whole = {0, 0, drawn.Size().cx, drawn.Size().cy};
        FillRect(canvas.Dc(), &whole, GetSysColorBrush(COLOR_WINDOW));
        const HGDIOBJ former = SelectObject(canvas.Dc(), FontHandleOf(box));
        SetBkMode(canvas.Dc(), TRANSPARENT);
        const int sign = WidthOf(canvas.Dc(), L"#");
        const std::wstring signs(static_cast<std::size_t>((whole.right - 2) / sign), L'#');
        WriteMeasured(canvas.Dc(), whole.right - 1 - WidthOf(canvas.Dc(), signs), 0, signs);
        SelectObject(canvas.Dc(), former);
        EXPECT_EQ(Difference(canvas.Content(), drawn), "");
        EXPECT_EQ(box.Text(), L"1234567890123456789012345");
    }
}

// Equal digits stand in equal columns, whatever stands at their left, and have all their pixels.
TEST_F(AmountLookTest, AColumnOfAmountsLinesUp)
{
    const std::vector<std::wstring> amounts = {
        L"1",      L"12",       L"3",        L"-4",        L"1235",    L"6",          L"98767",
        L"-128",   L"1234569",  L"1000000",  L"1.01",      L"22.12",   L"-333.23",    L"4444.34",
        L"-55.45", L"66666.56", L"-7777.67", L"888888.78", L"9999.89", L"-1234567.9",
    };
    for (const bool isCurrency : {true, false})
    {
        SCOPED_TRACE(isCurrency ? "currency" : "percent");
        StartAnew();
        std::vector<HostedBox> column;
        for (const LONG top : {0, 26, 52, 78})
        {
            const auto place = Placed({20, top, 140, top + 24});
            column.push_back(isCurrency ? AddCurrencyBox(place) : AddPercentBox(place));
        }
        ShowWithFocusElsewhere();
        // By the character and how far it ends from the right.
        std::map<std::pair<wchar_t, int>, Pixels> known;
        int compared = 0;
        for (std::size_t i = 0; i < amounts.size(); ++i)
        {
            SCOPED_TRACE(Narrow(amounts[i]));
            HostedBox& box = column[i % column.size()];
            AssignUnrounded(box, amounts[i]);
            PumpPending(TheForm());
            const Pixels shown = PixelsOfWindow(box.Site().Window());
            const std::wstring text = box.Site().Get(L"Text").Text();
            ExpectLabel(box, text);
            int end = 0;
            for (auto character = text.rbegin(); character != text.rend(); ++character)
            {
                const int width = WidthIn(box, *character);
                const Pixels cell = CellOf(shown, shown.Size().cx - 2 - end - width, width);
                const auto [entry, isNew] = known.try_emplace({*character, end}, cell);
                EXPECT_EQ(Difference(entry->second, cell), "")
                    << Narrow(std::wstring(1, *character)) << " at " << end;
                compared += isNew ? 0 : 1;
                end += width;
            }
        }
        EXPECT_GT(compared, 40);
    }
}

TEST_F(AmountLookTest, GrowsWithItsFontAndCentresBoth)
{
    for (HostedBox& box : ShownBoxes())
    {
        box.Site().Put(L"Value", Variant(short{1}));
        const LONG before = HeightOf(box.Site().Window());
        EXPECT_HRESULT_SUCCEEDED(FontOf(box)->put_Size({{300000, 0}}));
        PumpPending(TheForm());
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
        PumpPending(TheForm());
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
