// A control comes to life on a host's form and leaves it again: the calls that the host hears, in order.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

HRESULT DoVerb(const HeldControl& control, LONG verb)
{
    return control.Query<IOleObject>()->DoVerb(verb, nullptr, &control.Site(), 0,
                                               control.Site().Window().Handle(), &control.Site().Position());
}

// Of an active control.
HWND WindowOf(const HeldControl& control)
{
    HWND window = nullptr;
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->GetWindow(&window)), Hr(S_OK));
    return window;
}

bool HasFocus(HWND window)
{
    return GetFocus() == window || IsChild(window, GetFocus());
}

RECT PlaceOf(const HeldControl& control)
{
    RECT place = {};
    GetWindowRect(WindowOf(control), &place);
    MapWindowPoints(nullptr, control.Site().Window().Handle(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

using Calls = std::vector<ExpectedCall>;

// Behind an in-place activation; the focus may arrive before or after the frame hears of it.
const Calls UiActivation = {"OnUIActivate",
                            May("OnFocus(true)"),
                            "Frame::SetActiveObject(control)",
                            May("Frame::SetBorderSpace"),
                            "Document::SetActiveObject(control)",
                            May("Document::SetBorderSpace"),
                            May("OnFocus(true)")};
const Calls UiDeactivation = {May("OnFocus(false)"), "Frame::SetActiveObject(null)",
                              "Document::SetActiveObject(null)", "OnUIDeactivate", May("OnFocus(false)")};
const Calls InPlaceDeactivation = {May("OnFocus(false)"), "OnInPlaceDeactivate"};

Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class EachActivation : public EachPersisted
{
protected:
    static bool IsList() { return GetParam().Name == std::wstring(L"ChkCombo"); }
    static bool IsButton() { return GetParam().Name == std::wstring(L"PicCommand"); }
    // A picture has no font, and is not seen by the user.
    static bool IsPicture() { return GetParam().Name == std::wstring(L"PicLite"); }
    // A new control on a form. A button asks what the form calls it.
    static void Begin(const HeldControl& control)
    {
        control.InitNew();
        control.Site().Log().ExpectCalls(IsButton() ? Calls{"GetExtendedControl"} : Calls());
    }
    static Calls InPlaceActivation()
    {
        Calls calls = {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"};
        if (IsList())
            calls.emplace_back("OnPosRectChange");
        calls.push_back(May("ShowObject"));
        return calls;
    }
    // Where the host wants it; a drop-down list is as high as its font makes it.
    static void ExpectPlaced(const RECT& place, const RECT& wanted)
    {
        EXPECT_EQ(place.left, wanted.left);
        EXPECT_EQ(place.top, wanted.top);
        EXPECT_EQ(place.right, wanted.right);
        EXPECT_EQ(place.bottom == wanted.bottom, !IsList()) << place.bottom;
    }
};

TEST_P(EachActivation, SitingAndLoadingCallNothing)
{
    const HeldControl control(ClassId());
    Begin(control);
    control.Site().Log().ExpectCalls({});
    EXPECT_EQ(control.Site().AmbientsRead().count(DISPID_AMBIENT_FONT), IsPicture() ? 0U : 1U);
}

TEST_P(EachActivation, InPlaceShowsTheWindowWhereTheHostWantsIt)
{
    const HeldControl control(ClassId());
    Begin(control);
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation());

    const HWND window = WindowOf(control);
    EXPECT_EQ(GetParent(window), control.Site().Window().Handle());
    EXPECT_TRUE(IsWindowVisible(window));
    ExpectPlaced(PlaceOf(control), control.Site().Position());
    EXPECT_FALSE(HasFocus(window)) << "in-place activation does not take the focus";

    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceDeactivation);
    HWND none = nullptr;
    EXPECT_TRUE(FAILED(control.Query<IOleInPlaceObject>()->GetWindow(&none)));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_NE(GetParent(window), control.Site().Window().Handle());
}

TEST_P(EachActivation, UiTakesTheFocusAndTellsFrameAndDocument)
{
    const HeldControl control(ClassId());
    Begin(control);
    SetForegroundWindow(control.Site().Window().Handle());
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation() + UiActivation);
    EXPECT_TRUE(HasFocus(WindowOf(control)));
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), control.Query<IOleInPlaceActiveObject>().Get());

    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->UIDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiDeactivation);
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), nullptr);
    EXPECT_TRUE(IsWindowVisible(WindowOf(control))) << "still active in place";
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceDeactivation);
}

TEST_P(EachActivation, UiCanBeLeftInOneStep)
{
    const HeldControl control(ClassId());
    Begin(control);
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation() + UiActivation);
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    control.Site().Log().ExpectCalls(UiDeactivation + InPlaceDeactivation);
}

