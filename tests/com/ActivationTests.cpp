// A control comes to life on a host's form and leaves it again: the calls that the host hears, in order.

#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

HRESULT DoVerb(const SitedControl& control, LONG verb)
{
    return control.Query<IOleObject>()->DoVerb(verb, nullptr, &control.Site(), 0,
                                               control.Site().Window().Handle(), &control.Site().Position());
}

HWND WindowOf(const SitedControl& control)
{
    long window = 0;
    Check(control->get_hwnd(&window));
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
}

const std::vector<ExpectedCall> InPlaceActivation = {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                                     "GetWindowContext", May("ShowObject")};
// Behind an in-place activation; the focus may arrive before or after the frame hears of it.
const std::vector<ExpectedCall> UiActivation = {"OnUIActivate",
                                                May("OnFocus(true)"),
                                                "Frame::SetActiveObject(control)",
                                                May("Frame::SetBorderSpace"),
                                                "Document::SetActiveObject(control)",
                                                May("Document::SetBorderSpace"),
                                                May("OnFocus(true)")};
const std::vector<ExpectedCall> UiDeactivation = {May("OnFocus(false)"), "Frame::SetActiveObject(null)",
                                                  "Document::SetActiveObject(null)", "OnUIDeactivate",
                                                  May("OnFocus(false)")};
const std::vector<ExpectedCall> InPlaceDeactivation = {May("OnFocus(false)"), "OnInPlaceDeactivate"};

std::vector<ExpectedCall> operator+(std::vector<ExpectedCall> first, const std::vector<ExpectedCall>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class ActivationTest : public LibraryTest
{
};

TEST_F(ActivationTest, SitingAndLoadingCallNothing)
{
    const SitedControl control;
    control.InitNew();
    control.Site().Log().ExpectCalls({});
    EXPECT_TRUE(control.Site().AmbientsRead().count(DISPID_AMBIENT_FONT));
}

TEST_F(ActivationTest, InPlaceShowsTheWindowWhereTheHostWantsIt)
{
    const SitedControl control;
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation);

    HWND window = nullptr;
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->GetWindow(&window)), Hr(S_OK));
    EXPECT_EQ(window, WindowOf(control));
    EXPECT_EQ(GetParent(window), control.Site().Window().Handle());
    EXPECT_TRUE(IsWindowVisible(window));
    RECT position = {};
    GetWindowRect(window, &position);
    MapWindowPoints(nullptr, control.Site().Window().Handle(), reinterpret_cast<POINT*>(&position), 2);
    EXPECT_TRUE(EqualRect(&position, &control.Site().Position()))
        << position.left << ' ' << position.top << ' ' << position.right << ' ' << position.bottom;
    EXPECT_NE(GetFocus(), window) << "in-place activation does not take the focus";

    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceDeactivation);
    EXPECT_TRUE(FAILED(control.Query<IOleInPlaceObject>()->GetWindow(&window)));
    EXPECT_FALSE(IsWindowVisible(WindowOf(control)));
    EXPECT_NE(GetParent(WindowOf(control)), control.Site().Window().Handle());
}

TEST_F(ActivationTest, UiTakesTheFocusAndTellsFrameAndDocument)
{
    const SitedControl control;
    control.InitNew();
    SetForegroundWindow(control.Site().Window().Handle());
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation + UiActivation);
    EXPECT_EQ(GetFocus(), WindowOf(control));
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), control.Query<IOleInPlaceActiveObject>().Get());

    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->UIDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiDeactivation);
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), nullptr);
    EXPECT_TRUE(IsWindowVisible(WindowOf(control))) << "still active in place";
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceDeactivation);
}

TEST_F(ActivationTest, UiCanBeLeftInOneStep)
{
    const SitedControl control;
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation + UiActivation);
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiDeactivation + InPlaceDeactivation);
}

TEST_F(ActivationTest, HappensOnceHoweverOftenItIsAskedFor)
{
    const SitedControl control;
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation);
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls({May("ShowObject")});
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiActivation);
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls({May("ShowObject")});
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiDeactivation + InPlaceDeactivation);
    EXPECT_HRESULT_SUCCEEDED(control.Query<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_HRESULT_SUCCEEDED(control.Query<IOleInPlaceObject>()->UIDeactivate());
    control.Site().Log().ExpectCalls({});
}

TEST_F(ActivationTest, CanBeRepeatedAfterDeactivation)
{
    const SitedControl control;
    control.InitNew();
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
        EXPECT_EQ(GetParent(WindowOf(control)), control.Site().Window().Handle());
        EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
        control.Site().Log().ExpectCalls(InPlaceActivation + InPlaceDeactivation);
    }
}

TEST_F(ActivationTest, FollowsTheHostsRectangles)
{
    const SitedControl control;
    control.InitNew();
    ASSERT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().AllowAll();
    const RECT position = {30, 20, 180, 47};
    const RECT everything = {0, 0, 1000, 1000};
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->SetObjectRects(&position, &everything)), Hr(S_OK));
    RECT placed = {};
    GetWindowRect(WindowOf(control), &placed);
    MapWindowPoints(nullptr, control.Site().Window().Handle(), reinterpret_cast<POINT*>(&placed), 2);
    EXPECT_TRUE(EqualRect(&placed, &position));
}

