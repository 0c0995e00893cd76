// Number and date boxes as pictures: the text box on them is drawn with them, without a window to see.

#include "tests/com/DrawnControl.h"
#include "tests/com/MaskedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <oleidl.h>

namespace kiv::test
{

namespace
{

constexpr COLORREF Ink = RGB(0, 0, 200);

class ViewedBox : public LibraryTest
{
protected:
    // A coloured box.
    explicit ViewedBox(REFCLSID classId) : control_(classId)
    {
        control_.Site().Log().AllowAll();
        control_.InitNew();
        control_.Put(L"BackColor", Variant(static_cast<long>(Back)));
        control_.Put(L"ForeColor", Variant(static_cast<long>(Ink)));
        FitToBounds(control_);
    }

    MaskedControl control_;
};

class MaskedViewTest : public ViewedBox, public testing::WithParamInterface<const CLSID*>
{
protected:
    MaskedViewTest() : ViewedBox(*GetParam()) {}
};

class RoutingViewTest : public ViewedBox
{
protected:
    RoutingViewTest() : ViewedBox(CLSID_NumberBox) {}
};

TEST_P(MaskedViewTest, ShowsTheBoxInsideTheBoundsOnly)
{
    const Pixels drawn = Drawn(control_);
    const int inside = (Bounds.right - Bounds.left) * (Bounds.bottom - Bounds.top);
    EXPECT_EQ(drawn.Count(Paper), CanvasSize.cx * CanvasSize.cy - inside);
    EXPECT_EQ(drawn.At(Bounds.left, Bounds.top), GetSysColor(COLOR_BTNSHADOW)) << "the sunken border";
    EXPECT_EQ(drawn.At(Bounds.right - 1, Bounds.bottom - 1), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_GT(drawn.Count(Back), 2000);
    EXPECT_GT(drawn.Count(Ink), 20) << "the mask";
}

TEST_P(MaskedViewTest, ShowsTheEntry)
{
    const Pixels empty = Drawn(control_);
    control_.Put(L"Value", Variant(*GetParam() == CLSID_DateBox ? L"12/31/04" : L"123-45-6789"));
    EXPECT_NE(Difference(empty, Drawn(control_)), "");
}

TEST_P(MaskedViewTest, IsGreyWhenDisabled)
{
    control_.Put(L"Enabled", Variant(false));
    const Pixels drawn = Drawn(control_);
    EXPECT_EQ(drawn.Count(Ink), 0);
    EXPECT_GT(drawn.Count(GetSysColor(COLOR_GRAYTEXT)), 20);
}

TEST_F(RoutingViewTest, DoesNotShowTheBoxThatIsNotInUse)
{
    control_.Put(L"Style", Variant(2L));
    EXPECT_EQ(Drawn(control_).Count(Ink), 0) << "an empty routing number, and not the mask under it";
    control_.Put(L"Text", Variant(L"011000015"));
    EXPECT_GT(Drawn(control_).Count(Ink), 20);
}

INSTANTIATE_TEST_SUITE_P(Boxes, MaskedViewTest, testing::Values(&CLSID_NumberBox, &CLSID_DateBox),
                         [](const testing::TestParamInfo<const CLSID*>& box) {
                             return *box.param == CLSID_DateBox ? "DateBox" : "NumberBox";
                         });

} // namespace

} // namespace kiv::test
