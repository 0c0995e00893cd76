// A control is taken down from inside its own events, property notifications and calls on its site.

#include "tests/com/TeardownTest.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/PropertyNotifyRecorder.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Wholly, unless that has been done already.
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

} // namespace

} // namespace kiv::test
