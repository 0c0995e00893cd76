// What a container draws of a control by itself: on a mirrored device context it is as in a mirrored window.

#include "tests/gui/mirrored/MirroredTest.h"

#include "tests/support/NamedRow.h"

namespace kiv::test
{

namespace
{

constexpr SIZE Sheet = {160, 40};
constexpr RECT Place = {10, 5, 130, 35};

struct DrawnRow : NamedRow
{
    const CLSID& ClassId;
    bool Follows;
};

const DrawnRow DrawnRows[] = {
    {"YesNo", CLSID_YesNo, true},
    {"NumberBox", CLSID_NumberBox, false},
    {"CurrencyBox", CLSID_CurrencyBox, false},
    {"PicCommand", CLSID_PicCommand, true},
};

class MirroredDraw : public MirroredTest, public testing::WithParamInterface<DrawnRow>
{
protected:
    static Pixels Drawn(const host::ControlSite& site, DWORD layout)
    {
        const test::Canvas canvas(Sheet);
        SetLayout(canvas.Dc(), layout);
        EXPECT_HRESULT_SUCCEEDED(site.Draw(canvas.Dc(), Place));
        EXPECT_EQ(GetLayout(canvas.Dc()), layout);
        SetLayout(canvas.Dc(), 0);
        return canvas.Content();
    }
};

} // namespace

TEST_P(MirroredDraw, IsAsInAWindowOfThatDirection)
{
    AddElsewhere();
    host::ControlSite& site = Add(GetParam().ClassId, Placed({20, 20, 140, 50}));
    if (GetParam().ClassId == CLSID_CurrencyBox)
        site.Put(L"Value", Variant(L"12"));
    if (GetParam().ClassId == CLSID_PicCommand)
        site.Put(L"DetailStatus", Variant(2L));
    ShowForm();
    const RECT mirroredPlace = Mirrored(Place, Sheet.cx);
    const Pixels fromRight = Cut(Drawn(site, LAYOUT_RTL), mirroredPlace);
    const Pixels fromLeft = Cut(Drawn(site, 0), Place);
    if (!GetParam().Follows)
    {
        EXPECT_EQ(Difference(fromLeft, fromRight), "");
        return;
    }
    EXPECT_NE(Difference(fromLeft, fromRight), "");
    const HWND child = GetWindow(site.Window(), GW_CHILD);
    const auto [windowFromRight, windowFromLeft] = SeenBothWays(site, child ? child : site.Window());
    EXPECT_EQ(Difference(windowFromLeft, fromLeft), "");
    EXPECT_EQ(Difference(windowFromRight, fromRight), "");
    EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
    EXPECT_EQ(Difference(windowFromRight, Cut(Drawn(site, LAYOUT_RTL), mirroredPlace)), "") << "put away";
}

INSTANTIATE_TEST_SUITE_P(Rows, MirroredDraw, testing::ValuesIn(DrawnRows), RowName());

} // namespace kiv::test
