// A YesNo on a form from right to left: Yes is at the right, with its circle at the right of its caption.

#include "tests/gui/mirrored/MirroredTest.h"

#include "tests/support/Accessible.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr int CircleSize = 14;

class MirroredYesNo : public MirroredTest
{
protected:
    HostedYesNo Shown()
    {
        AddElsewhere();
        HostedYesNo control(TheForm(), Placed());
        ShowForm();
        return control;
    }

    // The circles, from left to right.
    struct Circles
    {
        RECT Yes;
        RECT No;
    };
    static Circles CirclesOf(const HostedYesNo& control)
    {
        const SIZE size = control.Size();
        const LONG top = (size.cy - CircleSize) / 2;
        const LONG no = RegionsOf(control.Look()).NoLeft;
        return {{0, top, CircleSize, top + CircleSize}, {no, top, no + CircleSize, top + CircleSize}};
    }
};

} // namespace

TEST_F(MirroredYesNo, CirclesStandAtTheRightTheRightWayRound)
{
    HostedYesNo control = Shown();
    control.SetValue(Yes);
    EXPECT_TRUE(IsMirrored(control.Window()));
    const auto [fromRight, fromLeft] = SeenBothWays(control.Site(), control.Window());
    const Circles circles = CirclesOf(control);
    const LONG width = control.Size().cx;
    for (const RECT& circle : {circles.Yes, circles.No})
        EXPECT_EQ(Difference(Cut(fromLeft, circle), Cut(fromRight, Mirrored(circle, width))), "");
}

// All of it is painted, to the last column at either side.
TEST_F(MirroredYesNo, PaintsItsWholeGround)
{
    HostedYesNo control = Shown();
    constexpr COLORREF ground = RGB(255, 255, 192);
    control.Site().Put(L"BackColor", Variant(static_cast<long>(ground)));
    const Pixels seen = Seen(control.Window());
    const SIZE size = seen.Size();
    EXPECT_EQ(Cut(seen, {0, 0, size.cx, 2}).Count(ground), 2 * size.cx);
    EXPECT_EQ(Cut(seen, {0, size.cy - 2, size.cx, size.cy}).Count(ground), 2 * size.cx);
    EXPECT_EQ(Cut(seen, {0, 0, 1, size.cy}).Count(ground), size.cy);
}

TEST_F(MirroredYesNo, ClicksAnswerWhereTheOptionsStand)
{
    const HostedYesNo control = Shown();
    const RECT place = OnScreen(control.Window());
    const LONG middle = (place.top + place.bottom) / 2;
    ClickAt({place.right - 5, middle});
    EXPECT_EQ(control.Value(), Yes);
    ClickAt({place.left + 5, middle});
    EXPECT_EQ(control.Value(), No);
    ClickAt({(place.left + place.right) / 2 + 5, middle});
    EXPECT_EQ(control.Value(), No);
    ClickAt({place.left + 5, middle});
    EXPECT_EQ(control.Value(), Neither);
}

TEST_F(MirroredYesNo, ArrowsGoToTheOptionAtTheirSide)
{
    HostedYesNo control = Shown();
    control.Site().Focus();
    Settle();
    const auto chosenBy = [&](WORD arrow) {
        Key(arrow);
        control.SetValue(Neither);
        Key(VK_SPACE);
        return control.Value();
    };
    EXPECT_EQ(chosenBy(VK_LEFT), No);
    EXPECT_EQ(chosenBy(VK_RIGHT), Yes);
    EXPECT_EQ(chosenBy(VK_RIGHT), Yes);
    Turn(control.Site(), false);
    control.Site().Focus();
    Settle();
    EXPECT_EQ(chosenBy(VK_LEFT), Yes);
    EXPECT_EQ(chosenBy(VK_RIGHT), No);
}

TEST_F(MirroredYesNo, AssistiveToolsFindTheOptionsWhereTheyStand)
{
    const HostedYesNo control = Shown();
    const ComPtr<IAccessible> object = AccessibleOf(control.Window());
    const RECT whole = OnScreen(control.Window());
    for (const long option : {Yes, No})
    {
        RECT place = {};
        LONG width = 0;
        LONG height = 0;
        ASSERT_EQ(object->accLocation(&place.left, &place.top, &width, &height, Part(option)), S_OK);
        EXPECT_EQ(option == Yes ? place.left + width : place.left, option == Yes ? whole.right : whole.left);
        EXPECT_LT(width, (whole.right - whole.left) / 2);
        Variant hit;
        ASSERT_EQ(object->accHitTest(option == Yes ? whole.right - 5 : whole.left + 5, whole.top + 5,
                                     hit.Receive()),
                  S_OK);
        EXPECT_EQ(hit.Long(), option);
    }
    const auto neighbour = [&](long direction, long from) {
        Variant found;
        return object->accNavigate(direction, Part(from), found.Receive()) == S_OK ? found.Long() : 0L;
    };
    EXPECT_EQ(neighbour(NAVDIR_LEFT, Yes), No);
    EXPECT_EQ(neighbour(NAVDIR_RIGHT, Yes), 0);
    EXPECT_EQ(neighbour(NAVDIR_RIGHT, No), Yes);
    EXPECT_EQ(neighbour(NAVDIR_NEXT, Yes), No);
    EXPECT_EQ(neighbour(NAVDIR_PREVIOUS, No), Yes);
}

} // namespace kiv::test
