// Boxes on a form from right to left: digits, dates and amounts are read from left to right there, too.

#include "tests/gui/mirrored/MirroredTest.h"

#include "tests/gui/HostedBox.h"
#include "tests/support/NamedRow.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

struct BoxRow : NamedRow
{
    const CLSID& ClassId;
    std::wstring Keys;
    std::wstring Shown; // while it is typed
};

const BoxRow BoxRows[] = {
    {"NumberBox", CLSID_NumberBox, L"123456789", L"123-45-6789"},
    {"DateBox", CLSID_DateBox, L"041599", L"04/15/99"},
    {"CurrencyBox", CLSID_CurrencyBox, L"-12.5", L"-12.5"},
    {"PercentBox", CLSID_PercentBox, L"12.5", L"12.5"},
};

class MirroredBox : public MirroredTest, public testing::WithParamInterface<BoxRow>
{
protected:
    HostedBox Shown()
    {
        HostedBox box(TheForm(), GetParam().ClassId, Placed({20, 20, 140, 44}));
        AddElsewhere();
        ShowForm();
        return box;
    }
    void ExpectUnmirrored(const HostedBox& box)
    {
        EXPECT_FALSE(IsMirrored(box.Site().Window()));
        for (const HWND edit : box.Edits())
            EXPECT_FALSE(IsMirrored(edit));
    }
};

} // namespace

TEST_P(MirroredBox, LooksAsOnAnyOtherForm)
{
    HostedBox box = Shown();
    ExpectUnmirrored(box);
    box.Site().Focus();
    Settle();
    Type(GetParam().Keys);
    EXPECT_EQ(box.Text(), GetParam().Shown);
    TheForm().FocusNext(false);
    Settle();
    const auto [fromRight, fromLeft] = SeenBothWays(box.Site(), box.Site().Window());
    EXPECT_EQ(Difference(fromLeft, fromRight), "");
    const auto edits = SeenBothWays(box.Site(), box.Edit());
    EXPECT_EQ(Difference(edits.FromLeft, edits.FromRight), "");
    ExpectUnmirrored(box);
}

TEST_P(MirroredBox, TakesKeysAndClicksAsOnAnyOtherForm)
{
    HostedBox box = Shown();
    const RECT place = OnScreen(box.Site().Window());
    ClickAt({place.right - 6, (place.top + place.bottom) / 2});
    ASSERT_EQ(GetFocus(), box.Edit());
    Key(VK_HOME);
    Type(GetParam().Keys.substr(0, 1));
    EXPECT_EQ(box.Look().SelStart, 1);
}

INSTANTIATE_TEST_SUITE_P(Rows, MirroredBox, testing::ValuesIn(BoxRows), RowName());

} // namespace kiv::test
