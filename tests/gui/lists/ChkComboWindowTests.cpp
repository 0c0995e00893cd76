// The windows of a ChkCombo: where the focus goes, how high they are, and what becomes of them.

#include "runtime/com/Errors.h"
#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"
#include "tests/support/WindowClass.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

using ChkComboFocus = ChkComboTest;
using ChkComboSize = ChkComboTest;
using ChkComboDesign = ChkComboTest;
using ChkComboEndurance = ChkComboTest;

int Count(const std::vector<std::string>& calls, const char* call)
{
    return static_cast<int>(std::ranges::count(calls, call));
}

// Counts the messages of a kind that a window gets, on top of all that the library has put there; keeps the
// sizes that WM_WINDOWPOSCHANGING asks for.
class MessageWatch
{
public:
    MessageWatch(HWND window, UINT message) : window_(window), message_(message)
    {
        SetPropA(window, Property, this);
        previous_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MessageWatch::Watch)));
    }
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;
    ~MessageWatch()
    {
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
        RemovePropA(window_, Property);
    }

    int Seen() const { return seen_; }
    const std::vector<SIZE>& Sizes() const { return sizes_; }

private:
    static constexpr char Property[] = "KivTests.MessageWatch";

    static LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* watch = static_cast<MessageWatch*>(GetPropA(window, Property));
        if (message == watch->message_)
            ++watch->seen_;
        if (message == WM_WINDOWPOSCHANGING && message == watch->message_)
        {
            const auto* asked = reinterpret_cast<const WINDOWPOS*>(lParam);
            watch->sizes_.push_back({asked->cx, asked->cy});
        }
        return CallWindowProcA(watch->previous_, window, message, wParam, lParam);
    }

    HWND window_;
    UINT message_;
    WNDPROC previous_ = nullptr;
    int seen_ = 0;
    std::vector<SIZE> sizes_;
};

TEST_F(ChkComboFocus, IsHeldByAScrollBarThatNobodySees)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    EXPECT_EQ(GetFocus(), combo.ScrollBar());
    EXPECT_TRUE(IsOfClass(combo.ScrollBar(), "ScrollBar"));
    RECT place = {};
    RECT control = {};
    GetWindowRect(combo.ScrollBar(), &place);
    GetWindowRect(combo.Window(), &control);
    RECT seen = {};
    EXPECT_FALSE(IntersectRect(&seen, &place, &control));
    EXPECT_NE(GetWindowLongA(combo.ScrollBar(), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(ChkComboFocus, GoesFromTheComboBoxToTheScrollBar)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    WaitForTheNextHandOver();
    SetFocus(combo.Combo());
    EXPECT_EQ(GetFocus(), combo.ScrollBar());
}

TEST_F(ChkComboFocus, ArrivingTwiceAtOnceIsHandedOnOnce)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    SendMessageA(combo.Combo(), WM_SETFOCUS, 0, 0);
    PumpPending(TheForm());
    // The two have to arrive within ten milliseconds, which a busy machine does not always manage.
    bool inTime = false;
    for (int attempt = 0; attempt < 100 && !inTime; ++attempt)
    {
        WaitForTheNextHandOver();
        const MessageWatch handedOn(combo.Window(), WM_SETFOCUS);
        const DWORD start = GetTickCount();
        SendMessageA(combo.Combo(), WM_SETFOCUS, 0, 0);
        SendMessageA(combo.Combo(), WM_SETFOCUS, 0, 0);
        inTime = GetTickCount() - start <= 10;
        if (inTime)
        {
            EXPECT_EQ(handedOn.Seen(), 1);
        }
    }
    EXPECT_TRUE(inTime);
    const MessageWatch handedOn(combo.Window(), WM_SETFOCUS);
    WaitForTheNextHandOver();
    SendMessageA(combo.Combo(), WM_SETFOCUS, 0, 0);
    EXPECT_EQ(handedOn.Seen(), 1);
}

