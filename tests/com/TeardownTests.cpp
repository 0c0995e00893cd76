// The ways in which hosts let go of a control, in the orders that they use and at the worst moments. Nothing
// may be left: the control checks in with its site's references, and every test ends with no object and no
// window.

#include "tests/com/SitedControl.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A control whose references are in the test's own hands.
struct LooseControl
{
    ComPtr<RecordingSite> Site = MakeCom<RecordingSite>();
    ComPtr<_YesNo> Control;
    ComPtr<IOleObject> Object;
    ComPtr<IOleInPlaceObject> InPlace;
    HWND Window = nullptr;

    explicit LooseControl(bool withSite = true)
    {
        Check(Library::UnderTest().Create(CLSID_YesNo).As(&Control));
        Check(Control.As(&Object));
        Check(Control.As(&InPlace));
        Site->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
        Site->Log().AllowAll();
        if (withSite)
            Check(Object->SetClientSite(Site.Get()));
        ComPtr<IPersistStreamInit> persist;
        Check(Control.As(&persist));
        Check(persist->InitNew());
        long handle = 0;
        Check(Control->get_hwnd(&handle));
        Window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
    }

    HRESULT Activate(LONG verb = OLEIVERB_UIACTIVATE) const
    {
        return Object->DoVerb(verb, nullptr, Site.Get(), 0, Site->Window().Handle(), &Site->Position());
    }
    void Release()
    {
        Object.Reset();
        InPlace.Reset();
        Control.Reset();
    }
    ULONG SiteReferences() const { return References(static_cast<IOleClientSite*>(Site.Get())); }
    std::ptrdiff_t CallsOf(const char* name) const { return std::ranges::count(Site->Log().Calls(), name); }
};

class TeardownTest : public LibraryTest
{
protected:
    // Whatever was begun has been ended, and the site is free.
    static void ExpectAllOver(const LooseControl& loose)
    {
        loose.Site->LetGo();
        EXPECT_EQ(loose.SiteReferences(), 1U) << "the site is still held";
        EXPECT_EQ(loose.CallsOf("OnInPlaceActivate"), loose.CallsOf("OnInPlaceDeactivate"));
        EXPECT_EQ(loose.CallsOf("OnUIActivate"), loose.CallsOf("OnUIDeactivate"));
        EXPECT_FALSE(IsWindow(loose.Window));
        EXPECT_EQ(ControlWindows(), 0);
    }
};

enum class Step
{
    UiDeactivate,
    InPlaceDeactivate,
    Close,
    NoSite,
    Release,
    DestroyHostWindow,
    LetGo, // the frame drops the active object that it was told of
};

struct Order
{
    const char* Name;
    std::vector<Step> Steps;

    friend std::ostream& operator<<(std::ostream& out, const Order& order) { return out << order.Name; }
};

class TeardownOrderTest : public TeardownTest, public testing::WithParamInterface<Order>
{
protected:
    static void Take(Step step, LooseControl& loose)
    {
        switch (step)
        {
        case Step::UiDeactivate:
            EXPECT_HRESULT_SUCCEEDED(loose.InPlace->UIDeactivate());
            break;
        case Step::InPlaceDeactivate:
            EXPECT_HRESULT_SUCCEEDED(loose.InPlace->InPlaceDeactivate());
            break;
        case Step::Close:
            EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(OLECLOSE_NOSAVE));
            break;
        case Step::NoSite:
            EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
            loose.Site->LetGo();
            EXPECT_EQ(loose.SiteReferences(), 1U);
            loose.Site->Log().Close();
            break;
        case Step::Release:
            loose.Release();
            break;
        case Step::DestroyHostWindow:
            loose.Site->Window().Destroy();
            DrainMessages();
            break;
        case Step::LetGo:
            loose.Site->LetGo();
            break;
        }
    }
};

TEST_P(TeardownOrderTest, LeavesNothing)
{
    for (const LONG verb : {LONG{OLEIVERB_UIACTIVATE}, LONG{OLEIVERB_INPLACEACTIVATE}})
    {
        LooseControl loose;
        ASSERT_EQ(Hr(loose.Activate(verb)), Hr(S_OK));
        for (const Step step : GetParam().Steps)
            Take(step, loose);
        loose.Site->Log().Reopen();
        loose.Release();
        ExpectAllOver(loose);
    }
}