TEST_P(EachActivation, HappensOnceHoweverOftenItIsAskedFor)
{
    const HeldControl control(ClassId());
    Begin(control);
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().ExpectCalls(InPlaceActivation());
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

TEST_P(EachActivation, CanBeRepeatedAfterDeactivation)
{
    const HeldControl control(ClassId());
    Begin(control);
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
        EXPECT_EQ(GetParent(WindowOf(control)), control.Site().Window().Handle());
        EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
        control.Site().Log().ExpectCalls(InPlaceActivation() + InPlaceDeactivation);
    }
}

TEST_P(EachActivation, FollowsTheHostsRectangles)
{
    const HeldControl control(ClassId());
    Begin(control);
    ASSERT_EQ(Hr(DoVerb(control, OLEIVERB_INPLACEACTIVATE)), Hr(S_OK));
    control.Site().Log().AllowAll();
    const RECT position = {30, 20, 180, 47};
    const RECT everything = {0, 0, 1000, 1000};
    EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->SetObjectRects(&position, &everything)), Hr(S_OK));
    ExpectPlaced(PlaceOf(control), position);
}

TEST_P(EachActivation, NeedsASiteForWindows)
{
    SiteShape shape;
    shape.InPlace = false;
    const HeldControl control(ClassId(), shape);
    Begin(control);
    EXPECT_TRUE(FAILED(DoVerb(control, OLEIVERB_INPLACEACTIVATE)));
    HWND window = nullptr;
    EXPECT_TRUE(FAILED(control.Query<IOleInPlaceObject>()->GetWindow(&window)));
    Change(control.Get());
}

TEST_P(EachActivation, NeedsASite)
{
    const ComPtr<IUnknown> control = TheLibrary().Create(ClassId());
    ComPtr<IOleObject> object;
    ASSERT_HRESULT_SUCCEEDED(control.As(&object));
    const RECT position = {0, 0, 100, 20};
    EXPECT_TRUE(FAILED(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, &position)));
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
}

TEST_P(EachActivation, ManagesWithoutControlSiteAmbientsAndFrame)
{
    for (int left = 0; left < 8; ++left)
    {
        SiteShape shape;
        shape.ControlSite = (left & 1) != 0;
        shape.Ambients = (left & 2) != 0;
        shape.Frame = (left & 4) != 0;
        const HeldControl control(ClassId(), shape);
        control.Site().Log().AllowAll();
        control.InitNew();
        EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK)) << left;
        EXPECT_TRUE(HasFocus(WindowOf(control))) << left;
        Change(control.Get());
        UpdateWindow(WindowOf(control));
        EXPECT_EQ(Hr(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK)) << left;
    }
}

TEST_P(EachActivation, ManagesWithAmbientsThatFail)
{
    const HeldControl control(ClassId());
    control.Site().FailAmbients();
    control.Site().Log().AllowAll();
    control.InitNew();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    if (!IsPicture())
    {
        EXPECT_NE(control.Property(L"Font").Object(), nullptr);
    }
}

TEST_P(EachActivation, ManagesWithAmbientsOfTheWrongType)
{
    const HeldControl control(ClassId());
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

TEST_P(EachActivation, RefusesVerbsThatItDoesNotKnow)
{
    const HeldControl control(ClassId());
    Begin(control);
    control.Site().Log().AllowAll();
    EXPECT_EQ(Hr(DoVerb(control, -99)), Hr(E_NOTIMPL));
    HWND window = nullptr;
    EXPECT_TRUE(FAILED(control.Query<IOleInPlaceObject>()->GetWindow(&window)));
    // A positive one that the object does not know is carried out as the primary one.
    EXPECT_EQ(Hr(DoVerb(control, 99)), Hr(OLEOBJ_S_INVALIDVERB));
    EXPECT_TRUE(IsWindowVisible(WindowOf(control)));
}

TEST_P(EachActivation, CanBeHidden)
{
    const HeldControl control(ClassId());
    Begin(control);
    control.Site().Log().AllowAll();
    EXPECT_EQ(Hr(DoVerb(control, OLEIVERB_UIACTIVATE)), Hr(S_OK));
    const HWND window = WindowOf(control);
    EXPECT_HRESULT_SUCCEEDED(DoVerb(control, OLEIVERB_HIDE));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(control.Site().Frame()->ActiveObject(), nullptr);
    EXPECT_HRESULT_SUCCEEDED(DoVerb(control, OLEIVERB_SHOW));
    EXPECT_TRUE(IsWindowVisible(WindowOf(control)));
}

INSTANTIATE_TEST_SUITE_P(Controls, EachActivation, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
