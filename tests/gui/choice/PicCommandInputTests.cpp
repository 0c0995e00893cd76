// A PicCommand answered by mouse, keyboard and access key, on forms that do what they like in its Click.

#include "tests/gui/HostedTest.h"
#include "tests/gui/choice/HostedButton.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Text.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"

#include <optional>

namespace kiv::test
{

namespace
{

class PicCommandInput : public HostedTest
{
protected:
    // The form's own default and cancel buttons count as well.
    HostedButton& Shown()
    {
        host::ButtonOptions ok;
        ok.name = L"cmdOK";
        ok.caption = L"&OK";
        ok.bounds = {200, 20, 290, 44};
        ok.isDefault = true;
        ok.onClick = [this] { ++okPressed_; };
        ok_ = &TheForm().AddButton(ok);
        host::ButtonOptions cancel;
        cancel.name = L"cmdCancel";
        cancel.caption = L"Cancel";
        cancel.bounds = {200, 50, 290, 74};
        cancel.isCancel = true;
        cancel.onClick = [this] { ++cancelPressed_; };
        TheForm().AddButton(cancel);
        button_.emplace(TheForm(), Placed({20, 20, 140, 48}));
        button_->SetCaption(L"&Details");
        ShowForm();
        return *button_;
    }
    HostedButton& Focused()
    {
        HostedButton& button = Shown();
        button.Site().Focus();
        Settle();
        return button;
    }
    host::Button& Ok() { return *ok_; }
    int TakeOkPressed() { return std::exchange(okPressed_, 0); }
    int TakeCancelPressed() { return std::exchange(cancelPressed_, 0); }

    void MouseDown(POINT place, MouseButton which = MouseButton::Left)
    {
        PointAt(place);
        PressButton(which);
        Settle();
    }
    void MouseUp(POINT place, MouseButton which = MouseButton::Left)
    {
        PointAt(place);
        ReleaseButton(which);
        Settle();
    }
    static bool IsPushed(const HostedButton& button)
    {
        return (SendMessageW(button.Button(), BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
    }

private:
    std::optional<HostedButton> button_;
    host::Button* ok_ = nullptr;
    int okPressed_ = 0;
    int cancelPressed_ = 0;
};

TEST_F(PicCommandInput, AClickIsAPressAndAReleaseInside)
{
    HostedButton& button = Shown();
    MouseDown(button.Middle());
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_EQ(GetFocus(), button.Button());
    EXPECT_EQ(TheForm().ActiveSite(), &button.Site());
    EXPECT_TRUE(IsPushed(button));
    MouseUp(button.Middle());
    EXPECT_EQ(button.TakeClicks(), 1);
    EXPECT_FALSE(IsPushed(button));
}

TEST_F(PicCommandInput, ReleasedElsewhereIsNoClick)
{
    HostedButton& button = Shown();
    POINT outside = button.Middle();
    outside.y += 60;
    MouseDown(button.Middle());
    MouseUp(outside);
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_FALSE(IsPushed(button));
    MouseDown(outside);
    MouseUp(button.Middle());
    EXPECT_EQ(button.TakeClicks(), 0);
}

TEST_F(PicCommandInput, QuickClicksAllCount)
{
    HostedButton& button = Shown();
    PointAt(button.Middle());
    for (int click = 0; click < 4; ++click)
    {
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    }
    Settle();
    EXPECT_EQ(button.TakeClicks(), 4);
}

TEST_F(PicCommandInput, OtherMouseButtonsDoNothing)
{
    HostedButton& button = Shown();
    for (const MouseButton which : {MouseButton::Right, MouseButton::Middle})
    {
        MouseDown(button.Middle(), which);
        MouseUp(button.Middle(), which);
    }
    EXPECT_EQ(button.TakeClicks(), 0);
}

TEST_F(PicCommandInput, SpaceClicksWhenItComesUp)
{
    HostedButton& button = Focused();
    PressKey(VK_SPACE);
    Settle();
    EXPECT_TRUE(IsPushed(button));
    EXPECT_EQ(button.TakeClicks(), 0);
    ReleaseKey(VK_SPACE);
    Settle();
    EXPECT_EQ(button.TakeClicks(), 1);
    EXPECT_FALSE(IsPushed(button));
}

TEST_F(PicCommandInput, EnterClicksItAndNotTheDefaultButton)
{
    HostedButton& button = Focused();
    Key(VK_RETURN);
    EXPECT_EQ(button.TakeClicks(), 1);
    EXPECT_EQ(TakeOkPressed(), 0);
    Ok().Focus();
    Key(VK_RETURN);
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_EQ(TakeOkPressed(), 1);
}

TEST_F(PicCommandInput, EscIsTheFormsAndOtherKeysDoNothing)
{
    HostedButton& button = Focused();
    Key(VK_ESCAPE);
    EXPECT_EQ(TakeCancelPressed(), 1);
    for (const WORD key : {WORD{'D'}, WORD{VK_LEFT}, WORD{VK_F5}})
        Key(key);
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_EQ(TakeOkPressed() + TakeCancelPressed(), 0);
}

TEST_F(PicCommandInput, TabGoesThroughIt)
{
    HostedButton& button = Shown();
    button.Site().SetTabIndex(1);
    Ok().SetTabIndex(0);
    TheForm().Find(L"cmdCancel")->SetTabIndex(2);
    Ok().Focus();
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), button.Button());
    Key(VK_TAB);
    EXPECT_EQ(TheForm().FocusedItem()->Name(), L"cmdCancel");
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), button.Button());
    button.SetEnabled(false);
    Ok().Focus();
    Key(VK_TAB);
    EXPECT_EQ(TheForm().FocusedItem()->Name(), L"cmdCancel");
}

