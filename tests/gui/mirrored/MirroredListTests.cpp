// Lists on a form from right to left: the arrow of a ChkCombo and the button of an EnumList stand at the
// left, marks at the right; and the picker is from right to left, too.

#include "tests/gui/mirrored/MirroredTest.h"

#include "tests/gui/lists/HostedCombo.h"
#include "tests/support/Accessible.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/ToolTips.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr int MarkSize = 14;

class MirroredCombo : public MirroredTest
{
protected:
    HostedCombo Shown()
    {
        AddElsewhere();
        HostedCombo combo(TheForm(), Recorded(Placed({20, 10, 160, 34})));
        combo.Fill({2, 1, 0});
        combo->put_ListIndex(0);
        ShowForm();
        return combo;
    }

    static int ArrowWidth() { return GetSystemMetrics(SM_CXVSCROLL); }
    // What is seen of the arrow's side and of the other one, of the same width, inside the border.
    static int WhiteAt(const Pixels& combo, bool left)
    {
        const RECT side = {2, 2, 2 + ArrowWidth(), combo.Size().cy - 2};
        return Cut(combo, left ? side : Mirrored(side, combo.Size().cx)).Count(GetSysColor(COLOR_WINDOW));
    }
};

} // namespace

TEST_F(MirroredCombo, ArrowIsAtTheLeft)
{
    HostedCombo combo = Shown();
    EXPECT_TRUE(IsMirrored(combo.Combo()));
    EXPECT_TRUE(IsMirrored(combo.List()));
    EXPECT_FALSE(IsMirrored(combo.ScrollBar()));
    combo->put_ListIndex(2); // no mark
    const auto [fromRight, fromLeft] = SeenBothWays(combo.Site(), combo.Combo());
    EXPECT_LT(WhiteAt(fromRight, true), WhiteAt(fromRight, false));
    EXPECT_LT(WhiteAt(fromLeft, false), WhiteAt(fromLeft, true));
}

TEST_F(MirroredCombo, MarkOfTheFieldIsAtTheRightTheRightWayRound)
{
    HostedCombo combo = Shown();
    for (const short item : {short{0}, short{1}})
    {
        combo->put_ListIndex(item);
        const auto [fromRight, fromLeft] = SeenBothWays(combo.Site(), combo.Combo());
        const LONG top = (fromLeft.Size().cy - MarkSize) / 2;
        const RECT mark = {3, top, 3 + MarkSize, top + MarkSize};
        const Pixels picture = Cut(fromLeft, mark);
        EXPECT_LT(picture.Count(GetSysColor(COLOR_WINDOW)), MarkSize * MarkSize);
        EXPECT_EQ(Difference(picture, Cut(fromRight, Mirrored(mark, fromRight.Size().cx))), "") << item;
    }
}

TEST_F(MirroredCombo, MarksInTheListAreAtTheRightTheRightWayRound)
{
    HostedCombo combo = Shown();
    const auto seenOpen = [&] {
        combo.Open(true);
        const Pixels seen = Seen(combo.List());
        combo.Open(false);
        return seen;
    };
    const Pixels fromRight = seenOpen();
    Turn(combo.Site(), false);
    const Pixels fromLeft = seenOpen();
    const LONG height = static_cast<LONG>(SendMessageW(combo.Combo(), CB_GETITEMHEIGHT, 0, 0));
    for (LONG item = 0; item < 2; ++item)
    {
        const LONG top = item * height + (height - MarkSize) / 2;
        const RECT mark = {0, top, MarkSize, top + MarkSize};
        EXPECT_EQ(Difference(Cut(fromLeft, mark), Cut(fromRight, Mirrored(mark, fromRight.Size().cx))), "");
    }
}

