// The constituent button, on a host's window: a real BUTTON, pressed by real messages.

#include "runtime/constituents/CommandButton.h"
#include "tests/support/HostWindow.h"
#include "tests/support/Pixels.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include <gtest/gtest.h>

#include <memory>

namespace kiv::test
{

namespace
{

// A control as its button sees it: hands on what the button's window tells its parent.
class Owner final : public ConstituentOwner
{
public:
    Owner() { former_ = Replace(&Owner::WndProc); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { Replace(former_); }

    HWND Window() const { return window_.Handle(); }

    bool TakesInput() const override { return Awake; }
    void PreviewKeyDown(short& keyCode) override { Swallow(keyCode); }
    void PreviewKeyPress(short& keyAscii) override { Swallow(keyAscii); }
    void PreviewKeyUp(short& keyCode) override { Swallow(keyCode); }
    void ConstituentFocus(bool gained, HWND) override { Focused = gained; }
    IUnknown* ConstituentHolder() noexcept override { return nullptr; }

    bool Awake = true;
    bool Focused = false;

private:
    void Swallow(short& key) const
    {
        if (!Awake)
            key = 0;
    }
    WNDPROC Replace(WNDPROC procedure) const
    {
        return reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    }
    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (message == WM_COMMAND)
            Constituent::Of(reinterpret_cast<HWND>(lParam))->Notified(HIWORD(wParam));
        return DefWindowProcA(window, message, wParam, lParam);
    }

    HostWindow window_;
    WNDPROC former_ = nullptr;
};

class CommandButtonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        button.Move(0, 0, 60, 20);
        button.OnClick = [this] {
            ++clicks;
            valueInside = button.Value();
        };
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = MAKELPARAM(10, 10))
    {
        return SendMessageA(button.hWnd(), message, wParam, lParam);
    }

    Owner owner;
    CommandButton button{owner, owner.Window(), L"&Go"};
    int clicks = 0;
    bool valueInside = false;
};

TEST_F(CommandButtonTest, IsARealButtonWithItsCaption)
{
    EXPECT_EQ(ClassNameOf(button.hWnd()), "Button");
    char text[16] = {};
    GetWindowTextA(button.hWnd(), text, sizeof text);
    EXPECT_STREQ(text, "&Go");
    button.Caption(L"St&op");
    EXPECT_EQ(Narrow(button.Caption()), "St&op");
    GetWindowTextA(button.hWnd(), text, sizeof text);
    EXPECT_STREQ(text, "St&op");
}

TEST_F(CommandButtonTest, AClickIsAPressAndARelease)
{
    Send(WM_LBUTTONDOWN, MK_LBUTTON);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(owner.Focused);
    Send(WM_LBUTTONUP);
    EXPECT_EQ(clicks, 1);
}

TEST_F(CommandButtonTest, ReleasedOutsideIsNoClick)
{
    Send(WM_LBUTTONDOWN, MK_LBUTTON);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(100, 10));
    EXPECT_EQ(clicks, 0);
}

TEST_F(CommandButtonTest, TwoQuickClicksAreTwoClicks)
{
    for (const LONG_PTR style : {LONG_PTR{BS_PUSHBUTTON}, LONG_PTR{BS_OWNERDRAW}})
    {
        SetWindowLongPtrA(button.hWnd(), GWL_STYLE,
                          (GetWindowLongPtrA(button.hWnd(), GWL_STYLE) & ~LONG_PTR{BS_TYPEMASK}) | style);
        clicks = 0;
        Send(WM_LBUTTONDOWN, MK_LBUTTON);
        Send(WM_LBUTTONUP);
        Send(WM_LBUTTONDBLCLK, MK_LBUTTON);
        Send(WM_LBUTTONUP);
        EXPECT_EQ(clicks, 2) << style;
    }
}

TEST_F(CommandButtonTest, SpaceClicksWhenItIsReleasedAndEnterWhenItIsPressed)
{
    SetFocus(button.hWnd());
    Send(WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_NE(Send(BM_GETSTATE) & BST_PUSHED, 0);
    Send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(clicks, 1);
    Send(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(clicks, 2);
    Send(WM_KEYUP, VK_RETURN, 1);
    Send(WM_KEYDOWN, 'A', 1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(CommandButtonTest, AnOwnerThatTakesNoInputKeepsMouseAndKeysAway)
{
    owner.Awake = false;
    Send(WM_LBUTTONDOWN, MK_LBUTTON);
    EXPECT_FALSE(owner.Focused);
    Send(WM_LBUTTONUP);
    for (const WPARAM key : {VK_SPACE, VK_RETURN})
    {
        Send(WM_KEYDOWN, key, 1);
        Send(WM_KEYUP, key, 1);
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(CommandButtonTest, ValueIsTrueWhileItIsClickedAndSettingItClicks)
{
    EXPECT_FALSE(button.Value());
    button.Value(true);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(valueInside);
    EXPECT_FALSE(button.Value());
    button.Value(false);
    EXPECT_EQ(clicks, 1);
}

TEST_F(CommandButtonTest, ADisabledButtonTakesNoClicks)
{
    button.Enabled(false);
    EXPECT_FALSE(button.Enabled());
    EXPECT_EQ(ChildWindowFromPointEx(owner.Window(), {10, 10}, CWP_SKIPDISABLED), owner.Window());
    button.Enabled(true);
    EXPECT_TRUE(button.Enabled());
}

TEST_F(CommandButtonTest, DrawsItselfElsewhere)
{
    const SIZE size = {60, 20};
    const RECT place = {0, 0, size.cx, size.cy};
    const Canvas empty(size);
    const Canvas enabled(size);
    button.Draw(enabled.Dc(), place);
    EXPECT_NE(Difference(empty.Content(), enabled.Content()), "");
    EXPECT_EQ(enabled.Content().At(3, 3), GetSysColor(COLOR_BTNFACE));
    const Canvas disabled(size);
    button.Enabled(false);
    button.Draw(disabled.Dc(), place);
    EXPECT_NE(Difference(enabled.Content(), disabled.Content()), "");
}

} // namespace

} // namespace kiv::test
