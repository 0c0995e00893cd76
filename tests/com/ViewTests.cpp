// A YesNo as a picture and a size.

#include "tests/com/SitedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Pixels.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/core/Units.h"

#include <oleidl.h>

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr COLORREF Paper = RGB(255, 0, 255);
constexpr COLORREF Back = RGB(0, 200, 0);
constexpr SIZE CanvasSize = {200, 100};
constexpr RECT Bounds = {20, 10, 140, 50};

class ViewTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<SitedControl>();
        control_->Site().Log().AllowAll();
        control_->InitNew();
        Check(control_->Get()->put_BackColor(Back));
        // As large as the bounds, so that nothing is scaled.
        SIZEL size = {PixelsToHimetric(Bounds.right - Bounds.left, 96),
                      PixelsToHimetric(Bounds.bottom - Bounds.top, 96)};
        Check(control_->Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size));
    }
    void TearDown() override
    {
        control_.reset();
        LibraryTest::TearDown();
    }

    static void FillPaper(const Canvas& canvas)
    {
        const RECT all = {0, 0, CanvasSize.cx, CanvasSize.cy};
        const HBRUSH brush = CreateSolidBrush(Paper);
        FillRect(canvas.Dc(), &all, brush);
        DeleteObject(brush);
    }
    HRESULT Draw(HDC dc, const RECTL& bounds) const
    {
        return control_->Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc,
                                                    &bounds, nullptr, nullptr, 0);
    }
    Pixels Drawn() const
    {
        const Canvas canvas(CanvasSize);
        FillPaper(canvas);
        EXPECT_EQ(Hr(Draw(canvas.Dc(), {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom})), Hr(S_OK));
        return canvas.Content();
    }
    std::unique_ptr<SitedControl> control_;
};

TEST_F(ViewTest, ShowsTheAnswer)
{
    const Pixels neither = Drawn();
    Check(control_->Get()->put_Value(Yes));
    const Pixels yes = Drawn();
    Check(control_->Get()->put_Value(No));
    const Pixels no = Drawn();
    PutByName(control_->Get(), L"Value", Variant(5L));
    EXPECT_NE(Difference(neither, yes), "");
    EXPECT_NE(Difference(neither, no), "");
    EXPECT_NE(Difference(yes, no), "");
    EXPECT_EQ(Difference(neither, Drawn()), "") << "an unknown number shows no answer";
}

TEST_F(ViewTest, KeepsTheSizeThatItIsGiven)
{
    const auto object = control_->Query<IOleObject>();
    for (const SIZEL& given : {SIZEL{2540, 635}, SIZEL{1, 1}, SIZEL{5000, 2501}})
    {
        SIZEL size = given;
        SIZEL extent = {};
        EXPECT_EQ(Hr(object->SetExtent(DVASPECT_CONTENT, &size)), Hr(S_OK));
        EXPECT_EQ(Hr(object->GetExtent(DVASPECT_CONTENT, &extent)), Hr(S_OK));
        EXPECT_EQ(extent.cx, given.cx);
        EXPECT_EQ(extent.cy, given.cy);
    }
}

} // namespace

} // namespace kiv::test
