// What is drawn where the user has chosen few colours that stand out: nothing but the scheme's own.

#include "tests/gui/HostedTest.h"
#include "tests/gui/choice/HostedButton.h"
#include "tests/gui/lists/HostedCombo.h"
#include "tests/support/Pixels.h"
#include "tests/support/SystemColour.h"

#include "host/container/Button.h"

#include <algorithm>
#include <vector>

namespace kiv::test
{

namespace
{

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Black = RGB(0, 0, 0);

class HighContrastLook : public HostedTest, public testing::WithParamInterface<COLORREF>
{
protected:
    static COLORREF Ground() { return GetParam(); }
    static COLORREF Ink() { return GetParam() ^ White; }

    Pixels Client(HWND window)
    {
        PumpPending(TheForm());
        return PixelsOfWindow(window);
    }

    const HighContrast scheme_{GetParam()};
};

// Both are there, and nothing else.
void ExpectOnly(const Pixels& shown, COLORREF ink, COLORREF ground, const std::string& what)
{
    EXPECT_GT(shown.Count(ink), 0) << what;
    EXPECT_GT(shown.Count(ground), 0) << what;
    EXPECT_EQ(shown.Count(ink) + shown.Count(ground), shown.Size().cx * shown.Size().cy) << what;
}

TEST_P(HighContrastLook, SignsOfButtonsAreTextAndFace)
{
    AddElsewhere();
    HostedButton button(TheForm(), Placed({20, 60, 120, 96}));
    button.SetCaption(L"");
    ShowForm();
    struct Sign
    {
        long Type;
        long Status;
    };
    for (const Sign sign :
         {Sign{0, 1}, Sign{0, 2}, Sign{1, 0}, Sign{2, 0}, Sign{3, 0}, Sign{4, 0}, Sign{5, 0}})
    {
        const std::string what =
            "type " + std::to_string(sign.Type) + ", status " + std::to_string(sign.Status);
        button.Put(L"PictureType", sign.Type);
        button.Put(L"DetailStatus", sign.Status);
        button.SetEnabled(true);
        ExpectOnly(Cut(Client(button.Button()), {3, 3, 97, 33}), Ink(), Ground(), what);
        button.SetEnabled(false);
        ExpectOnly(Cut(Client(button.Button()), {3, 3, 97, 33}), HighContrast::Disabled, Ground(),
                   what + ", disabled");
    }
}

// Where else it would be black on black.
TEST_P(HighContrastLook, TheFrameOfAFocusedButtonIsTheSchemes)
{
    AddElsewhere();
    HostedButton button(TheForm(), Placed({20, 60, 120, 96}));
    ShowForm();
    button.Site().Focus();
    const Pixels shown = Client(button.Button());
    for (int x = 0; x < shown.Size().cx - 1; ++x)
        EXPECT_EQ(shown.At(x, 0), Ink()) << x;
}

TEST_P(HighContrastLook, OptionsAreTextAndGround)
{
    AddElsewhere();
    HostedYesNo answer(TheForm(), Placed({20, 60, 140, 80}));
    ShowForm();
    const RECT yes = {0, 3, 14, 17};
    const Pixels blank = Cut(Client(answer.Window()), yes);
    ExpectOnly(blank, Ink(), Ground(), "blank");
    ASSERT_HRESULT_SUCCEEDED(answer.Control()->put_Value(Yes));
    const Pixels set = Cut(Client(answer.Window()), yes);
    ExpectOnly(set, Ink(), Ground(), "set");
    EXPECT_GT(set.Count(Ink()), blank.Count(Ink())) << "the dot";
    ASSERT_HRESULT_SUCCEEDED(answer.Control()->put_Enabled(VARIANT_FALSE));
    ExpectOnly(Cut(Client(answer.Window()), yes), HighContrast::Disabled, Ground(), "disabled");
}

// The circle is closed: from its middle one meets ink in every direction.
TEST_P(HighContrastLook, AnOptionIsAWholeCircle)
{
    AddElsewhere();
    HostedYesNo answer(TheForm(), Placed({20, 60, 140, 80}));
    ShowForm();
    const Pixels circle = Cut(Client(answer.Window()), {0, 3, 14, 17});
    const POINT directions[] = {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}};
    for (const POINT direction : directions)
    {
        bool met = false;
        for (int step = 0; step < 6; ++step)
            met = met || circle.At(7 + step * direction.x, 7 + step * direction.y) == Ink();
        EXPECT_TRUE(met) << direction.x << ", " << direction.y;
    }
}

TEST_P(HighContrastLook, SignsOfAListAreTextAndGroundAlsoOnTheHighlight)
{
    AddElsewhere();
    HostedCombo combo(TheForm(), Placed({20, 60, 160, 84}));
    combo.Fill({1, 2, 1});
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    ShowForm();
    combo.Open(true);
    PumpPending(TheForm());
    const HWND list = combo.List();
    const auto sign = [&](int index) {
        RECT place = {};
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
        return Cut(PixelsOfWindow(list), {place.left, place.top, place.left + 14, place.bottom});
    };
    ExpectOnly(sign(0), Ink(), Ground(), "partial");
    ExpectOnly(sign(1), Ink(), Ground(), "complete");
    ExpectOnly(sign(2), White, HighContrast::Chosen, "selected");
    combo.Open(false);
}

INSTANTIATE_TEST_SUITE_P(Grounds, HighContrastLook, testing::Values(Black, White),
                         [](const auto& row) { return row.param == Black ? "Black" : "White"; });

} // namespace

} // namespace kiv::test