TEST_F(MirroredCombo, ListOpensRightBelow)
{
    HostedCombo combo = Shown();
    const RECT field = OnScreen(combo.Combo());
    ClickAt({field.left + 5, (field.top + field.bottom) / 2});
    ASSERT_TRUE(combo.IsOpen());
    const RECT list = OnScreen(combo.List());
    EXPECT_EQ(list.left, field.left);
    EXPECT_EQ(list.right, field.right);
    EXPECT_EQ(list.top, field.bottom);
    ClickAt({field.left + 5, (field.top + field.bottom) / 2});
    EXPECT_FALSE(combo.IsOpen());
}

TEST_F(MirroredCombo, ScrollBarOfALongListIsAtTheLeft)
{
    HostedCombo combo = Shown();
    combo.Fill(std::vector<long>(20));
    // Left of what is inside, and right of it.
    const auto beside = [&] {
        combo.Open(true);
        Settle();
        const RECT list = OnScreen(combo.List());
        RECT inside = {};
        GetClientRect(combo.List(), &inside);
        MapWindowPoints(combo.List(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
        combo.Open(false);
        return std::pair(inside.left - list.left, list.right - inside.right);
    };
    const auto fromRight = beside();
    Turn(combo.Site(), false);
    const auto fromLeft = beside();
    EXPECT_GE(fromLeft.second, GetSystemMetrics(SM_CXVSCROLL));
    KnownPlatformGap("a mirrored window has its scroll bar at the left",
                     [&] { return fromRight == std::pair(fromLeft.second, fromLeft.first); });
}

TEST_F(MirroredCombo, ItemsAndKeysAnswer)
{
    HostedCombo combo = Shown();
    combo.Site().Focus();
    Settle();
    combo.Open(true);
    ClickAt(combo.ItemOnScreen(1));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_FALSE(combo.IsOpen());
    Key(VK_DOWN);
    EXPECT_EQ(combo.ListIndex(), 2);
    // One after another, whichever way they are read.
    Key(VK_LEFT);
    EXPECT_EQ(combo.ListIndex(), 1);
    Key(VK_RIGHT);
    EXPECT_EQ(combo.ListIndex(), 2);
}

TEST_F(MirroredCombo, AssistiveToolsFindTheItemsWhereTheyAre)
{
    HostedCombo combo = Shown();
    combo.Open(true);
    Settle();
    const ComPtr<IAccessible> object = AccessibleOf(combo.Window());
    ComPtr<IDispatch> child;
    ComPtr<IAccessible> items;
    ASSERT_EQ(object->get_accChild(Part(1), &child), S_OK);
    ASSERT_EQ(child.As(&items), S_OK);
    const RECT list = OnScreen(combo.List());
    RECT place = {};
    LONG width = 0;
    LONG height = 0;
    ASSERT_EQ(items->accLocation(&place.left, &place.top, &width, &height, Part(2)), S_OK);
    EXPECT_GE(place.left, list.left);
    EXPECT_LE(place.left + width, list.right);
    EXPECT_GT(width, (list.right - list.left) - 4);
    Variant hit;
    ASSERT_EQ(items->accHitTest(list.right - 5, place.top + height / 2, hit.Receive()), S_OK);
    EXPECT_EQ(hit.Long(), 2);
    combo.Open(false);
}

namespace
{

class MirroredEnumList : public MirroredTest
{
};

} // namespace

TEST_F(MirroredEnumList, ButtonIsAtTheLeftAndOpensThePicker)
{
    host::ControlSite& list = ShownList();
    const RECT whole = OnScreen(list.Window());
    const RECT button = OnScreen(ButtonOf(list));
    EXPECT_TRUE(IsMirrored(ButtonOf(list)));
    EXPECT_EQ(button.left, whole.left + GetSystemMetrics(SM_CXEDGE));
    EXPECT_LT(button.right, whole.left + 30);
    const POINT middle = {(button.left + button.right) / 2, (button.top + button.bottom) / 2};
    Pick(
        [&] {
            PointAt(middle);
            PressButton(MouseButton::Left);
            ReleaseButton(MouseButton::Left);
        },
        [](Picker& picker) {
            EXPECT_TRUE(IsMirrored(picker.Window()));
            picker.ClickItem(1);
            picker.Key(VK_RETURN);
        });
    EXPECT_FALSE(CodeOf(list).empty());
}

TEST_F(MirroredEnumList, PickerIsMirroredAsItsOwnerIs)
{
    host::ControlSite& list = ShownList();
    Pick([](Picker& picker) {
        for (const HWND window : {picker.Window(), picker.Surface(), picker.List(), picker.Frame(),
                                  picker.Option(0), picker.Option(1), picker.Ok(), picker.CancelButton()})
            EXPECT_TRUE(IsMirrored(window));
        const RECT inside = OnScreen(picker.Surface());
        const RECT ok = OnScreen(picker.Ok());
        const RECT cancel = OnScreen(picker.CancelButton());
        EXPECT_GT(ok.left, cancel.right);
        EXPECT_LT(cancel.left - inside.left, inside.right - ok.right);
        EXPECT_GT(OnScreen(picker.Option(0)).left, OnScreen(picker.Option(1)).right);
        picker.Click(picker.Option(1));
        EXPECT_TRUE(picker.IsSelected(picker.Option(1)));
        picker.ClickItem(2);
        EXPECT_EQ(picker.Selected(), 2);
        picker.Click(picker.Ok());
    });
    EXPECT_FALSE(CodeOf(list).empty());
}

TEST_F(MirroredEnumList, PickerOfAnotherFormIsNot)
{
    StartAnew(false);
    ShownList();
    Pick([](Picker& picker) {
        EXPECT_FALSE(IsMirrored(picker.Window()));
        EXPECT_FALSE(IsMirrored(picker.List()));
        EXPECT_LT(OnScreen(picker.Ok()).right, OnScreen(picker.CancelButton()).left);
        picker.Key(VK_ESCAPE);
    });
}

// With its right edge where it was.
TEST_F(MirroredEnumList, GrowsForALargerFontToTheLeftOfWhereItBegins)
{
    host::ControlSite& list = ShownList();
    const RECT before = OnScreen(list.Window());
    ComPtr<IFontDisp> font;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    wchar_t name[] = L"Tahoma";
    description.lpstrName = name;
    description.cySize.int64 = 240000;
    description.sWeight = FW_NORMAL;
    ASSERT_HRESULT_SUCCEEDED(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    ASSERT_HRESULT_SUCCEEDED(list.Query<_EnumList>()->putref_Font(font.Get()));
    Settle();
    const RECT after = OnScreen(list.Window());
    EXPECT_GT(after.bottom, before.bottom);
    EXPECT_EQ(after.right, before.right);
    EXPECT_EQ(after.left, before.left);
    EXPECT_EQ(OnScreen(ButtonOf(list)).left, after.left + GetSystemMetrics(SM_CXEDGE));
}

TEST_F(MirroredEnumList, GrowsForItsButtonToTheLeft)
{
    host::ControlSite& list = AddList(0, L"", L"Single", Placed({20, 20, 26, 40}));
    ShowForm();
    const RECT place = OnScreen(list.Window());
    EXPECT_EQ(place.right, OnScreen(TheForm().Page()).right - 20);
    EXPECT_EQ(place.right - place.left, 255 / 15 + 2 * GetSystemMetrics(SM_CXEDGE));
}

TEST_F(MirroredEnumList, ToolTipComesOverTheLabelOnly)
{
    Database().Rows(
        {{L"MA", L"Single", Variant(L"1"), Variant(L"a description that is far too long to be shown")}});
    host::ControlSite& list = AddList(1, L"1");
    AddElsewhere();
    ShowForm();
    const RECT whole = OnScreen(list.Window());
    const LONG middle = (whole.top + whole.bottom) / 2;
    PointAt({whole.right - 6, middle});
    EXPECT_TRUE(PumpUntil(TheForm(), [] { return !ShownToolTip().empty(); }));
    PointAt({0, 0});
    PumpPending(TheForm());
    EXPECT_TRUE(PumpUntil(TheForm(), [] { return ShownToolTip().empty(); }));
}

} // namespace kiv::test
