// A form being designed.

#include "tests/gui/HostedTest.h"

namespace kiv::test
{

namespace
{

class DesignSurface : public HostedTest
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        TheForm().SetDesignMode({8, 8});
        host::FrameOptions frame;
        frame.name = L"frame";
        frame.bounds = {8, 8, 200, 100};
        TheForm().AddFrame(frame);
        host::SiteOptions options = Placed({24, 24, 144, 44});
        options.userMode = false;
        site_ = &TheForm().Add(CreateYesNo().Get(), Recorded(options));
        ShowForm();
    }

    host::ControlSite& Site() { return *site_; }

    void PressAt(POINT point)
    {
        PointTo(point);
        PressButton(MouseButton::Left);
        Settle();
    }
    void PointTo(POINT point)
    {
        ClientToScreen(TheForm().Window(), &point);
        PointAt(point);
        Settle();
    }
    void Release()
    {
        ReleaseButton(MouseButton::Left);
        Settle();
    }

    // How many pixels of the form, beside the control, have the colour of grab handles.
    int HandlePixels()
    {
        UpdateWindow(TheForm().Window());
        const HDC context = GetDC(TheForm().Window());
        int count = 0;
        for (int y = 10; y < 60; ++y)
            for (int x = 10; x < 160; ++x)
                count += GetPixel(context, x, y) == GetSysColor(COLOR_HIGHLIGHT);
        ReleaseDC(TheForm().Window(), context);
        return count;
    }

private:
    host::ControlSite* site_ = nullptr;
};

TEST_F(DesignSurface, AClickSelectsInsteadOfAnswering)
{
    EXPECT_EQ(TheForm().Selected(), nullptr);
    EXPECT_EQ(HandlePixels(), 0);
    PressAt({30, 34});
    Release();
    EXPECT_EQ(TheForm().Selected(), &Site());
    EXPECT_TRUE(RecordOf(Site()).Events().empty());
    EXPECT_EQ(TheForm().FocusedItem(), nullptr);
    EXPECT_EQ(HandlePixels(), 8 * 6 * 6);

    PressAt({180, 80});
    Release();
    EXPECT_EQ(TheForm().Selected(), TheForm().Find(L"frame"));
    PressAt({290, 110});
    Release();
    EXPECT_EQ(TheForm().Selected(), nullptr);
}

TEST_F(DesignSurface, ADragMovesOnTheGrid)
{
    PressAt({30, 34});
    PointTo({43, 38});
    Release();
    const RECT moved = {40, 32, 160, 52};
    EXPECT_TRUE(EqualRect(&Site().Bounds(), &moved)) << Site().Bounds().left << "," << Site().Bounds().top;
    PointTo({100, 100});
    EXPECT_TRUE(EqualRect(&Site().Bounds(), &moved));
}

TEST_F(DesignSurface, KeysReachNoControl)
{
    PressAt({30, 34});
    Release();
    Key('Y');
    Key(VK_TAB);
    EXPECT_TRUE(RecordOf(Site()).Events().empty());
    EXPECT_EQ(Site().State(), host::SiteState::InPlaceActive);
}

TEST_F(DesignSurface, ForgetsAControlThatIsRemoved)
{
    TheForm().Select(&Site());
    TheForm().Remove(Site());
    EXPECT_EQ(TheForm().Selected(), nullptr);
}

} // namespace

} // namespace kiv::test
