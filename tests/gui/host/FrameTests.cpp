// Frames hold others: what stands in one moves with it, and can be seen and used where it can.

#include "host/container/Automation.h"
#include "host/container/ScreenUnits.h"
#include "tests/gui/HostedTest.h"

namespace kiv::test
{

namespace
{

class Frame : public HostedTest
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        host::FrameOptions frame;
        frame.name = L"frame";
        frame.caption = L"&Group";
        frame.bounds = {10, 10, 290, 110};
        frame_ = &TheForm().AddFrame(frame);
        host::SiteOptions options = Placed({30, 30, 150, 50});
        options.name = L"ynInside";
        options.container = frame_;
        inside_ = &TheForm().Add(CreateYesNo().Get(), Recorded(options));
        host::ButtonOptions button;
        button.name = L"cmdInside";
        button.caption = L"&Press";
        button.bounds = {30, 60, 130, 84};
        button.container = frame_;
        button.onClick = [this] { ++pressed_; };
        button_ = &TheForm().AddButton(button);
        options = Placed({10, 130, 130, 150});
        options.name = L"ynOutside";
        outside_ = &TheForm().Add(CreateYesNo().Get(), Recorded(options));
        ShowForm();
    }

    host::Frame& TheFrame() { return *frame_; }
    host::ControlSite& Inside() { return *inside_; }
    host::ControlSite& Outside() { return *outside_; }
    host::Button& InsideButton() { return *button_; }
    int Pressed() const { return pressed_; }

    void ClickInside()
    {
        POINT point = {Inside().Bounds().left + 8, Inside().Bounds().top + 8};
        ClientToScreen(TheForm().Page(), &point);
        PointAt(point);
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
        Settle();
    }

private:
    host::Frame* frame_ = nullptr;
    host::ControlSite* inside_ = nullptr;
    host::ControlSite* outside_ = nullptr;
    host::Button* button_ = nullptr;
    int pressed_ = 0;
};

RECT PlaceOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

TEST_F(Frame, TakesWhatStandsInItAlong)
{
    TheFrame().Move({30, 15, 310, 115});
    const RECT moved = {50, 35, 170, 55};
    EXPECT_TRUE(EqualRect(&Inside().Bounds(), &moved));
    const RECT place = PlaceOf(Inside().Window());
    EXPECT_TRUE(EqualRect(&place, &moved));
    EXPECT_EQ(InsideButton().Bounds().left, 50);
    EXPECT_EQ(PlaceOf(InsideButton().Window()).top, 65);
    EXPECT_EQ(Outside().Bounds().left, 10);
    // Sizing alone moves nothing.
    TheFrame().Move({30, 15, 350, 215});
    EXPECT_TRUE(EqualRect(&Inside().Bounds(), &moved));
}

TEST_F(Frame, TellsPlacesOfWhatItHoldsFromItsCorner)
{
    IDispatch* const extended = Inside().ExtendedControl();
    EXPECT_EQ(host::GetProperty(extended, L"Left").Long(), 20 * 15);
    EXPECT_EQ(host::GetProperty(extended, L"Top").Long(), 20 * 15);
    EXPECT_EQ(host::GetProperty(extended, L"Width").Long(), 120 * 15);
    host::PutProperty(extended, L"Left", Variant(600L));
    host::PutProperty(extended, L"Top", Variant(300L));
    EXPECT_EQ(Inside().Bounds().left, 50);
    EXPECT_EQ(Inside().Bounds().top, 30);
    EXPECT_EQ(host::SizeOf(Inside().Bounds()).cx, 120);
}

TEST_F(Frame, DisablesWhatStandsInIt)
{
    ASSERT_EQ(TheForm().FocusedItem(), &Inside());
    TheFrame().SetEnabled(false);
    EXPECT_TRUE(Inside().Enabled()) << "its own property is its own";
    EXPECT_FALSE(Inside().CanBeUsed());
    EXPECT_FALSE(Inside().TakesFocus());
    EXPECT_FALSE(InsideButton().TakesFocus());
    EXPECT_FALSE(IsWindowEnabled(InsideButton().Window()));
    EXPECT_TRUE(Outside().TakesFocus());
    EXPECT_EQ(TheForm().FocusedItem(), &Outside()) << "where it was, it cannot stay";
    Key(VK_TAB);
    EXPECT_EQ(TheForm().FocusedItem(), &Outside());
    ClickInside();
    EXPECT_EQ(TheForm().FocusedItem(), &Outside());
    EXPECT_TRUE(RecordOf(Inside()).Events().empty());
    MSG mnemonic = {};
    mnemonic.message = WM_SYSCHAR;
    mnemonic.wParam = 'p';
    EXPECT_FALSE(InsideButton().HasMnemonic(mnemonic));
    // What the control does about itself does not let it out.
    Inside().Put(L"Enabled", Variant(false));
    Inside().Put(L"Enabled", Variant(true));
    EXPECT_FALSE(IsWindowEnabled(Inside().Window()));

    TheFrame().SetEnabled(true);
    EXPECT_TRUE(Inside().TakesFocus());
    ClickInside();
    EXPECT_FALSE(RecordOf(Inside()).Events().empty());
    Key('P', {VK_MENU});
    EXPECT_EQ(Pressed(), 1);
}

