// A YesNo whose texts a form file holds in other types.

#include "tests/com/SitedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

class OddValueTest : public LibraryTest, public testing::WithParamInterface<TestPropertyBag::Manner>
{
protected:
    static void LoadWith(const SitedControl& control, const wchar_t* key, const Variant& value)
    {
        const auto bag = MakeCom<TestPropertyBag>(GetParam());
        bag->Put(key, value);
        EXPECT_EQ(Hr(control.Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)), Hr(S_OK));
    }
};

// Whatever the type that a form file gives it, the text of a Boolean is a word.
TEST_P(OddValueTest, AsTextsOfBooleansAreWords)
{
    const SitedControl control;
    LoadWith(control, L"NoText", Variant(true));
    EXPECT_EQ(control.Shown(L"NoText"), Show(Variant(L"True")));
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Text", Variant(true)).Result), Hr(S_OK));
    EXPECT_EQ(control.Shown(L"Value"), Show(Variant(2L)));
    const SitedControl other;
    LoadWith(other, L"YesText", Variant(false));
    EXPECT_EQ(other.Shown(L"YesText"), Show(Variant(L"False")));
}

// A text put by program matches a NoText of another type when both read alike.
TEST_P(OddValueTest, AsNoTextIsComparedAsText)
{
    const SitedControl control;
    LoadWith(control, L"NoText", Variant(0L));
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Text", Variant(L"0")).Result), Hr(S_OK));
    EXPECT_EQ(control.Shown(L"Value"), Show(Variant(2L)));
}

INSTANTIATE_TEST_SUITE_P(Bags, OddValueTest,
                         testing::Values(TestPropertyBag::Manner::AsStored,
                                         TestPropertyBag::Manner::Converting),
                         [](const auto& row) {
                             return row.param == TestPropertyBag::Manner::AsStored ? "AsStored"
                                                                                   : "Converting";
                         });

} // namespace

} // namespace kiv::test
