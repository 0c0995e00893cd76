// A YesNo is taken down from inside its own events.

#include "tests/com/LooseControl.h"
#include "tests/support/EventRecorder.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using TeardownTest = LibraryTest;

class ReentrantTeardownTest : public LibraryTest, public testing::WithParamInterface<DISPID>
{
};

TEST_P(ReentrantTeardownTest, InsideAnEventOfAKeyStroke)
{
    LooseControl loose(CLSID_YesNo);
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    bool heard = false;
    sink->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event != GetParam())
            return;
        heard = true;
        connection.Disconnect();
        loose.TakeDown();
    });
    SendMessageW(loose.Window, WM_CHAR, 'y', 1);
    EXPECT_TRUE(heard);
    EXPECT_EQ(loose.Control.Get(), nullptr);
    ExpectAllOver(loose);
}

TEST_P(ReentrantTeardownTest, InsideAnEventByReleaseAlone)
{
    LooseControl loose(CLSID_YesNo);
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
    LooseControl loose(CLSID_YesNo);
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    sink->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event != GetParam())
            return;
        loose.Site->Window().Destroy();
        connection.Disconnect();
        loose.TakeDown();
    });
    SendMessageW(loose.Window, WM_CHAR, ' ', 1);
    EXPECT_EQ(loose.Control.Get(), nullptr);
    ExpectAllOver(loose);
}

INSTANTIATE_TEST_SUITE_P(Events, ReentrantTeardownTest, testing::Values(DISPID{1}, DISPID{2}),
                         [](const auto& row) { return row.param == 1 ? "Click" : "Change"; });

TEST_F(TeardownTest, InsideAnEventOfAnAssignment)
{
    LooseControl loose(CLSID_YesNo);
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    sink->OnEvent([&](DISPID, DISPPARAMS&) {
        connection.Disconnect();
        loose.TakeDown();
    });
    // The caller's reference is the one that the handler lets go of.
    IDispatch* const borrowed = loose.Control.Get();
    EXPECT_EQ(Hr(PutByName(borrowed, L"Value", Variant(1L)).Result), Hr(S_OK));
    ExpectAllOver(loose);
}

TEST_F(TeardownTest, GoesOnWorkingWhenTheHostsWindowIsGone)
{
    LooseControl loose(CLSID_YesNo);
    ASSERT_EQ(Hr(loose.Activate()), Hr(S_OK));
    loose.Site->Window().Destroy();
    IDispatch* const control = loose.Control.Get();
    EXPECT_EQ(Hr(PutByName(control, L"Value", Variant(1L)).Result), Hr(S_OK));
    EXPECT_EQ(Hr(CallByName(control, L"DrawFocusState").Result), Hr(S_OK));
    EXPECT_EQ(Hr(GetByName(control, L"hwnd").Result), Hr(S_OK));
    EXPECT_EQ(Show(GetByName(control, L"Value").Value), Show(Variant(1L)));
    loose.TakeDown();
    ExpectAllOver(loose);
}

TEST_F(TeardownTest, OfASinkThatFails)
{
    LooseControl loose(CLSID_YesNo);
    const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
    {
        const Connection connection(loose.Control.Get(), DIID___YesNo, sink.Get());
        sink->AnswerWith(E_FAIL);
        EXPECT_EQ(Hr(PutByName(loose.Control.Get(), L"Value", Variant(1L)).Result), Hr(S_OK))
            << "an event has no result";
        EXPECT_EQ(sink->TakeEvents(), std::vector<DISPID>{2});
    }
    EXPECT_HRESULT_SUCCEEDED(loose.Object->SetClientSite(nullptr));
    loose.Release();
    ExpectAllOver(loose);
    EXPECT_EQ(References(sink.Get()), 1U);
}

} // namespace

} // namespace kiv::test
