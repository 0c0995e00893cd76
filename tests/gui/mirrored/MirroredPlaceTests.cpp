// A control that comes to a mirrored window, is clipped there and goes again.

#include "tests/gui/mirrored/MirroredTest.h"

#include "tests/support/NamedRow.h"
#include "tests/support/Thread.h"

namespace kiv::test
{

namespace
{

struct ClassRow : NamedRow
{
    const CLSID& ClassId;
    bool Follows;
};

const ClassRow ClassRows[] = {
    {"YesNo", CLSID_YesNo, true},
    {"NumberBox", CLSID_NumberBox, false},
    {"DateBox", CLSID_DateBox, false},
    {"CurrencyBox", CLSID_CurrencyBox, false},
    {"PercentBox", CLSID_PercentBox, false},
    {"EnumList", CLSID_EnumList, true},
    {"ChkCombo", CLSID_ChkCombo, true},
    {"PicCommand", CLSID_PicCommand, true},
    {"PicLite", CLSID_PicLite, true},
};

class MirroredPlace : public MirroredTest, public testing::WithParamInterface<ClassRow>
{
};

} // namespace

TEST_P(MirroredPlace, FollowsTheWindowAroundIt)
{
    host::ControlSite& site = Add(GetParam().ClassId, Placed({20, 20, 140, 50}));
    ShowForm();
    const HWND window = site.Window();
    EXPECT_EQ(IsMirrored(window), GetParam().Follows);
    const RECT page = OnScreen(TheForm().Page());
    EXPECT_EQ(OnScreen(window).right, page.right - 20);
    Turn(site, false);
    EXPECT_FALSE(IsMirrored(window));
    EXPECT_EQ(OnScreen(window).left, page.left + 20);
    Turn(site, true);
    EXPECT_EQ(IsMirrored(window), GetParam().Follows);
    EXPECT_EQ(OnScreen(window).right, page.right - 20);
    EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
    EXPECT_FALSE(IsMirrored(window)) << "while it is put away";
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        EXPECT_FALSE(IsMirrored(child)) << "while it is put away";
}

// The form is turned around the control, which hears of it with its next place.
TEST_P(MirroredPlace, FollowsWithItsNextPlace)
{
    host::ControlSite& site = Add(GetParam().ClassId, Placed({20, 20, 140, 50}));
    ShowForm();
    const HWND page = TheForm().Page();
    SetWindowLongPtrW(page, GWL_EXSTYLE, GetWindowLongPtrW(page, GWL_EXSTYLE) & ~WS_EX_LAYOUTRTL);
    RECT place = site.Bounds();
    OffsetRect(&place, 10, 0);
    site.Move(place);
    EXPECT_FALSE(IsMirrored(site.Window()));
    EXPECT_EQ(OnScreen(site.Window()).left, OnScreen(page).left + 30);
}

// A program may have all its windows mirrored from the first, the one that controls wait under included.
TEST_P(MirroredPlace, IsNotMirroredByItsProcessAlone)
{
    DWORD before = 0;
    ASSERT_TRUE(GetProcessDefaultLayout(&before));
    ASSERT_TRUE(SetProcessDefaultLayout(LAYOUT_RTL));
    {
        const Thread thread([] {
            EXPECT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
            {
                host::Form form(L"Second", {200, 60});
                EXPECT_TRUE(IsMirrored(form.Window()));
                host::SiteOptions options = Placed();
                options.activate = false;
                host::ControlSite& site =
                    form.Add(Library::UnderTest().Create(GetParam().ClassId).Get(), options);
                EXPECT_HRESULT_SUCCEEDED(site.Activate());
                const HWND window = site.Window();
                EXPECT_EQ(IsMirrored(window), GetParam().Follows);
                EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
                EXPECT_FALSE(IsMirrored(window));
                for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
                    EXPECT_FALSE(IsMirrored(child));
            }
            OleUninitialize();
        });
    }
    SetProcessDefaultLayout(before);
}

// What the container clips is not seen, whichever side the control's own places count from.
TEST_P(MirroredPlace, IsClippedWhereItsContainerSays)
{
    host::ControlSite& site = Add(GetParam().ClassId, Placed({20, 20, 140, 50}));
    ShowForm();
    const auto object = site.Query<IOleInPlaceObject>();
    RECT place = site.Bounds();
    RECT clip = place;
    clip.right = place.left + 40; // of what is the right part to the user
    ASSERT_HRESULT_SUCCEEDED(object->SetObjectRects(&place, &clip));
    const RECT seen = OnScreen(site.Window());
    const LONG middle = (seen.top + seen.bottom) / 2;
    const auto isThere = [&](POINT point) {
        const HWND found = WindowFromPoint(point);
        return found == site.Window() || IsChild(site.Window(), found);
    };
    EXPECT_TRUE(isThere({seen.right - 5, middle}));
    EXPECT_TRUE(isThere({seen.right - 35, middle}));
    EXPECT_FALSE(isThere({seen.right - 45, middle}));
    EXPECT_FALSE(isThere({seen.left + 5, middle}));
    ASSERT_HRESULT_SUCCEEDED(object->SetObjectRects(&place, &place));
    EXPECT_TRUE(isThere({seen.left + 5, middle}));
}

INSTANTIATE_TEST_SUITE_P(Rows, MirroredPlace, testing::ValuesIn(ClassRows), RowName());

} // namespace kiv::test
