// The ways in which hosts let go of a control, in the orders that they use and at the worst moments. Nothing
// may be left: the control checks in with its site's references, and every test ends with no object and no
// window.

#include "tests/com/LooseControl.h"
#include "tests/com/each/PersistedControls.h"

#include "tests/support/EventRecorder.h"
#include "tests/support/PropertyNotifyRecorder.h"

#include <algorithm>
#include <set>

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
};

const Order Orders[] = {
    {"Usual", {Step::UiDeactivate, Step::InPlaceDeactivate, Step::Close, Step::NoSite, Step::Release}},
    {"InPlaceFirst", {Step::InPlaceDeactivate, Step::UiDeactivate, Step::Close, Step::NoSite, Step::Release}},
    {"CloseOnly", {Step::Close, Step::NoSite, Step::Release}},
    {"CloseTwice", {Step::Close, Step::Close, Step::NoSite, Step::NoSite, Step::Release}},
    {"NoSiteFirst", {Step::NoSite, Step::Close, Step::Release}},
    {"NoSiteThenDeactivate", {Step::NoSite, Step::InPlaceDeactivate, Step::UiDeactivate, Step::Close}},
    {"NoSiteOnly", {Step::NoSite, Step::Release}},
    {"CloseButKeepTheSite", {Step::Close, Step::Release}},
    {"ReleaseOnly", {Step::LetGo, Step::Release}},
    {"WindowFirst", {Step::DestroyHostWindow, Step::InPlaceDeactivate, Step::Close, Step::NoSite}},
    {"WindowThenNoSite", {Step::DestroyHostWindow, Step::NoSite, Step::Close}},
    {"WindowThenRelease", {Step::DestroyHostWindow, Step::LetGo, Step::Release}},
    {"WindowLast", {Step::Close, Step::NoSite, Step::DestroyHostWindow, Step::Release}}};

void Take(Step step, LooseControl& loose)
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

class EachTeardown : public EachPersisted
{
};

TEST_P(EachTeardown, LeavesNothingInWhicheverOrder)
{
    for (const Order& order : Orders)
    {
        for (const LONG verb : {LONG{OLEIVERB_UIACTIVATE}, LONG{OLEIVERB_INPLACEACTIVATE}})
        {
            SCOPED_TRACE(std::string(order.Name) + ", verb " + std::to_string(verb));
            LooseControl loose(ClassId());
            ASSERT_EQ(Hr(loose.Activate(verb)), Hr(S_OK));
            for (const Step step : order.Steps)
                Take(step, loose);
            loose.Site->Log().Reopen();
            loose.Release();
            ExpectAllOver(loose);
        }
    }
}

// All orders of what a host can do before it releases, some of it or all; behind that only its window is
// left.
std::set<std::vector<Step>> EveryOrder()
{
    std::vector<Step> steps = {Step::InPlaceDeactivate, Step::Close, Step::NoSite, Step::Release,
                               Step::DestroyHostWindow};
    std::ranges::sort(steps);
    std::set<std::vector<Step>> orders;
    do
    {
        const auto release = std::ranges::find(steps, Step::Release);
        std::vector<Step> order(steps.begin(), release);
        order.insert(order.end(), {Step::LetGo, Step::Release});
        if (std::ranges::find(order, Step::DestroyHostWindow) == order.end())
            order.push_back(Step::DestroyHostWindow);
        orders.insert(order);
    } while (std::ranges::next_permutation(steps).found);
    return orders;
}

TEST_P(EachTeardown, LeavesNothingInEveryOrder)
{
    for (const std::vector<Step>& order : EveryOrder())
    {
        std::string told;
        LooseControl loose(ClassId());
        ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
        for (const Step step : order)
        {
            told += std::to_string(static_cast<int>(step)) + " ";
            Take(step, loose);
        }
        SCOPED_TRACE(told);
        loose.Site->Log().Reopen();
        ExpectAllOver(loose);
    }
}

TEST_P(EachTeardown, LeavesNothingOfAControlThatWasNeverActive)
{
    for (const Order& order : Orders)
    {
        SCOPED_TRACE(order.Name);
        LooseControl loose(ClassId());
        for (const Step step : order.Steps)
            Take(step, loose);
        loose.Site->Log().Reopen();
        loose.Release();
        ExpectAllOver(loose);
    }
}

TEST_P(EachTeardown, NeedsNeitherLoadingNorASite)
{
    ComPtr<IUnknown> control = TheLibrary().Create(ClassId());
    control.Reset();
    EXPECT_EQ(ControlWindows(), 0);
    LooseControl loose(ClassId(), false);
    EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    ExpectAllOver(loose);
}

