// The tool tip that tells an amount which is shown by number signs.

#include "tests/gui/Blow.h"
#include "tests/gui/amount/AmountFitTest.h"

#include "tests/support/ToolTips.h"

namespace kiv::test
{

namespace
{

// A pointer that has rested for as long shows that no tip comes.
constexpr DWORD RestsAfter = 100;
constexpr DWORD LongerThanATipTakes = 600;

class AmountToolTipTest : public AmountFitTest
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        SystemParametersInfoW(SPI_GETMOUSEHOVERTIME, 0, &hoverTime_, 0);
        SystemParametersInfoW(SPI_SETMOUSEHOVERTIME, RestsAfter, nullptr, 0);
        PointElsewhere();
    }
    void TearDown() override
    {
        PointElsewhere();
        SystemParametersInfoW(SPI_SETMOUSEHOVERTIME, hoverTime_, nullptr, 0);
        HostedTest::TearDown();
    }

    // Where no control is.
    void PointElsewhere()
    {
        PointAt({0, 0});
        PumpPending(TheForm());
    }
    static void PointAtMiddleOf(HWND window)
    {
        RECT place = {};
        GetWindowRect(window, &place);
        PointAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }
    // Rests on the box until there is a tip, which must say so.
    void ExpectTip(const HostedBox& box, const std::wstring& text)
    {
        PointAtMiddleOf(box.Site().Window());
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return !ShownToolTip().empty(); }));
        EXPECT_EQ(ShownToolTip(), text);
        EXPECT_EQ(ToolTips().size(), 1U);
    }
    void ExpectNoTip(const HostedBox& box)
    {
        PointAtMiddleOf(box.Site().Window());
        EXPECT_FALSE(PumpUntil(
            TheForm(), [] { return !ToolTips().empty(); }, LongerThanATipTakes));
    }
    void ForBothCut(const std::function<void(Row& row)>& test)
    {
        ForBoth([&](Row& row) {
            GiveRoom(row.Box, WidthOf(row.Text) - 1);
            test(row);
        });
    }

private:
    UINT hoverTime_ = 0;
};

TEST_F(AmountToolTipTest, TellsTheAmountWhereThePointerRests)
{
    ForBothCut([this](Row& row) {
        Settle();
        EXPECT_TRUE(ToolTips().empty()) << "before anybody points";
        const HWND focus = GetFocus();
        ExpectTip(row.Box, row.Text);
        EXPECT_EQ(GetFocus(), focus);
        EXPECT_EQ(GetActiveWindow(), TheForm().Window());
        EXPECT_EQ(GetForegroundWindow(), TheForm().Window());
        PointElsewhere();
        EXPECT_TRUE(PumpUntil(TheForm(), [] { return ShownToolTip().empty(); }));
        // A second time it is the same window.
        const std::vector<HWND> before = ToolTips();
        ExpectTip(row.Box, row.Text);
        EXPECT_EQ(ToolTips(), before);
    });
}

// A pointer that only crosses the control makes no window.
TEST_F(AmountToolTipTest, IsNotThereBeforeThePointerRests)
{
    ForBothCut([this](Row& row) {
        RECT place = {};
        GetWindowRect(row.Box.Site().Window(), &place);
        for (LONG x = place.left; x < place.right; x += 4)
        {
            PointAt({x, (place.top + place.bottom) / 2});
            Settle();
            EXPECT_TRUE(ToolTips().empty());
        }
        PointElsewhere();
        EXPECT_FALSE(PumpUntil(
            TheForm(), [] { return !ToolTips().empty(); }, LongerThanATipTakes));
    });
}

TEST_F(AmountToolTipTest, DoesNotComeWhereTheAmountFits)
{
    ForBoth([this](Row& row) { ExpectNoTip(row.Box); });
}

TEST_F(AmountToolTipTest, DoesNotComeWhileTheFormIsDesigned)
{
    ForBothCut([this](Row& row) {
        row.Box.Site().SetUserMode(false);
        ExpectNoTip(row.Box);
        PointElsewhere();
        row.Box.Site().SetUserMode(true);
        ExpectTip(row.Box, row.Text);
        row.Box.Site().SetUserMode(false);
        EXPECT_TRUE(ToolTips().empty());
    });
}

TEST_F(AmountToolTipTest, ComesOverADisabledBoxToo)
{
    ForBothCut([this](Row& row) {
        row.Box.Site().Put(L"Enabled", Variant(false));
        ExpectTip(row.Box, row.Text);
    });
}

TEST_F(AmountToolTipTest, FollowsTheAmount)
{
    ForBothCut([this](Row& row) {
        ExpectTip(row.Box, row.Text);
        row.Box.Site().Put(L"Value", Variant(L"98765432"));
        EXPECT_EQ(ShownToolTip(), row.Box.Site().Get(L"Text").Text());
        row.Box.Site().Put(L"Value", Variant(short{0}));
        EXPECT_TRUE(ToolTips().empty()) << "what fits has none";
    });
}

TEST_F(AmountToolTipTest, GoesWhenTheBoxGetsRoom)
{
    ForBothCut([this](Row& row) {
        ExpectTip(row.Box, row.Text);
        GiveRoom(row.Box, WidthOf(row.Text));
        EXPECT_TRUE(ToolTips().empty());
    });
}

TEST_F(AmountToolTipTest, GoesWhenTheBoxIsTypedInto)
{
    ForBothCut([this](Row& row) {
        ExpectTip(row.Box, row.Text);
        Key(VK_TAB, {VK_SHIFT});
        ASSERT_TRUE(IsInView(row.Box));
        EXPECT_TRUE(ToolTips().empty());
        PointElsewhere();
        Leave(row.Box);
        ExpectTip(row.Box, row.Text);
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
        Settle();
        EXPECT_TRUE(IsInView(row.Box));
        EXPECT_TRUE(ToolTips().empty());
    });
}

TEST_F(AmountToolTipTest, GoesWithTheControl)
{
    for (const BlowRow& blow : BlowRows)
    {
        SCOPED_TRACE(blow.Name);
        ForBothCut([&](Row& row) {
            ExpectTip(row.Box, row.Text);
            Strike(blow.What, TheForm(), row.Box.Site());
            EXPECT_TRUE(ToolTips().empty());
        });
    }
}

// Together with all the windows that are in it or belong to it.
TEST_F(AmountToolTipTest, GoesWithTheContainersWindow)
{
    ForBothCut([this](Row& row) {
        ExpectTip(row.Box, row.Text);
        DestroyWindow(TheForm().Window());
        EXPECT_TRUE(ToolTips().empty());
    });
}

TEST_F(AmountToolTipTest, GoesWhenTheControlIsHidden)
{
    ForBothCut([this](Row& row) {
        ExpectTip(row.Box, row.Text);
        row.Box.Site().SetVisible(false);
        EXPECT_TRUE(ToolTips().empty());
    });
}

} // namespace

} // namespace kiv::test
