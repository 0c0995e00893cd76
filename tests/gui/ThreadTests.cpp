// Controls in two threads of a host, each of which has its own of what controls share.

#include "tests/gui/HostedTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Thread.h"

namespace kiv::test
{

namespace
{

using TwoThreadsTest = HostedTest;

// A thread that ends takes its own pictures with it, and nobody else's.
TEST_F(TwoThreadsTest, KeepTheirPicturesApart)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    ASSERT_EQ(control.FocusShown(), "None");
    for (int i = 0; i < 3; ++i)
    {
        const Thread thread([] {
            EXPECT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
            {
                host::Form form(L"Second", {200, 60});
                HostedYesNo second(form, Placed());
                form.Show();
                EXPECT_TRUE(PumpUntil(form, [&] { return GetFocus() == second.Window(); }));
                second.SetValue(2);
                EXPECT_EQ(second.FocusShown(), "Yes");
            }
            EXPECT_EQ(ControlWindows(), 0);
            OleUninitialize();
        });
    }
    for (const long value : {1, 2, 0})
    {
        control.SetValue(value);
        EXPECT_EQ(control.FocusShown(), "None");
    }
    HostedYesNo later(TheForm(), Placed({20, 50, 140, 70}));
    PumpPending(TheForm());
    EXPECT_EQ(later.FocusShown(), "None");
}

TEST_F(TwoThreadsTest, EachHasTheTitle)
{
    const Thread thread([] {
        EXPECT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
        {
            host::Form form(L"Second", {200, 60});
            HostedYesNo second(form, Placed());
            MessageBoxWatcher watcher;
            EXPECT_HRESULT_SUCCEEDED(second.Control()->ShowAboutBox());
            const std::vector<ShownMessageBox> shown = watcher.Stop();
            EXPECT_EQ(shown.size(), 1U);
            if (!shown.empty())
            {
                EXPECT_EQ(shown[0].Caption, L"Host of the control tests");
            }
        }
        OleUninitialize();
    });
}

// Both at once, each on its own form.
TEST_F(TwoThreadsTest, WorkSideBySide)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const Thread thread([] {
        EXPECT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
        for (int i = 0; i < 20; ++i)
        {
            host::Form form(L"Second", {200, 60});
            HostedYesNo second(form, Placed());
            ShowWindow(form.Window(), SW_SHOWNOACTIVATE);
            PumpPending(form);
            second.SetValue(1 + i % 2);
            EXPECT_EQ(second.FocusShown(), "None");
        }
        OleUninitialize();
    });
    for (int i = 0; i < 200; ++i)
    {
        control.SetValue(i % 3);
        EXPECT_EQ(control.FocusShown(), "None");
        PumpPending(TheForm());
    }
}

} // namespace

} // namespace kiv::test
