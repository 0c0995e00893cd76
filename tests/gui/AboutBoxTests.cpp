// The about box of a YesNo.

#include "tests/gui/HostedTest.h"
#include "tests/support/MessageBoxWatcher.h"

#include "host/container/Button.h"

namespace kiv::test
{

namespace
{

class AboutBoxTest : public HostedTest
{
protected:
    static ShownMessageBox Shown(const HostedYesNo& control)
    {
        MessageBoxWatcher watcher;
        EXPECT_HRESULT_SUCCEEDED(control.Control()->ShowAboutBox());
        const std::vector<ShownMessageBox> shown = watcher.Stop();
        EXPECT_EQ(shown.size(), 1U);
        return shown.empty() ? ShownMessageBox() : shown[0];
    }
};

TEST_F(AboutBoxTest, TellsWhatTheControlIsFor)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const ShownMessageBox box = Shown(control);
    EXPECT_EQ(box.Text,
              L"Yes/No custom control that will let you unselect an option after you have selected it.");
    EXPECT_EQ(box.Caption, L"Host of the control tests");
    EXPECT_EQ(box.Buttons, std::vector<std::wstring>{L"OK"});
    EXPECT_EQ(box.Icon, nullptr);
    EXPECT_EQ(control.Value(), 0);
    EXPECT_EQ(control.TakeTrace(), "");
}

TEST_F(AboutBoxTest, BelongsToTheWindowWithTheFocus)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    ASSERT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(Shown(control).Owner, TheForm().Window());
    PumpPending(TheForm());
    EXPECT_EQ(GetFocus(), control.Window());
    EXPECT_EQ(control.FocusShown(), "Yes");

    host::Form other(L"Other", {100, 60});
    other.Show();
    ASSERT_TRUE(PumpUntil(other, [&] { return GetFocus() == other.Window(); }));
    EXPECT_EQ(Shown(control).Owner, other.Window());
}

TEST_F(AboutBoxTest, ShowsWithoutAForm)
{
    MessageBoxWatcher watcher;
    EXPECT_HRESULT_SUCCEEDED(CreateYesNo()->ShowAboutBox());
    EXPECT_EQ(watcher.Stop().size(), 1U);
}

} // namespace

} // namespace kiv::test