TEST_F(Frame, DisablesAControlThatIsActivatedLater)
{
    TheFrame().SetEnabled(false);
    Inside().Deactivate();
    Inside().Activate();
    EXPECT_FALSE(IsWindowEnabled(Inside().Window()));
}

TEST_F(Frame, HidesWhatStandsInIt)
{
    TheFrame().SetVisible(false);
    EXPECT_TRUE(Inside().Visible());
    EXPECT_FALSE(Inside().CanBeSeen());
    EXPECT_FALSE(IsWindowVisible(InsideButton().Window()));
    EXPECT_FALSE(Inside().Window() && IsWindowVisible(Inside().Window()));
    EXPECT_TRUE(IsWindowVisible(Outside().Window()));
    TheFrame().SetVisible(true);
    EXPECT_TRUE(IsWindowVisible(Inside().Window()));
    EXPECT_TRUE(IsWindowVisible(InsideButton().Window()));

    // A control comes back by itself and with its frame, in whichever order it went.
    TheFrame().SetVisible(false);
    Inside().SetVisible(false);
    TheFrame().SetVisible(true);
    EXPECT_FALSE(Inside().Window() && IsWindowVisible(Inside().Window()));
    Inside().SetVisible(true);
    EXPECT_TRUE(IsWindowVisible(Inside().Window()));
    Inside().SetVisible(false);
    TheFrame().SetVisible(false);
    Inside().SetVisible(true);
    EXPECT_FALSE(Inside().Window() && IsWindowVisible(Inside().Window()));
    TheFrame().SetVisible(true);
    EXPECT_TRUE(IsWindowVisible(Inside().Window()));

    // What is hidden by itself stays so.
    InsideButton().SetVisible(false);
    TheFrame().SetVisible(false);
    TheFrame().SetVisible(true);
    EXPECT_FALSE(IsWindowVisible(InsideButton().Window()));
}

TEST_F(Frame, CountsInTheTabOrderAsItStands)
{
    Key(VK_TAB, {VK_SHIFT});
    TheForm().FocusAfter(TheFrame());
    EXPECT_EQ(TheForm().FocusedItem(), &Inside());
    Key(VK_TAB);
    EXPECT_EQ(TheForm().FocusedItem(), &InsideButton());
    Key(VK_TAB);
    EXPECT_EQ(TheForm().FocusedItem(), &Outside());
    Key('G', {VK_MENU});
    EXPECT_EQ(TheForm().FocusedItem(), &Inside());
}

TEST_F(Frame, HoldsFrames)
{
    host::FrameOptions options;
    options.name = L"inner";
    options.bounds = {160, 30, 280, 100};
    options.container = &TheFrame();
    host::Frame& inner = TheForm().AddFrame(options);
    host::SiteOptions site = Placed({170, 50, 270, 70});
    site.container = &inner;
    host::ControlSite& control = TheForm().Add(CreateYesNo().Get(), Recorded(site));
    TheFrame().Move({20, 20, 300, 120});
    EXPECT_EQ(control.Bounds().left, 180);
    TheFrame().SetEnabled(false);
    EXPECT_FALSE(control.CanBeUsed());
    TheFrame().SetEnabled(true);
    EXPECT_TRUE(IsWindowEnabled(control.Window()));
}

TEST_F(Frame, ForgetsWhatIsRemoved)
{
    TheForm().Remove(Inside());
    TheFrame().Move({30, 15, 310, 115});
    TheFrame().SetEnabled(false);
    TheFrame().SetVisible(false);
    EXPECT_EQ(InsideButton().Bounds().left, 50);
}

} // namespace

} // namespace kiv::test
