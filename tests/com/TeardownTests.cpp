// The ways in which hosts let go of a control, in the orders that they use and at the worst moments. Nothing
// may be left: the control checks in with its site's references, and every test ends with no object and no
// window.

#include "tests/com/TeardownTest.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/PropertyNotifyRecorder.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

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
