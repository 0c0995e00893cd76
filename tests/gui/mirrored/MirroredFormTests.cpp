// The container's own form from right to left: its file, its labels, its design mode and its scripts.

#include "host/container/Automation.h"
#include "host/folio/FormPage.h"
#include "tests/gui/host/HostProcess.h"
#include "tests/gui/mirrored/MirroredTest.h"
#include "tests/support/Files.h"

#include <olectl.h>

#include <filesystem>
#include <fstream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

const std::string OneQuestion = "Begin Form page\n"
                                "    RightToLeft = True\n"
                                "    ClientWidth = 4500\n"
                                "    ClientHeight = 1800\n"
                                "    Begin Label lblOne\n"
                                "        Caption = \"IIII\"\n"
                                "        Left = 300\n"
                                "        Top = 300\n"
                                "        Width = 1500\n"
                                "        Height = 300\n"
                                "    End\n"
                                "    Begin KivControls.YesNo ynOne\n"
                                "        Left = 2250\n"
                                "        Top = 300\n"
                                "        Width = 1800\n"
                                "        Height = 300\n"
                                "    End\n"
                                "End\n";

class MirroredForm : public MirroredTest
{
};

} // namespace

TEST_F(MirroredForm, IsWhatItsFileSays)
{
    const TemporaryFile file(L".form");
    std::ofstream(std::filesystem::path(file.Path()), std::ios::binary) << OneQuestion;
    host::FormPage page(file.Path());
    page.Window().Show();
    Settle();
    const HWND sheet = page.Window().Page();
    EXPECT_TRUE(IsMirrored(page.Window().Window()));
    EXPECT_TRUE(IsMirrored(sheet));
    EXPECT_TRUE(IsMirrored(page.Sites().front()->Window()));
    // The label's text is at its right: from 20 to 120 pixels from the right edge.
    UpdateWindow(sheet);
    const Pixels seen = PixelsOfWindow(sheet);
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    const LONG right = seen.Size().cx - 20;
    EXPECT_GT(Cut(seen, {right - 20, 20, right, 40}).Count(ink), 0);
    EXPECT_EQ(Cut(seen, {right - 100, 20, right - 40, 40}).Count(ink), 0);
}

TEST_F(MirroredForm, TellsItsControls)
{
    const auto told = [](const host::ControlSite& site) {
        ComPtr<IOleClientSite> clientSite;
        ComPtr<IDispatch> ambients;
        EXPECT_HRESULT_SUCCEEDED(site.Query<IOleObject>()->GetClientSite(&clientSite));
        EXPECT_HRESULT_SUCCEEDED(clientSite.As(&ambients));
        return host::GetProperty(ambients.Get(), DISPID_AMBIENT_RIGHTTOLEFT).Bool();
    };
    EXPECT_TRUE(told(Add(CLSID_YesNo)));
    StartAnew(false);
    EXPECT_FALSE(told(Add(CLSID_YesNo)));
}

// To the left is further from where places count from.
TEST_F(MirroredForm, IsDesignedAsItIsSeen)
{
    TheForm().SetDesignMode({8, 8});
    host::SiteOptions options = Placed({24, 24, 144, 48});
    options.userMode = false;
    const host::ControlSite& site = Add(CLSID_YesNo, options);
    ShowForm();
    const RECT place = OnScreen(site.Window());
    const auto drag = [&](POINT from, POINT to) {
        PointAt(from);
        PressButton(MouseButton::Left);
        Settle();
        PointAt(to);
        Settle();
        ReleaseButton(MouseButton::Left);
        Settle();
    };
    drag({place.left + 20, place.top + 10}, {place.left - 12, place.top + 10});
    EXPECT_EQ(site.Bounds().left, 24 + 32);
    EXPECT_EQ(OnScreen(site.Window()).left, place.left - 32);
    // The handle at the lower left sizes towards the left.
    const RECT moved = OnScreen(site.Window());
    drag({moved.left - 3, moved.bottom + 3}, {moved.left - 3 - 16, moved.bottom + 3});
    EXPECT_EQ(site.Bounds().right - site.Bounds().left, 120 + 16);
    EXPECT_EQ(OnScreen(site.Window()).right, moved.right);
}

using MirroredScript = HostProcess;

TEST_F(MirroredScript, ClicksWhereTheUserSeesLeftAndRight)
{
    WriteForm(OneQuestion);
    WriteScript("click ynOne left\nexpect ynOne.Value = 2\n"
                "click ynOne right\nexpect ynOne.Value = 1\n"
                "click ynOne 4,10\nexpect ynOne.Value = 2\n"
                "key Right\nkey Space\nexpect ynOne.Value = 1\n");
    const ProcessOutcome outcome = Play();
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
}

} // namespace kiv::test
