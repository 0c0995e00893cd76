// The marks in a ChkCombo as the screen has them: far enough in lightness from what is under them, whatever
// the highlight's colour, and whole in items of any height.

#include "tests/gui/SignOnScreen.h"
#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pixels.h"
#include "tests/support/ShippedPicture.h"
#include "tests/support/SystemColour.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

struct SignRow : NamedRow
{
    long Status;
    const char* Picture;
    const char* SelectedPicture;
};

const SignRow SignRows[] = {{"Partial", PartialStatus, "chkcmb_par", "chkcmb_par_sel"},
                            {"Complete", CompleteStatus, "chkcmb_chk", "chkcmb_chk_sel"}};

class ChkComboSign : public ChkComboTest, public testing::WithParamInterface<SignRow>
{
protected:
    static RECT PlaceOf(const HostedCombo& combo, int index)
    {
        RECT place = {};
        SendMessageW(combo.List(), LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&place));
        return place;
    }
    // Of the open list; the ground is measured beside the text.
    static ShownContrast ContrastOf(const HostedCombo& combo, int index, const char* picture, COLORREF ground)
    {
        const Pixels list = PixelsOfWindow(combo.List());
        const RECT place = PlaceOf(combo, index);
        EXPECT_EQ(list.At(place.right - 5, (place.top + place.bottom) / 2), ground);
        return ContrastShown(list, SignIn(ShippedPicture(picture)),
                             {place.left, (place.top + place.bottom - 14) / 2}, ground);
    }
};

TEST_P(ChkComboSign, IsReadableSelectedAndUnselected)
{
    for (const COLORREF highlight : {GetSysColor(COLOR_HIGHLIGHT), RGB(0, 0, 128), RGB(10, 36, 106),
                                     RGB(51, 153, 255), RGB(0, 120, 215)})
    {
        SCOPED_TRACE(highlight);
        const SystemColour set(COLOR_HIGHLIGHT, highlight);
        StartAnew();
        HostedCombo combo = ShownCombo({GetParam().Status, GetParam().Status});
        ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
        combo.Open(true);
        Settle();
        const ShownContrast selected = ContrastOf(combo, 0, GetParam().SelectedPicture, highlight);
        EXPECT_GE(std::max(selected.Stroke, selected.Rim), ReadableContrast);
        const COLORREF window = GetSysColor(COLOR_WINDOW);
        EXPECT_GE(ContrastOf(combo, 1, GetParam().Picture, window).Stroke, ReadableContrast);
        combo.Open(false);
        Settle();
    }
}

TEST_P(ChkComboSign, ShowsItsRimOnABlackWindow)
{
    HostedCombo combo = AddCombo({GetParam().Status, BlankStatus});
    ASSERT_HRESULT_SUCCEEDED(combo->put_BackColor(0));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    ShowForm();
    combo.Open(true);
    Settle();
    EXPECT_GE(ContrastOf(combo, 0, GetParam().Picture, 0).Rim, ReadableContrast);
    combo.Open(false);
}

// Drawn one below the other, items would cut what reaches beyond the one above.
TEST_P(ChkComboSign, IsWholeInItemsOfAnyHeight)
{
    const StatusSign sign = SignIn(ShippedPicture(GetParam().Picture));
    for (int height = 13; height <= 20; ++height)
    {
        SCOPED_TRACE(height);
        StartAnew();
        HostedCombo combo = ShownCombo({BlankStatus, GetParam().Status, GetParam().Status, BlankStatus});
        SendMessageW(combo.Combo(), CB_SETITEMHEIGHT, 0, height);
        ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
        combo.Open(true);
        Settle();
        const Pixels list = PixelsOfWindow(combo.List());
        for (const int index : {1, 2})
        {
            const RECT place = PlaceOf(combo, index);
            ASSERT_EQ(place.bottom - place.top, height);
            const int top = (place.top + place.bottom - 14) / 2;
            for (const Dot dot : sign.Stroke)
            {
                const pictures::Colour colour = sign.StrokeColour;
                EXPECT_EQ(list.At(place.left + dot.X, top + dot.Y),
                          RGB(colour.red, colour.green, colour.blue))
                    << dot.X << ", " << dot.Y;
            }
        }
        combo.Open(false);
        Settle();
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboSign, testing::ValuesIn(SignRows), RowName());

} // namespace

} // namespace kiv::test
