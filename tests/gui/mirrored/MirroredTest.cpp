#include "tests/gui/mirrored/MirroredTest.h"

namespace kiv::test
{

bool IsMirrored(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

RECT Mirrored(const RECT& place, LONG width)
{
    return {width - place.right, place.top, width - place.left, place.bottom};
}

void MirroredTest::SetUp()
{
    ListsTest::SetUp();
    StartAnew(true);
}

host::ControlSite& MirroredTest::Add(REFCLSID classId, host::SiteOptions options)
{
    return TheForm().Add(Library::UnderTest().Create(classId).Get(), std::move(options));
}

void MirroredTest::Turn(host::ControlSite& site, bool mirrored)
{
    EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
    const HWND page = TheForm().Page();
    const LONG_PTR style = GetWindowLongPtrW(page, GWL_EXSTYLE);
    SetWindowLongPtrW(page, GWL_EXSTYLE, mirrored ? style | WS_EX_LAYOUTRTL : style & ~WS_EX_LAYOUTRTL);
    EXPECT_HRESULT_SUCCEEDED(site.Activate());
    Settle();
}

Pixels MirroredTest::Seen(HWND window)
{
    Settle();
    UpdateWindow(window);
    return PixelsOfWindow(window);
}

MirroredTest::BothWays MirroredTest::SeenBothWays(host::ControlSite& site, HWND window)
{
    EXPECT_TRUE(IsMirrored(TheForm().Page()));
    const Pixels fromRight = Seen(window);
    Turn(site, false);
    const Pixels fromLeft = Seen(window);
    Turn(site, true);
    EXPECT_EQ(Difference(fromRight, Seen(window)), "") << "there and back again";
    return {fromRight, fromLeft};
}

void MirroredTest::ClickAt(POINT onScreen)
{
    PointAt(onScreen);
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    Settle();
}

RECT MirroredTest::OnScreen(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

} // namespace kiv::test