TEST_F(ActivationTest, NeedsASiteForWindows)
{
    SiteShape shape;
    shape.InPlace = false;
    const SitedControl control(shape);
    control.InitNew();
    EXPECT_TRUE(FAILED(DoVerb(control, OLEIVERB_INPLACEACTIVATE)));
    EXPECT_FALSE(IsWindowVisible(WindowOf(control)));
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
}

TEST_F(ActivationTest, NeedsASite)
{
    const ComPtr<_YesNo> control = CreateYesNo();
    ComPtr<IOleObject> object;
    ASSERT_HRESULT_SUCCEEDED(control.As(&object));
    const RECT position = {0, 0, 100, 20};
    EXPECT_TRUE(FAILED(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, &position)));
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
}

TEST_F(ActivationTest, ManagesWithoutControlSiteAmbientsAndFrame)
{
    for (int left = 0; left < 8; ++left)
    {
        SiteShape shape;
        shape.ControlSite = (left & 1) != 0;
        shape.Ambients = (left & 2) != 0;
        shape.Frame = (left & 4) != 0;
        const SitedControl control(shape);
        control.Site().Log().AllowAll();
        control.InitNew();
        EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK)) << left;
        EXPECT_EQ(GetFocus(), WindowOf(control)) << left;
        EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
        UpdateWindow(WindowOf(control));
        EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK)) << left;
    }
}

TEST_F(ActivationTest, ManagesWithAmbientsThatFail)
{
    const SitedControl control;
    control.Site().FailAmbients();
    control.Site().Log().AllowAll();
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    ComPtr<IFontDisp> font;
    EXPECT_HRESULT_SUCCEEDED(control->get_Font(&font));
    EXPECT_NE(font.Get(), nullptr);
}

TEST_F(ActivationTest, ManagesWithAmbientsOfTheWrongType)
{
    const SitedControl control;
    control.Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(L"Tahoma"));
    control.Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(L"perhaps"));
    control.Site().SetAmbient(DISPID_AMBIENT_FORECOLOR, Variant::Null());
    control.Site().Log().AllowAll();
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    UpdateWindow(WindowOf(control));
    const auto oleControl = control.Query<IOleControl>();
    for (const DISPID ambient : {DISPID{DISPID_UNKNOWN}, DISPID{DISPID_AMBIENT_USERMODE},
                                 DISPID{DISPID_AMBIENT_FONT}, DISPID{-4711}})
        EXPECT_HRESULT_SUCCEEDED(oleControl->OnAmbientPropertyChange(ambient)) << ambient;
}

TEST_F(ActivationTest, RefusesVerbsThatItDoesNotKnow)
{
    const SitedControl control;
    control.InitNew();
    control.Site().Log().AllowAll();
    EXPECT_EQ(Hr(DoVerb(control, -99)), Hr(E_NOTIMPL));
    EXPECT_FALSE(IsWindowVisible(WindowOf(control)));
    // A positive one that the object does not know is carried out as the primary one.
    EXPECT_EQ(Hr(DoVerb(control, 99)), Hr(OLEOBJ_S_INVALIDVERB));
    EXPECT_TRUE(IsWindowVisible(WindowOf(control)));
}

TEST_F(ActivationTest, CanBeHidden)
{
    const SitedControl control;
    control.InitNew();
    control.Site().Log().AllowAll();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    EXPECT_HRESULT_SUCCEEDED(DoVerb(control, OLEIVERB_HIDE));
    EXPECT_FALSE(IsWindowVisible(WindowOf(control)));
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), nullptr);
    EXPECT_HRESULT_SUCCEEDED(DoVerb(control, OLEIVERB_SHOW));
    EXPECT_TRUE(IsWindowVisible(WindowOf(control)));
}

// --- Keys ---

MSG KeyDown(HWND window, WPARAM key)
{
    MSG message = {};
    message.hwnd = window;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return message;
}

TEST_F(ActivationTest, LeavesItsOwnKeysToItsWindowAndOffersTheFormsKeysToTheSite)
{
    const SitedControl control;
    control.InitNew();
    control.Site().Log().AllowAll();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().TakeCalls();
    const auto active = control.Query<IOleInPlaceActiveObject>();
    for (const WPARAM key : {WPARAM{VK_LEFT}, WPARAM{VK_RIGHT}, WPARAM{VK_SPACE}, WPARAM{'Y'}})
    {
        MSG message = KeyDown(WindowOf(control), key);
        EXPECT_EQ(Hr(active->TranslateAccelerator(&message)), Hr(S_FALSE)) << key;
        control.Site().Log().ExpectCalls({May("TranslateAccelerator")});
    }
    for (const WPARAM key : {WPARAM{VK_TAB}, WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}})
    {
        MSG message = KeyDown(WindowOf(control), key);
        EXPECT_EQ(Hr(active->TranslateAccelerator(&message)), Hr(S_FALSE))
            << "the site does not take " << key;
        control.Site().Log().ExpectCalls({"TranslateAccelerator"});
    }
}

TEST_F(ActivationTest, HasNoMnemonics)
{
    const SitedControl control;
    CONTROLINFO information = {};
    information.cb = sizeof information;
    information.cAccel = 7;
    EXPECT_HRESULT_SUCCEEDED(control.Query<IOleControl>()->GetControlInfo(&information));
    EXPECT_EQ(information.cAccel, 0);
    EXPECT_EQ(information.hAccel, nullptr);
    EXPECT_EQ(Hr(control.Query<IOleControl>()->GetControlInfo(nullptr)), Hr(E_POINTER));
}

} // namespace

} // namespace kiv::test