// However the control's windows tell each other, the host hears of it once.
TEST_F(ChkComboFocus, IsToldToTheHostOnce)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    WaitForTheNextHandOver();
    RecordOf(combo.Site()).ClearCalls();
    ClickAt(combo.Middle());
    WaitForTheNextHandOver();
    Settle();
    Key(VK_ESCAPE);
    EXPECT_EQ(Count(RecordOf(combo.Site()).Calls(), "IOleControlSite::OnFocus"), 1);
    EXPECT_EQ(Count(RecordOf(combo.Site()).Calls(), "IOleInPlaceSite::OnUIActivate"), 1);
    ClickAt(combo.Middle());
    Key(VK_ESCAPE);
    EXPECT_EQ(Count(RecordOf(combo.Site()).Calls(), "IOleControlSite::OnFocus"), 1);
    Key(VK_TAB);
    EXPECT_EQ(Count(RecordOf(combo.Site()).Calls(), "IOleControlSite::OnFocus"), 2);
    EXPECT_FALSE(combo.Site().HasFocus());
}

// The combo box hears of the focus a moment later; by then it may be elsewhere.
TEST_F(ChkComboFocus, DoesNotComeBackOnceItIsElsewhere)
{
    host::Button& elsewhere = AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    WaitForTheNextHandOver();
    SetFocus(combo.ScrollBar());
    SetFocus(elsewhere.Window());
    PumpPending(TheForm());
    EXPECT_EQ(GetFocus(), elsewhere.Window());
}

TEST_F(ChkComboFocus, ShowsInTheComboBox)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    ShowForm();
    const auto inside = [&] {
        PumpPending(TheForm());
        return PixelsOfWindow(combo.Combo()).At(80, 12);
    };
    EXPECT_EQ(inside(), GetSysColor(COLOR_WINDOW));
    Key(VK_TAB);
    EXPECT_EQ(inside(), GetSysColor(COLOR_HIGHLIGHT));
    Key(VK_TAB);
    EXPECT_EQ(inside(), GetSysColor(COLOR_WINDOW));
}

TEST_F(ChkComboSize, IsAsHighAsTheClosedComboBox)
{
    for (const int height : {5, 26, 60})
    {
        HostedCombo combo = AddCombo({}, Placed({20, 10, 160, 10 + height}));
        ShowForm();
        RECT control = {};
        RECT box = {};
        GetWindowRect(combo.Window(), &control);
        GetWindowRect(combo.Combo(), &box);
        EXPECT_TRUE(EqualRect(&control, &box)) << height;
        EXPECT_EQ(control.right - control.left, 140);
        const host::ControlSite& site = combo.Site();
        EXPECT_EQ(site.Bounds().bottom - site.Bounds().top, control.bottom - control.top) << "the form knows";
    }
}

TEST_F(ChkComboSize, FollowsTheControlsWidth)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    combo.Site().Move({20, 10, 250, 34});
    RECT box = {};
    GetClientRect(combo.Combo(), &box);
    EXPECT_EQ(box.right, 230);
}

TEST_F(ChkComboSize, GrowsWithItsFont)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    RECT before = {};
    GetWindowRect(combo.Window(), &before);
    ASSERT_HRESULT_SUCCEEDED(combo->putref_Font(MakeFont({.Size = {{240000, 0}}}).Get()));
    RECT after = {};
    GetWindowRect(combo.Window(), &after);
    EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
    EXPECT_GE(SendMessageW(combo.Combo(), CB_GETITEMHEIGHT, 0, 0), 32);
    ASSERT_HRESULT_SUCCEEDED(combo->putref_Font(MakeFont().Get()));
    GetWindowRect(combo.Window(), &after);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

struct OpenRow : NamedRow
{
    int Items;
    int Shown;
};

const OpenRow OpenRows[] = {
    {"Empty", 0, 1}, {"One", 1, 8}, {"Seven", 7, 8}, {"Eight", 8, 8}, {"Many", 100, 8}};