TEST_P(TeardownOrderTest, LeavesNothingOfAControlThatWasNeverActive)
{
    LooseControl loose;
    for (const Step step : GetParam().Steps)
        Take(step, loose);
    loose.Site->Log().Reopen();
    loose.Release();
    ExpectAllOver(loose);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TeardownOrderTest,
    testing::Values(
        Order{"Usual",
              {Step::UiDeactivate, Step::InPlaceDeactivate, Step::Close, Step::NoSite, Step::Release}},
        Order{"InPlaceFirst",
              {Step::InPlaceDeactivate, Step::UiDeactivate, Step::Close, Step::NoSite, Step::Release}},
        Order{"CloseOnly", {Step::Close, Step::NoSite, Step::Release}},
        Order{"CloseTwice", {Step::Close, Step::Close, Step::NoSite, Step::NoSite, Step::Release}},
        Order{"NoSiteFirst", {Step::NoSite, Step::Close, Step::Release}},
        Order{"NoSiteThenDeactivate",
              {Step::NoSite, Step::InPlaceDeactivate, Step::UiDeactivate, Step::Close}},
        Order{"NoSiteOnly", {Step::NoSite, Step::Release}},
        Order{"CloseButKeepTheSite", {Step::Close, Step::Release}},
        Order{"ReleaseOnly", {Step::LetGo, Step::Release}},
        Order{"WindowFirst", {Step::DestroyHostWindow, Step::InPlaceDeactivate, Step::Close, Step::NoSite}},
        Order{"WindowThenNoSite", {Step::DestroyHostWindow, Step::NoSite, Step::Close}},
        Order{"WindowThenRelease", {Step::DestroyHostWindow, Step::LetGo, Step::Release}},
        Order{"WindowLast", {Step::Close, Step::NoSite, Step::DestroyHostWindow, Step::Release}}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST_F(TeardownTest, NeedsNeitherLoadingNorASite)
{
    ComPtr<_YesNo> control = CreateYesNo();
    control.Reset();
    EXPECT_EQ(ControlWindows(), 0);
    LooseControl loose(false);
    EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    ExpectAllOver(loose);
}

TEST_F(TeardownTest, GoesOnWorkingWhenTheHostsWindowIsGone)
{
    LooseControl loose;
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    loose.Site->Window().Destroy();
    EXPECT_HRESULT_SUCCEEDED(loose.Control->put_Value(Yes));
    EXPECT_HRESULT_SUCCEEDED(loose.Control->put_Enabled(VARIANT_FALSE));
    EXPECT_HRESULT_SUCCEEDED(loose.Control->put_BackColor(255));
    EXPECT_HRESULT_SUCCEEDED(loose.Control->putref_Font(MakeFont().Get()));
    EXPECT_HRESULT_SUCCEEDED(loose.Control->DrawFocusState(nullptr));
    long window = 0;
    EXPECT_HRESULT_SUCCEEDED(loose.Control->get_hwnd(&window));
    AnswerEnums value = Neither;
    EXPECT_HRESULT_SUCCEEDED(loose.Control->get_Value(&value));
    EXPECT_EQ(value, Yes);
    EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(OLECLOSE_NOSAVE));
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    ExpectAllOver(loose);
}

TEST_F(TeardownTest, AsksToBeSavedWhenItIsClosedDirty)
{
    const std::pair<DWORD, std::ptrdiff_t> rows[] = {{OLECLOSE_SAVEIFDIRTY, 1}, {OLECLOSE_NOSAVE, 0}};
    for (const auto& [option, calls] : rows)
    {
        LooseControl loose;
        EXPECT_HRESULT_SUCCEEDED(loose.Control->put_Value(Yes));
        EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(option));
        EXPECT_EQ(loose.CallsOf("SaveObject"), calls) << option;
        EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
        loose.Release();
        ExpectAllOver(loose);
    }
}

// The control is taken down from inside its own event, property notification, or a call on its site.
void TakeDown(LooseControl& loose)
{
    if (!loose.Control)
        return;
    loose.InPlace->UIDeactivate();
    loose.InPlace->InPlaceDeactivate();
    loose.Object->Close(OLECLOSE_NOSAVE);
    loose.Object->SetClientSite(nullptr);
    loose.Release();
}

class ReentrantTeardownTest : public TeardownTest, public testing::WithParamInterface<DISPID>
{
};

TEST_P(ReentrantTeardownTest, InsideAnEventOfAKeyStroke)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    bool heard = false;
    sink->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event != GetParam())
            return;
        heard = true;
        connection.Disconnect();
        TakeDown(loose);
    });
    SendMessageW(loose.Window, WM_CHAR, 'y', 1);
    EXPECT_TRUE(heard);
    EXPECT_EQ(loose.Control.Get(), nullptr);
    ExpectAllOver(loose);
}

TEST_P(ReentrantTeardownTest, InsideAnEventByReleaseAlone)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    sink->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event != GetParam())
            return;
        connection.Disconnect();
        loose.Object->SetClientSite(nullptr);
        loose.Release();
    });
    SendMessageW(loose.Window, WM_CHAR, 'n', 1);
    EXPECT_EQ(loose.Control.Get(), nullptr);
    ExpectAllOver(loose);
}

TEST_P(ReentrantTeardownTest, InsideAnEventWithTheHostsWindow)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    sink->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event != GetParam())
            return;
        loose.Site->Window().Destroy();
        connection.Disconnect();
        TakeDown(loose);
    });
    SendMessageW(loose.Window, WM_CHAR, ' ', 1);
    EXPECT_EQ(loose.Control.Get(), nullptr);
    ExpectAllOver(loose);
}

