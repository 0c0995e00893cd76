#include "tests/com/resolution/ScreenedControl.h"

#include "runtime/com/Errors.h"
#include "runtime/core/Units.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <oleidl.h>

namespace kiv::test
{

namespace
{

RECT WindowRect(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

SIZE SizeOf(const RECT& place)
{
    return {place.right - place.left, place.bottom - place.top};
}

RECT PlaceIn(HWND window, HWND around)
{
    RECT place = WindowRect(window);
    MapWindowPoints(nullptr, around, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    return name;
}

std::string Described(HWND window, HWND around)
{
    return Narrow(ClassOf(window)) + " " + Figures(window == around ? RECT{} : PlaceIn(window, around)) +
           " font " + std::to_string(FontHeight(window));
}

} // namespace

ScreenedControl::ScreenedControl(SeveralScreens& screens, REFCLSID classId, int pixelsPerInch) :
    HeldControl(classId), screens_(screens), pixelsPerInch_(pixelsPerInch)
{
    Site().Log().AllowAll();
    Site().Log().OnCall([this](const std::string& call) {
        if (call != "OnPosRectChange")
            return;
        ++asked_;
        const RECT wanted = Site().AskedPosition();
        Check(Query<IOleInPlaceObject>()->SetObjectRects(&wanted, &wanted));
    });
    FontFacts font;
    font.Size.int64 = 82500;
    Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont(font).Get())));
    MoveTo(pixelsPerInch);
}

ScreenedControl::~ScreenedControl()
{
    Site().Log().OnCall({});
}

void ScreenedControl::Activate()
{
    const SIZE size = SizeOfExtent();
    Site().PlaceAt({10, 10, 10 + size.cx, 10 + size.cy});
    EXPECT_EQ(Hr(Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0,
                                             Site().Window().Handle(), &Site().Position())),
              Hr(S_OK));
}

void ScreenedControl::MoveTo(int pixelsPerInch)
{
    pixelsPerInch_ = pixelsPerInch;
    screens_.Put(Site().Window().Handle(), pixelsPerInch);
}

void ScreenedControl::Fit()
{
    Place(SizeOfExtent());
}

void ScreenedControl::Place(SIZE size)
{
    const RECT place = {10, 10, 10 + size.cx, 10 + size.cy};
    Check(Query<IOleInPlaceObject>()->SetObjectRects(&place, &place));
}

HWND ScreenedControl::Window() const
{
    HWND window = nullptr;
    Check(Query<IOleInPlaceObject>()->GetWindow(&window));
    return window;
}

SIZE ScreenedControl::SizeOfExtent() const
{
    SIZEL extent = {};
    Check(Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
    return {HimetricToPixels(extent.cx, pixelsPerInch_), HimetricToPixels(extent.cy, pixelsPerInch_)};
}

SIZE ScreenedControl::SizeOfWindow() const
{
    return SizeOf(WindowRect(Window()));
}

RECT ScreenedControl::Part(const wchar_t* windowClass, int number) const
{
    HWND part = nullptr;
    for (int at = 0; at <= number; ++at)
        part = FindWindowExW(Window(), part, windowClass, nullptr);
    EXPECT_TRUE(part) << Narrow(windowClass);
    return PlaceIn(part, Window());
}

Layout ScreenedControl::Seen() const
{
    Layout layout;
    layout.Size = SizeOfWindow();
    const HWND window = Window();
    layout.Windows.push_back(Described(window, window));
    for (HWND part = GetWindow(window, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT))
        layout.Windows.push_back(Described(part, window));
    const Canvas canvas(layout.Size);
    const RECTL bounds = {0, 0, layout.Size.cx, layout.Size.cy};
    EXPECT_EQ(Hr(Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.Dc(),
                                            &bounds, nullptr, nullptr, 0)),
              Hr(S_OK));
    layout.Picture = canvas.Content();
    return layout;
}

int ScreenResolution()
{
    const HDC screen = GetDC(nullptr);
    const int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return pixelsPerInch;
}

void ExpectSame(const Layout& expected, const Layout& actual)
{
    EXPECT_EQ(Figures(expected.Size), Figures(actual.Size));
    EXPECT_EQ(expected.Windows, actual.Windows);
    EXPECT_EQ(Difference(expected.Picture, actual.Picture), "");
}

LONG FontHeight(HWND window)
{
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    LOGFONTW attributes = {};
    if (!font || GetObjectW(font, sizeof attributes, &attributes) == 0)
        return 0;
    return attributes.lfHeight;
}

std::string Figures(SIZE size)
{
    return std::to_string(size.cx) + "x" + std::to_string(size.cy);
}

std::string Figures(const RECT& place)
{
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " + Figures(SizeOf(place));
}

} // namespace kiv::test