class ChkComboOpen : public ChkComboTest, public testing::WithParamInterface<OpenRow>
{
};

// The room for the list; the system gives it up again where the items need less.
TEST_P(ChkComboOpen, HasRoomForOneItemOrEight)
{
    HostedCombo combo = ShownCombo(std::vector<long>(static_cast<std::size_t>(GetParam().Items)));
    RECT before = {};
    GetWindowRect(combo.Window(), &before);
    const MessageWatch room(combo.Combo(), WM_WINDOWPOSCHANGING);
    Key(VK_F4);
    ASSERT_TRUE(combo.IsOpen());
    const auto itemHeight = static_cast<int>(SendMessageW(combo.Combo(), CB_GETITEMHEIGHT, 0, 0));
    ASSERT_FALSE(room.Sizes().empty());
    EXPECT_EQ(room.Sizes().front().cy, before.bottom - before.top + GetParam().Shown * itemHeight + 2);
    EXPECT_EQ(room.Sizes().front().cx, 140);
    RECT list = {};
    GetClientRect(combo.List(), &list);
    const int items = std::clamp(GetParam().Items, 1, 8);
    EXPECT_EQ(list.bottom, items * itemHeight);
    EXPECT_EQ((GetWindowLongA(combo.List(), GWL_STYLE) & WS_VSCROLL) != 0, GetParam().Items > 8);
    RECT after = {};
    GetWindowRect(combo.Window(), &after);
    EXPECT_TRUE(EqualRect(&before, &after)) << "the control itself stays as it is";
    combo.Open(false);
}

// The room is taken before the host hears: one that fills an empty list in DropDown gets a list of one line.
TEST_F(ChkComboSize, AListThatIsFilledAsItOpensHasRoomForOne)
{
    HostedCombo combo = ShownCombo({});
    combo.On(L"DropDown", [&](DISPPARAMS&) {
        for (const wchar_t* item : {L"one", L"two", L"three"})
            EXPECT_HRESULT_SUCCEEDED(combo->AddItem(Bstr(item).Get(), -1));
    });
    Key(VK_F4);
    ASSERT_TRUE(combo.IsOpen());
    const auto itemHeight = static_cast<int>(SendMessageW(combo.Combo(), CB_GETITEMHEIGHT, 0, 0));
    RECT list = {};
    GetClientRect(combo.List(), &list);
    EXPECT_EQ(list.bottom, itemHeight);
    combo.Open(false);
    combo.On(L"DropDown", {});
    Key(VK_F4);
    GetClientRect(combo.List(), &list);
    EXPECT_EQ(list.bottom, 3 * itemHeight) << "opened once more";
    combo.Open(false);
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboOpen, testing::ValuesIn(OpenRows), RowName());

TEST_F(ChkComboDesign, RefusesStatusAndData)
{
    host::SiteOptions options = Wide();
    options.userMode = false;
    HostedCombo combo = AddCombo({}, options);
    combo.Add(L"item");
    DetailStatusEnums status = Blank;
    LONG data = 0;
    for (const short index : std::initializer_list<short>{0, 5})
    {
        EXPECT_EQ(combo->get_ListCompletionStatus(index, &status), RunTimeError(387)) << index;
        EXPECT_EQ(combo->put_ListCompletionStatus(index, Partial), RunTimeError(387)) << index;
        EXPECT_EQ(combo->put_ItemData(index, 1), RunTimeError(387)) << index;
    }
    EXPECT_EQ(combo->get_ItemData(0, &data), S_OK);
    EXPECT_EQ(data, 0);
    EXPECT_EQ(combo.Item(0), L"item");
    EXPECT_EQ(combo.Text(), L"");
}

TEST_F(ChkComboDesign, DoesNotOpen)
{
    host::SiteOptions options = Wide();
    options.userMode = false;
    HostedCombo combo = AddCombo({}, options);
    ShowForm();
    ClickAt(combo.Middle());
    EXPECT_FALSE(combo.IsOpen());
}

