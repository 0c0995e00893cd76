// What a container hears of the focus: when it enters and leaves a control within the form, and not when
// another window is in front for a while.

#include "tests/com/each/EachTest.h"

#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <algorithm>
#include <functional>

namespace kiv::test
{

namespace
{

constexpr char Gained[] = "OnFocus(true)";
constexpr char Lost[] = "OnFocus(false)";

// A control on a form that does not put the focus back by itself, with something beside it to take it.
class FocusedControl : public HeldControl
{
public:
    explicit FocusedControl(REFCLSID classId) : HeldControl(classId)
    {
        Site().Log().AllowAll();
        Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(true));
        InitNew();
        beside_ = CreateWindowExA(0, "BUTTON", "Beside", WS_CHILD | WS_VISIBLE, 10, 100, 60, 20, Form(),
                                  nullptr, nullptr, nullptr);
        SetForegroundWindow(Form());
        Show();
    }

    HWND Form() const { return Site().Window().Handle(); }
    HWND Beside() const { return beside_; }
    void Show() const
    {
        EXPECT_EQ(Hr(Query<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, Form(),
                                                 &Site().Position())),
                  Hr(S_OK));
        DrainMessages();
    }
    bool HasFocus() const
    {
        HWND window = nullptr;
        Check(Query<IOleInPlaceObject>()->GetWindow(&window));
        return GetFocus() == window || IsChild(window, GetFocus());
    }
    // What the site was told of the focus since the last time.
    std::vector<std::string> Heard() const
    {
        std::vector<std::string> calls = Site().Log().TakeCalls();
        std::erase_if(calls, [](const std::string& call) { return call != Gained && call != Lost; });
        return calls;
    }

private:
    HWND beside_ = nullptr;
};

using Calls = std::vector<std::string>;

class EachFocus : public EachTest
{
};

TEST_P(EachFocus, IsToldWhenItComesAndGoesInTheForm)
{
    FocusedControl control(ClassId());
    EXPECT_TRUE(control.HasFocus());
    EXPECT_EQ(control.Heard(), Calls{Gained});
    SetFocus(control.Beside());
    EXPECT_EQ(control.Heard(), Calls{Lost});
    SetFocus(control.Form());
    EXPECT_EQ(control.Heard(), Calls());
}

TEST_P(EachFocus, IsKeptWhileAnotherWindowIsInFront)
{
    FocusedControl control(ClassId());
    control.Heard();
    for (int time = 0; time < 2; ++time)
    {
        HostWindow other;
        SetForegroundWindow(other.Handle());
        SetFocus(other.Handle());
        EXPECT_FALSE(control.HasFocus());
        EXPECT_EQ(control.Heard(), Calls());
        // The system gives the focus to the form as a whole, which then passes it on.
        SetForegroundWindow(control.Form());
        SetFocus(control.Form());
        EXPECT_EQ(control.Heard(), Calls());
        control.Show();
        EXPECT_TRUE(control.HasFocus()) << "shown again, an active control takes the focus back";
        EXPECT_EQ(control.Heard(), Calls());
    }
    SetFocus(control.Beside());
    EXPECT_EQ(control.Heard(), Calls{Lost});
}

TEST_P(EachFocus, IsLostWhenItGoesElsewhereMeanwhile)
{
    FocusedControl control(ClassId());
    control.Heard();
    HostWindow other;
    SetForegroundWindow(other.Handle());
    SetFocus(other.Handle());
    SetFocus(control.Beside());
    EXPECT_EQ(control.Heard(), Calls{Lost});
    SetFocus(other.Handle());
    SetFocus(control.Beside());
    EXPECT_EQ(control.Heard(), Calls()) << "once is enough";
}

TEST_P(EachFocus, EndsWithTheControl)
{
    for (const bool destroyWindow : {false, true})
    {
        HostWindow other;
        FocusedControl control(ClassId());
        SetForegroundWindow(other.Handle());
        SetFocus(other.Handle());
        control.Heard();
        if (destroyWindow)
            control.Site().Window().Destroy();
        else
            Check(control.Query<IOleInPlaceObject>()->InPlaceDeactivate());
        const Calls heard = control.Heard();
        EXPECT_LE(std::ranges::count(heard, Lost), 1);
        EXPECT_EQ(std::ranges::count(heard, Gained), 0);
        SetFocus(nullptr);
        SetFocus(other.Handle());
        EXPECT_EQ(control.Heard(), Calls());
    }
}

// What is not on the form any more takes no keys: the focus goes to the form, and the site hears of it.
TEST_P(EachFocus, IsGivenUpWithThePlaceOnTheForm)
{
    const std::function<void(const FocusedControl&)> ways[] = {
        [](const FocusedControl& control) { Check(control.Query<IOleInPlaceObject>()->InPlaceDeactivate()); },
        [](const FocusedControl& control) {
            Check(control.Query<IOleObject>()->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, control.Form(),
                                                      &control.Site().Position()));
        },
        [](const FocusedControl& control) { Check(control.Query<IOleObject>()->Close(OLECLOSE_NOSAVE)); },
    };
    for (const auto& putAway : ways)
    {
        FocusedControl control(ClassId());
        EXPECT_EQ(control.Heard(), Calls{Gained});
        putAway(control);
        EXPECT_EQ(GetFocus(), control.Form());
        EXPECT_EQ(control.Heard(), Calls{Lost});
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachFocus, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
