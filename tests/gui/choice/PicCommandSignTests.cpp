// The marks on a PicCommand as the screen has them: far enough from the face in lightness, and clear of the
// focus rectangle.

#include "tests/gui/HostedTest.h"
#include "tests/gui/SignOnScreen.h"
#include "tests/gui/choice/HostedButton.h"
#include "tests/support/NamedRow.h"
#include "tests/support/ShippedPicture.h"
#include "tests/support/SystemColour.h"

#include "host/container/Button.h"

#include <optional>

namespace kiv::test
{

namespace
{

constexpr int Width = 120;
constexpr int FocusInset = 4;

struct SignRow : NamedRow
{
    long DetailStatus;
    const char* Picture;
};

const SignRow SignRows[] = {{"Partial", 1, "partial"}, {"Complete", 2, "checkmark"}};

class PicCommandSign : public HostedTest, public testing::WithParamInterface<SignRow>
{
protected:
    HostedButton& Shown(int height = 28)
    {
        elsewhere_ = &AddElsewhere();
        button_.emplace(TheForm(), Placed({20, 20, 20 + Width, 20 + height}));
        button_->SetCaption(L"Details");
        button_->Put(L"DetailStatus", GetParam().DetailStatus);
        ShowForm();
        return *button_;
    }
    void FocusElsewhere()
    {
        elsewhere_->Focus();
        PumpPending(TheForm());
    }
    // All that waits is handled first.
    Pixels Look()
    {
        PumpPending(TheForm());
        return button_->Shown();
    }

private:
    host::Button* elsewhere_ = nullptr;
    std::optional<HostedButton> button_;
};

// Where the line is broken two neighbours are alike: by itself it takes every other pixel, from the face to
// its opposite.
void ExpectWholeFocusRectangle(const Pixels& shown)
{
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const int right = shown.Size().cx - FocusInset - 1;
    const int bottom = shown.Size().cy - FocusInset - 1;
    const auto expectLine = [&](POINT from, POINT step, int length, const char* side) {
        int dots = 0;
        COLORREF before = CLR_INVALID;
        for (int i = 0; i < length; ++i)
        {
            const COLORREF at = shown.At(from.x + i * step.x, from.y + i * step.y);
            EXPECT_TRUE(at == face || at == (face ^ 0xFFFFFF)) << side << ", pixel " << i;
            EXPECT_NE(at, before) << side << ", pixel " << i;
            before = at;
            dots += at != face;
        }
        EXPECT_GE(dots, length / 2) << side;
    };
    expectLine({FocusInset, FocusInset}, {1, 0}, right - FocusInset + 1, "top");
    expectLine({FocusInset, bottom}, {1, 0}, right - FocusInset + 1, "bottom");
    expectLine({FocusInset, FocusInset}, {0, 1}, bottom - FocusInset + 1, "left");
    expectLine({right, FocusInset}, {0, 1}, bottom - FocusInset + 1, "right");
}

TEST_P(PicCommandSign, LeavesTheFocusRectangleWhole)
{
    HostedButton& button = Shown();
    button.Site().Focus();
    for (int height = 21; height <= 60; ++height)
    {
        SCOPED_TRACE(height);
        button.Site().Move({20, 20, 20 + Width, 20 + height});
        ExpectWholeFocusRectangle(Look());
    }
}

TEST_P(PicCommandSign, LeavesTheFocusRectangleWholeWhilePressed)
{
    for (const int height : {21, 22, 23, 24, 28, 29, 60})
    {
        SCOPED_TRACE(height);
        StartAnew();
        HostedButton& button = Shown(height);
        button.Site().Focus();
        PumpPending(TheForm());
        PointAt(button.Middle());
        PressButton(MouseButton::Left);
        Settle();
        ExpectWholeFocusRectangle(Look());
        ReleaseButton(MouseButton::Left);
        Settle();
    }
}

TEST_P(PicCommandSign, IsReadableOnEveryFace)
{
    const StatusSign sign = SignIn(ShippedPicture(GetParam().Picture));
    HostedButton& button = Shown();
    for (const COLORREF face : {GetSysColor(COLOR_BTNFACE), RGB(192, 192, 192), RGB(212, 208, 200),
                                RGB(240, 240, 240), RGB(255, 255, 255)})
    {
        SCOPED_TRACE(face);
        const SystemColour set(COLOR_BTNFACE, face);
        for (const bool enabled : {true, false})
        {
            button.SetEnabled(enabled);
            FocusElsewhere();
            button.Site().Call(L"Refresh");
            const Pixels shown = Look();
            const COLORREF ground = shown.At(3, shown.Size().cy / 2);
            EXPECT_EQ(ground, face);
            const POINT place = {3, (shown.Size().cy - 10) / 2};
            EXPECT_GE(ContrastShown(shown, sign, place, ground).Stroke, ReadableContrast);
        }
    }
}

// The rim goes round all but the ends of a sign.
TEST_P(PicCommandSign, ShowsItsRimOnABlackFace)
{
    const StatusSign sign = SignIn(ShippedPicture(GetParam().Picture));
    HostedButton& button = Shown();
    const SystemColour set(COLOR_BTNFACE, RGB(0, 0, 0));
    FocusElsewhere();
    button.Site().Call(L"Refresh");
    const Pixels shown = Look();
    const POINT place = {3, (shown.Size().cy - 10) / 2};
    EXPECT_GE(ContrastShown(shown, sign, place, RGB(0, 0, 0)).Rim, ReadableContrast);
}

INSTANTIATE_TEST_SUITE_P(Rows, PicCommandSign, testing::ValuesIn(SignRows), RowName());

} // namespace

} // namespace kiv::test