// --- A host may do away with the control while it tells something ---

enum class Blow
{
    Deactivate,
    Close,
    Remove,
    DestroyForm
};

struct BlowRow : NamedRow
{
    Blow What;
};

class ChkComboBlow : public ChkComboTest, public testing::WithParamInterface<BlowRow>
{
protected:
    void ExpectSurvival(const wchar_t* event, const std::function<void(HostedCombo&)>& act)
    {
        HostedCombo combo = ShownCombo(OneOfEach());
        combo.LetGo();
        bool struck = false;
        combo.On(event, [&](DISPPARAMS&) {
            if (!std::exchange(struck, true))
                Strike(combo.Site());
        });
        act(combo);
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return struck; }));
        PumpPending(TheForm());
        EXPECT_FALSE(IsWindow(combo.List()) && IsWindowVisible(combo.List()));
    }

private:
    void Strike(host::ControlSite& site)
    {
        switch (GetParam().What)
        {
        case Blow::Deactivate:
            EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
            break;
        case Blow::Close:
            EXPECT_HRESULT_SUCCEEDED(site.Close());
            break;
        case Blow::Remove:
            TheForm().Remove(site);
            break;
        case Blow::DestroyForm:
            TheForm().Destroy();
            break;
        }
    }
};

TEST_P(ChkComboBlow, InClickByAKeyIsSurvived)
{
    ExpectSurvival(L"Click", [](HostedCombo&) { TapKey(VK_DOWN); });
}

TEST_P(ChkComboBlow, InClickByTheMouseIsSurvived)
{
    ExpectSurvival(L"Click", [this](HostedCombo& combo) {
        ClickAt(combo.Middle());
        const POINT item = combo.ItemOnScreen(1);
        PointAt(item);
        Settle();
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    });
}

TEST_P(ChkComboBlow, InClickByTheHostsOwnAssignmentIsSurvived)
{
    ExpectSurvival(L"Click", [](HostedCombo& combo) { combo.Site().Put(L"ListIndex", Variant(short{1})); });
}

TEST_P(ChkComboBlow, InDropDownByAKeyIsSurvived)
{
    ExpectSurvival(L"DropDown", [](HostedCombo&) { TapKey(VK_F4); });
}

TEST_P(ChkComboBlow, InDropDownByTheMouseIsSurvived)
{
    ExpectSurvival(L"DropDown", [this](HostedCombo& combo) {
        PointAt(combo.Middle());
        Settle();
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    });
}

TEST_P(ChkComboBlow, InCloseUpIsSurvived)
{
    ExpectSurvival(L"CloseUp", [](HostedCombo&) {
        TapKey(VK_F4);
        TapKey(VK_ESCAPE);
    });
}

const BlowRow BlowRows[] = {
    {"Deactivate", Blow::Deactivate},
    {"Close", Blow::Close},
    {"Remove", Blow::Remove},
    {"DestroyForm", Blow::DestroyForm},
};

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboBlow, testing::ValuesIn(BlowRows), RowName());

TEST_F(ChkComboEndurance, LeavesNothingOfAThousand)
{
    AddElsewhere();
    ShowForm();
    DWORD handlesBefore = 0;
    DWORD handlesAfter = 0;
    for (int turn = 0; turn < 1000; ++turn)
    {
        HostedCombo combo = AddCombo(OneOfEach());
        combo->put_ListIndex(1);
        if (turn % 50 == 0)
        {
            combo.Open(true);
            combo.Open(false);
        }
        combo.LetGo();
        TheForm().Remove(combo.Site());
        ASSERT_EQ(ControlWindows(), 0) << turn;
        if (turn == 100)
            GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
    }
    GetProcessHandleCount(GetCurrentProcess(), &handlesAfter);
    EXPECT_LE(handlesAfter, handlesBefore + 10);
}

} // namespace

} // namespace kiv::test
