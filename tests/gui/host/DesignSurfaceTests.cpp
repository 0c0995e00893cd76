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

TEST_F(DesignSurface, AClickMovesNothing)
{
    Site().Move({27, 21, 147, 41});
    PressAt({33, 31});
    PointTo({35, 32});
    Release();
    EXPECT_EQ(Site().Bounds().left, 27);
    EXPECT_EQ(Site().Bounds().top, 21);
    EXPECT_EQ(TheForm().Selected(), &Site());
    // A drag takes what is off the grid onto it.
    PressAt({33, 31});
    PointTo({43, 31});
    Release();
    EXPECT_EQ(Site().Bounds().left, 40);
    EXPECT_EQ(Site().Bounds().top, 24);
}

TEST_F(DesignSurface, ADragKeepsItemsWhereTheyCanBeReached)
{
    RECT page = {};
    GetClientRect(TheForm().Page(), &page);
    PressAt({30, 34});
    PointTo({-300, -300});
    EXPECT_EQ(Site().Bounds().left, 0);
    EXPECT_EQ(Site().Bounds().top, 0);
    PointTo({page.right + 300, page.bottom + 300});
    Release();
    EXPECT_EQ(Site().Bounds().right, page.right);
    EXPECT_EQ(Site().Bounds().bottom, page.bottom);
}

TEST_F(DesignSurface, HandlesSize)
{
    struct Row
    {
        POINT Handle; // of the item at 24, 24, 144, 44
        POINT To;
        RECT Sized;
    };
    const Row rows[] = {
        {{146, 46}, {163, 62}, {24, 24, 160, 64}},
        {{84, 46}, {99, 70}, {24, 24, 144, 72}},
        {{146, 34}, {130, 34}, {24, 24, 128, 44}},
        {{21, 21}, {5, 12}, {8, 16, 144, 44}},
        {{21, 34}, {37, 99}, {40, 24, 144, 44}},
        {{84, 21}, {84, 12}, {24, 16, 144, 44}},
        {{146, 21}, {156, 3}, {24, 8, 152, 44}},
        {{21, 46}, {10, 60}, {16, 24, 144, 56}},
        // No smaller than a step of the grid, and not out of the form.
        {{146, 46}, {1, 1}, {24, 24, 32, 32}},
        {{21, 21}, {250, 250}, {136, 36, 144, 44}},
        {{21, 21}, {-90, -90}, {0, 0, 144, 44}},
    };
    for (const Row& row : rows)
    {
        Site().Move({24, 24, 144, 44});
        TheForm().Select(&Site());
        PressAt(row.Handle);
        PointTo(row.To);
        Release();
        const RECT& now = Site().Bounds();
        EXPECT_TRUE(EqualRect(&now, &row.Sized)) << row.Handle.x << "," << row.Handle.y << ": " << now.left
                                                 << "," << now.top << "," << now.right << "," << now.bottom;
        EXPECT_EQ(TheForm().Selected(), &Site());
    }
}

TEST_F(DesignSurface, AFrameTakesItsItemsAlong)
{
    host::FrameOptions frame;
    frame.name = L"full";
    frame.bounds = {16, 52, 216, 112};
    host::Frame& full = TheForm().AddFrame(frame);
    host::LabelOptions label;
    label.name = L"inside";
    label.caption = L"Inside";
    label.bounds = {32, 72, 112, 88};
    label.container = &full;
    host::Label& inside = TheForm().AddLabel(label);
    PressAt({205, 105});
    PointTo({221, 97});
    Release();
    EXPECT_EQ(full.Bounds().left, 32);
    EXPECT_EQ(inside.Bounds().left, 48);
    EXPECT_EQ(inside.Bounds().top, 68);
    // Which do not leave it themselves.
    PressAt({60, 70});
    PointTo({300, 10});
    Release();
    EXPECT_EQ(inside.Bounds().right, full.Bounds().right);
    EXPECT_EQ(inside.Bounds().top, full.Bounds().top);
}

TEST_F(DesignSurface, ShowsWhatWillBeHidden)
{
    host::SiteOptions options = Placed({24, 60, 144, 80});
    options.userMode = false;
    options.visible = false;
    host::ControlSite& hidden = TheForm().Add(CreateYesNo().Get(), options);
    EXPECT_FALSE(hidden.Visible());
    EXPECT_TRUE(IsWindowVisible(hidden.Window()));
    PressAt({40, 70});
    Release();
    EXPECT_EQ(TheForm().Selected(), &hidden);
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
