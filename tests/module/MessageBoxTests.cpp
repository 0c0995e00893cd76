// The message boxes that controls show.

#include "framework/subclass/ModuleData.h"
#include "framework/subclass/SubClass.h"
#include "tests/support/HostWindow.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

class AppMsgBoxTest : public testing::Test
{
protected:
    void SetUp() override { Main(); }

    static ShownMessageBox Shown(std::wstring_view text, UINT flags, int answer)
    {
        MessageBoxWatcher watcher;
        EXPECT_EQ(AppMsgBox(text, flags), answer);
        const std::vector<ShownMessageBox> shown = watcher.Stop();
        EXPECT_EQ(shown.size(), 1U);
        return shown.empty() ? ShownMessageBox() : shown[0];
    }
};

TEST_F(AppMsgBoxTest, ShowsTheTextUnderTheTitleOfTheHost)
{
    const ShownMessageBox box = Shown(L"Some text.", MB_OK, IDOK);
    EXPECT_EQ(box.Text, L"Some text.");
    EXPECT_EQ(box.Caption, L"Host of the control tests");
    EXPECT_EQ(box.Buttons, std::vector<std::wstring>{L"OK"});
    EXPECT_EQ(box.Icon, nullptr);
}

TEST_F(AppMsgBoxTest, ShowsTheIconThatTheFlagsName)
{
    EXPECT_EQ(Shown(L"Invalid.", 48, IDOK).Icon, LoadIconW(nullptr, MAKEINTRESOURCEW(32515))); // exclamation
    EXPECT_EQ(Shown(L"Broken.", 16, IDOK).Icon, LoadIconW(nullptr, MAKEINTRESOURCEW(32513)));  // critical
}

TEST_F(AppMsgBoxTest, ReturnsTheButtonPressed)
{
    EXPECT_EQ(Shown(L"Sure?", MB_YESNO, IDYES).Buttons.size(), 2U);
}

TEST_F(AppMsgBoxTest, TakesTheTitleThatIsSetNow)
{
    Module().AppTitle = L"Another title";
    EXPECT_EQ(Shown(L"Text", MB_OK, IDOK).Caption, L"Another title");
    Module().AppTitle = L"Gr\u00FC\u00DFe";
    EXPECT_EQ(Shown(L"\u20AC 5", MB_OK, IDOK).Caption, L"Gr\u00FC\u00DFe");
    Main();
}

TEST_F(AppMsgBoxTest, BelongsToTheWindowWithTheFocus)
{
    const HostWindow one;
    const HostWindow other;
    const HWND child = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, other.Handle(),
                                       nullptr, nullptr, nullptr);
    SetForegroundWindow(one.Handle());
    DrainMessages();
    SetFocus(one.Handle());
    EXPECT_EQ(Shown(L"Text", MB_OK, IDOK).Owner, one.Handle());
    SetFocus(child);
    ASSERT_EQ(GetFocus(), child);
    EXPECT_EQ(Shown(L"Text", MB_OK, IDOK).Owner, other.Handle());
    SetFocus(nullptr);
    EXPECT_EQ(Shown(L"Text", MB_OK, IDOK).Owner, nullptr);
}

} // namespace

} // namespace kiv::test
