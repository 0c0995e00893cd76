// Who looks at a form sees where the focus is, in whatever colours.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pixels.h"
#include "tests/support/SystemColour.h"

#include "host/container/Button.h"

#include <KivControls.h>

#include <optional>

namespace kiv::test
{

namespace
{

struct FocusRow : NamedRow
{
    const CLSID& ClassId;
};

const FocusRow FocusRows[] = {
    {"YesNo", CLSID_YesNo},           {"NumberBox", CLSID_NumberBox},
    {"DateBox", CLSID_DateBox},       {"CurrencyBox", CLSID_CurrencyBox},
    {"PercentBox", CLSID_PercentBox}, {"EnumList", CLSID_EnumList},
    {"ChkCombo", CLSID_ChkCombo},     {"PicCommand", CLSID_PicCommand},
};

class FocusSeen : public HostedTest, public testing::WithParamInterface<FocusRow>
{
protected:
    void ExpectSeen(long pictureType = 0)
    {
        StartAnew();
        host::Button& elsewhere = AddElsewhere();
        host::ControlSite& site =
            TheForm().Add(Library::UnderTest().Create(GetParam().ClassId).Get(), Placed({20, 40, 160, 64}));
        if (site.HasMember(L"AddItem"))
        {
            site.Call(L"AddItem", {Variant(L"Item")});
            site.Put(L"ListIndex", Variant(short{0}));
        }
        if (pictureType != 0)
            site.Put(L"PictureType", Variant(pictureType));
        ShowForm();
        elsewhere.Focus();
        PumpPending(TheForm());
        const Pixels without = PixelsOfWholeWindow(site.Window());
        site.Focus();
        // The caret of a box blinks.
        EXPECT_TRUE(PumpUntil(
            TheForm(), [&] { return !Difference(without, PixelsOfWholeWindow(site.Window())).empty(); }));
        elsewhere.Focus();
        PumpPending(TheForm());
        EXPECT_EQ(Difference(without, PixelsOfWholeWindow(site.Window())), "");
    }
};

TEST_P(FocusSeen, InTheUsualColours)
{
    ExpectSeen();
}

TEST_P(FocusSeen, InHighContrast)
{
    for (const COLORREF ground : {RGB(0, 0, 0), RGB(255, 255, 255)})
    {
        SCOPED_TRACE(ground);
        const HighContrast scheme(ground);
        ExpectSeen();
    }
}

// They show none otherwise.
class LinkFocusSeen : public FocusSeen
{
};

TEST_P(LinkFocusSeen, InHighContrast)
{
    const HighContrast scheme(RGB(0, 0, 0));
    for (const long link : {3L, 4L, 5L})
    {
        SCOPED_TRACE(link);
        ExpectSeen(link);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, LinkFocusSeen, testing::Values(FocusRow{{"PicCommand"}, CLSID_PicCommand}),
                         RowName());

INSTANTIATE_TEST_SUITE_P(Rows, FocusSeen, testing::ValuesIn(FocusRows), RowName());

} // namespace

} // namespace kiv::test
