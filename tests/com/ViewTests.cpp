// A YesNo as a picture and a size.

#include "tests/com/DrawnControl.h"
#include "tests/com/SitedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <oleidl.h>

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

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
        FitToBounds(*control_);
    }
    void TearDown() override
    {
        control_.reset();
        LibraryTest::TearDown();
    }

    std::unique_ptr<SitedControl> control_;
};

TEST_F(ViewTest, ShowsTheAnswer)
{
    const Pixels neither = Drawn(*control_);
    Check(control_->Get()->put_Value(Yes));
    const Pixels yes = Drawn(*control_);
    Check(control_->Get()->put_Value(No));
    const Pixels no = Drawn(*control_);
    PutByName(control_->Get(), L"Value", Variant(5L));
    EXPECT_NE(Difference(neither, yes), "");
    EXPECT_NE(Difference(neither, no), "");
    EXPECT_NE(Difference(yes, no), "");
    EXPECT_EQ(Difference(neither, Drawn(*control_)), "") << "an unknown number shows no answer";
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