INSTANTIATE_TEST_SUITE_P(Events, ReentrantTeardownTest, testing::Values(DISPID{1}, DISPID{2}),
                         [](const auto& row) { return row.param == 1 ? "Click" : "Change"; });

TEST_F(TeardownTest, InsideAnEventOfAnAssignment)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    sink->OnEvent([&](DISPID, DISPPARAMS&) {
        connection.Disconnect();
        TakeDown(loose);
    });
    // The caller's reference is the one that the handler lets go of.
    _YesNo* const borrowed = loose.Control.Get();
    EXPECT_EQ(Hr(borrowed->put_Value(Yes)), Hr(S_OK));
    ExpectAllOver(loose);
}

TEST_F(TeardownTest, InsideAPropertyNotification)
{
    for (const bool withText : {false, true})
    {
        LooseControl loose;
        const auto sink = MakeCom<PropertyNotifyRecorder>();
        Connection connection(loose.Control.Get(), IID_IPropertyNotifySink, sink.Get());
        ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
        sink->OnChange([&](DISPID) {
            connection.Disconnect();
            TakeDown(loose);
        });
        if (withText)
            loose.Control.Get()->put_Text(Variant(L"Y").Get());
        else
            loose.Control.Get()->put_BackColor(255);
        EXPECT_EQ(loose.Control.Get(), nullptr);
        ExpectAllOver(loose);
    }
}

TEST_F(TeardownTest, InsideAnyCallOnTheSite)
{
    std::size_t calls = 1;
    for (std::size_t number = 0; number < calls; ++number)
    {
        LooseControl loose;
        std::size_t arrived = 0;
        loose.Site->Log().OnCall([&](const std::string&) {
            if (arrived++ == number)
                TakeDown(loose);
        });
        IOleObject* const borrowed = loose.Object.Get();
        RecordingSite& site = *loose.Site.Get();
        borrowed->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, site.Window().Handle(), &site.Position());
        calls = std::max(calls, arrived);
        loose.Site->Log().OnCall({});
        TakeDown(loose);
        SCOPED_TRACE("call " + std::to_string(number));
        loose.Site->LetGo();
        EXPECT_EQ(loose.SiteReferences(), 1U);
        EXPECT_EQ(ControlWindows(), 0);
        ASSERT_LT(number, 100U);
    }
    EXPECT_GT(calls, 5U);
}

// A host that fails one call after the other through the whole life of a control.
TEST_F(TeardownTest, AfterAHostThatFailedAnyOneCall)
{
    std::size_t calls = 1;
    for (std::size_t number = 0; number < calls; ++number)
    {
        LooseControl loose;
        SCOPED_TRACE("call " + std::to_string(number));
        loose.Site->Log().FailCall(number);
        const HRESULT activated = loose.Activate();
        if (FAILED(activated))
        {
            HWND window = nullptr;
            EXPECT_TRUE(FAILED(loose.InPlace->GetWindow(&window)) ||
                        GetParent(window) == loose.Site->Window().Handle())
                << "half active";
        }
        SendMessageW(loose.Window, WM_CHAR, 'y', 1);
        loose.Control->put_Value(No);
        loose.InPlace->UIDeactivate();
        loose.InPlace->InPlaceDeactivate();
        loose.Object->Close(OLECLOSE_SAVEIFDIRTY);
        EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
        loose.Release();
        calls = std::max(calls, loose.Site->Log().Calls().size());

        loose.Site->LetGo();
        EXPECT_EQ(loose.SiteReferences(), 1U);
        EXPECT_FALSE(IsWindow(loose.Window));
        EXPECT_EQ(ControlWindows(), 0);
        ASSERT_LT(number, 100U);
    }
    EXPECT_GT(calls, 10U);
}

TEST_F(TeardownTest, OfASinkThatFails)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    {
        const Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
        sink->AnswerWith(E_FAIL);
        EXPECT_EQ(Hr(loose.Control->put_Value(Yes)), Hr(S_OK)) << "an event has no result";
        EXPECT_EQ(sink->TakeEvents(), std::vector<DISPID>{2});
    }
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    ExpectAllOver(loose);
    EXPECT_EQ(References(sink.Get()), 1U);
}

TEST_F(TeardownTest, LetsGoOfSinksThatNobodyDisconnected)
{
    LooseControl loose;
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    const auto properties = MakeCom<PropertyNotifyRecorder>();
    Connection events(loose.Control.Get(), DIID___YesNo, sink.Get());
    Connection notifications(loose.Control.Get(), IID_IPropertyNotifySink, properties.Get());
    EXPECT_GT(References(sink.Get()), 1U);
    events.Abandon();
    notifications.Abandon();
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    EXPECT_EQ(References(sink.Get()), 1U);
    EXPECT_EQ(References(properties.Get()), 1U);
    ExpectAllOver(loose);
}

} // namespace

} // namespace kiv::test