TEST_P(EachTeardown, LeavesAWorkingControlWhenOnlyTheHostsWindowGoes)
{
    for (const PersistedKey& key : Keys())
    {
        SCOPED_TRACE(Narrow(key.Name));
        const Variant& value = OtherValue(key);
        std::string expected;
        {
            const EasyControl control(ClassId());
            control.InitNew();
            control.Put(key.Name, value);
            expected = ShowExactly(control.Property(key.Name));
        }
        LooseControl loose(ClassId());
        ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
        loose.Site->Window().Destroy();
        const CallOutcome outcome = value.Object() ? PutRefByName(loose.Control.Get(), key.Name, value)
                                                   : PutByName(loose.Control.Get(), key.Name, value);
        EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
        EXPECT_EQ(StateOf(loose.Control.Get()).at(key.Name), expected);
        EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(OLECLOSE_NOSAVE));
        EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
        loose.Release();
        ExpectAllOver(loose);
    }
}

TEST_P(EachTeardown, AsksToBeSavedWhenItIsClosedDirty)
{
    const std::pair<DWORD, std::ptrdiff_t> rows[] = {{OLECLOSE_SAVEIFDIRTY, 1}, {OLECLOSE_NOSAVE, 0}};
    for (const auto& [option, calls] : rows)
    {
        LooseControl loose(ClassId());
        Change(loose.Control.Get());
        EXPECT_HRESULT_SUCCEEDED(loose.Object->Close(option));
        EXPECT_EQ(loose.CallsOf("SaveObject"), calls) << option;
        EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
        loose.Release();
        ExpectAllOver(loose);
    }
}

// A host that fails one call after the other through the whole life of a control.
TEST_P(EachTeardown, AfterAHostThatFailedAnyOneCall)
{
    std::size_t calls = 1;
    for (std::size_t number = 0; number < calls; ++number)
    {
        LooseControl loose(ClassId());
        SCOPED_TRACE("call " + std::to_string(number));
        loose.Site->Log().FailCall(number);
        const HRESULT activated = loose.Activate();
        HWND window = nullptr;
        if (FAILED(activated))
        {
            EXPECT_TRUE(FAILED(loose.InPlace->GetWindow(&window)) ||
                        GetParent(window) == loose.Site->Window().Handle())
                << "half active";
        }
        if (loose.Window)
            SendMessageW(loose.Window, WM_CHAR, 'y', 1);
        Change(loose.Control.Get());
        loose.InPlace->UIDeactivate();
        loose.InPlace->InPlaceDeactivate();
        loose.Object->Close(OLECLOSE_SAVEIFDIRTY);
        EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
        loose.Release();
        calls = std::max(calls, loose.Site->Log().Calls().size());
        ExpectGone(loose);
        ASSERT_LT(number, 100U);
    }
    EXPECT_GT(calls, 10U);
}

TEST_P(EachTeardown, LetsGoOfSinksThatNobodyDisconnected)
{
    LooseControl loose(ClassId());
    const auto sink = MakeCom<EventRecorder>(Id(GetParam().Events));
    const auto properties = MakeCom<PropertyNotifyRecorder>();
    Connection events(loose.Control.Get(), Id(GetParam().Events), sink.Get());
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

// --- From inside what the control tells ---

TEST_P(EachTeardown, InsideAPropertyNotification)
{
    int heard = 0;
    for (const PersistedKey& key : Keys())
    {
        if (key.Depends)
            continue;
        SCOPED_TRACE(Narrow(key.Name));
        const Variant& value = OtherValue(key);
        LooseControl loose(ClassId());
        const auto sink = MakeCom<PropertyNotifyRecorder>();
        Connection connection(loose.Control.Get(), IID_IPropertyNotifySink, sink.Get());
        ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
        bool told = false;
        sink->OnChange([&](DISPID) {
            told = true;
            connection.Disconnect();
            loose.TakeDown();
        });
        // The caller's reference is the one that the handler lets go of.
        IDispatch* const borrowed = loose.Control.Get();
        value.Object() ? PutRefByName(borrowed, key.Name, value) : PutByName(borrowed, key.Name, value);
        EXPECT_EQ(told, !key.IsQuiet);
        heard += told ? 1 : 0;
        connection.Disconnect();
        loose.TakeDown();
        ExpectAllOver(loose);
    }
    EXPECT_GT(heard, 1);
}

TEST_P(EachTeardown, InsideAnyCallOnTheSite)
{
    std::size_t calls = 1;
    for (std::size_t number = 0; number < calls; ++number)
    {
        SCOPED_TRACE("call " + std::to_string(number));
        LooseControl loose(ClassId());
        std::size_t arrived = 0;
        loose.Site->Log().OnCall([&](const std::string&) {
            if (arrived++ == number)
                loose.TakeDown();
        });
        IOleObject* const borrowed = loose.Object.Get();
        RecordingSite& site = *loose.Site.Get();
        borrowed->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, site.Window().Handle(), &site.Position());
        calls = std::max(calls, arrived);
        loose.Site->Log().OnCall({});
        loose.TakeDown();
        ExpectGone(loose);
        ASSERT_LT(number, 100U);
    }
    EXPECT_GT(calls, 5U);
}

INSTANTIATE_TEST_SUITE_P(Controls, EachTeardown, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