TEST_F(PicCommandInput, ItsAccessKeyClicksItFromAnywhere)
{
    HostedButton& button = Shown();
    Ok().Focus();
    Key('D', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 1);
    EXPECT_EQ(GetFocus(), button.Button());
    // From the button itself as well, and other letters are not its own.
    Key('D', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 1);
    Key('X', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 0);
    Key('D');
    EXPECT_EQ(button.TakeClicks(), 0) << "without Alt";
}

TEST_F(PicCommandInput, AnotherCaptionHasAnotherAccessKey)
{
    HostedButton& button = Shown();
    Ok().Focus();
    button.SetCaption(L"Deta&ils");
    Key('D', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_EQ(TheForm().FocusedItem(), &Ok());
    Key('I', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 1);
    Ok().Focus();
    button.SetCaption(L"Details");
    Key('I', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 0);
}

TEST_F(PicCommandInput, DisabledItTakesNothing)
{
    HostedButton& button = Shown();
    button.SetEnabled(false);
    Ok().Focus();
    MouseDown(button.Middle());
    MouseUp(button.Middle());
    Key('D', {VK_MENU});
    EXPECT_EQ(button.TakeClicks(), 0);
    EXPECT_EQ(TheForm().FocusedItem(), &Ok());
    // Code may still press it.
    button.Site().Put(L"Value", Variant(true));
    EXPECT_EQ(button.TakeClicks(), 1);
}

TEST_F(PicCommandInput, BeingDesignedItTakesNothing)
{
    HostedButton& button = Focused();
    button.Site().SetUserMode(false);
    MouseDown(button.Middle());
    MouseUp(button.Middle());
    for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}})
        Key(key);
    EXPECT_EQ(button.TakeClicks(), 0);
}

TEST_F(PicCommandInput, ANewOneShowsItsName)
{
    host::SiteOptions options = Placed({20, 20, 140, 48});
    options.name = L"cmdDependents";
    const HostedButton named(TheForm(), options);
    EXPECT_EQ(named.Site().Get(L"Caption").Text(), L"cmdDependents");
    EXPECT_TRUE(RecordOf(named.Site()).Notifications().empty());

    options.extendedControl = false;
    options.bounds = {20, 60, 140, 88};
    const HostedButton unnamed(TheForm(), options);
    EXPECT_EQ(unnamed.Site().Get(L"Caption").Text(), L"");
}

// --- What a host may do in Click ---

enum class Blow
{
    Disable,
    Deactivate,
    Close,
    Remove,
    DestroyForm
};

struct BlowRow : NamedRow
{
    Blow What;
};

class PicCommandBlow : public PicCommandInput, public testing::WithParamInterface<BlowRow>
{
protected:
    void Strike(HostedButton& button)
    {
        switch (GetParam().What)
        {
        case Blow::Disable:
            button.SetEnabled(false);
            break;
        case Blow::Deactivate:
            EXPECT_HRESULT_SUCCEEDED(button.Site().Deactivate());
            break;
        case Blow::Close:
            EXPECT_HRESULT_SUCCEEDED(button.Site().Close());
            break;
        case Blow::Remove:
            TheForm().Remove(button.Site());
            break;
        case Blow::DestroyForm:
            TheForm().Destroy();
            break;
        }
    }
    // A button that strikes in its click.
    HostedButton& Loaded()
    {
        HostedButton& button = Focused();
        button.OnClick([this, &button] {
            if (!std::exchange(struck_, true))
                Strike(button);
        });
        return button;
    }
    void ExpectSurvival()
    {
        EXPECT_TRUE(PumpUntil(TheForm(), [this] { return struck_; }));
        PumpPending(TheForm());
    }

private:
    bool struck_ = false;
};

TEST_P(PicCommandBlow, ByTheMouseIsSurvived)
{
    PointAt(Loaded().Middle());
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    ExpectSurvival();
}

TEST_P(PicCommandBlow, BySpaceIsSurvived)
{
    Loaded();
    TapKey(VK_SPACE);
    ExpectSurvival();
}

TEST_P(PicCommandBlow, ByEnterIsSurvived)
{
    Loaded();
    TapKey(VK_RETURN);
    ExpectSurvival();
}

TEST_P(PicCommandBlow, ByTheAccessKeyIsSurvived)
{
    Loaded();
    Ok().Focus();
    TapKey('D', {VK_MENU});
    ExpectSurvival();
}

TEST_P(PicCommandBlow, ByCodeIsSurvived)
{
    HostedButton& button = Loaded();
    const Microsoft::WRL::ComPtr<IDispatch> control = button.Site().Control();
    Microsoft::WRL::ComPtr<_PicCommand> called;
    ASSERT_HRESULT_SUCCEEDED(control.As(&called));
    called->put_Value(VARIANT_TRUE);
    ExpectSurvival();
}

INSTANTIATE_TEST_SUITE_P(Blows, PicCommandBlow,
                         testing::Values(BlowRow{{"Disable"}, Blow::Disable},
                                         BlowRow{{"Deactivate"}, Blow::Deactivate},
                                         BlowRow{{"Close"}, Blow::Close}, BlowRow{{"Remove"}, Blow::Remove},
                                         BlowRow{{"DestroyForm"}, Blow::DestroyForm}),
                         RowName());

} // namespace

} // namespace kiv::test
