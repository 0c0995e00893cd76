// Boxes that are too narrow for their amounts show number signs, on the screen and elsewhere.

#include "tests/gui/amount/AmountFitTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/TestFont.h"

namespace kiv::test
{

namespace
{

TEST_F(AmountFitTest, AnAmountIsShownWhereItJustFitsAndElseGivesWayToSigns)
{
    ForBoth([this](Row& row) {
        ExpectLabel(row.Box, row.Text);
        for (int room = WidthOf(row.Text) - 1; room > WidthOf(L"#"); --room)
        {
            SCOPED_TRACE(room);
            GiveRoom(row.Box, room);
            ExpectLabel(row.Box, Signs(room));
        }
        EXPECT_EQ(row.Box.Site().Get(L"Text").Text(), row.Text);
        EXPECT_EQ(row.Box.Value(), row.Value);
    });
}

TEST_F(AmountFitTest, ItIsDrawnElsewhereAsOnTheScreen)
{
    ForBoth([this](Row& row) {
        for (const bool enabled : {true, false})
        {
            row.Box.Site().Put(L"Enabled", Variant(enabled));
            std::vector<Pixels> shown;
            for (const int missing : {0, 1})
            {
                GiveRoom(row.Box, WidthOf(row.Text) - missing);
                shown.push_back(PixelsOfWindow(row.Box.Site().Window()));
                EXPECT_EQ(Difference(shown.back(), DrawnElsewhere(row.Box)), "");
                EXPECT_EQ(shown.back().Count(GetSysColor(COLOR_WINDOWTEXT)) == 0, !enabled);
                EXPECT_EQ(shown.back().Count(GetSysColor(COLOR_BTNSHADOW)) == 0, enabled);
            }
            EXPECT_GT(shown[1].Count(GetSysColor(COLOR_WINDOW)), 0);
            EXPECT_NE(Difference(shown[0], shown[1]), "");
        }
    });
}

// What a host prints or puts on the clipboard, at three times the size of the screen's.
class AmountPaperTest : public AmountFitTest
{
protected:
    static constexpr int Times = 3;

    using Way = Pixels (*)(const HostedBox& box);

    static SIZE PaperFor(const HostedBox& box)
    {
        RECT outer = {};
        GetWindowRect(box.Site().Window(), &outer);
        return {(outer.right - outer.left) * Times, (outer.bottom - outer.top) * Times};
    }
    static void Draw(const HostedBox& box, HDC dc)
    {
        const SIZE paper = PaperFor(box);
        const RECTL bounds = {0, 0, paper.cx, paper.cy};
        EXPECT_HRESULT_SUCCEEDED(box.Site().Query<IViewObject>()->Draw(
            DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, &bounds, nullptr, 0));
    }
    static Pixels Enlarged(const HostedBox& box)
    {
        const Canvas canvas(PaperFor(box));
        Draw(box, canvas.Dc());
        return canvas.Content();
    }
    static Pixels ByEnhancedMetafile(const HostedBox& box)
    {
        const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        Draw(box, recording);
        const HENHMETAFILE metafile = CloseEnhMetaFile(recording);
        ENHMETAHEADER header = {};
        GetEnhMetaFileHeader(metafile, sizeof header, &header);
        const RECT frame = {header.rclBounds.left, header.rclBounds.top, header.rclBounds.right + 1,
                            header.rclBounds.bottom + 1};
        const Canvas canvas(PaperFor(box));
        EXPECT_TRUE(PlayEnhMetaFile(canvas.Dc(), metafile, &frame));
        DeleteEnhMetaFile(metafile);
        return canvas.Content();
    }
    static Pixels ByMetafile(const HostedBox& box)
    {
        const SIZE paper = PaperFor(box);
        const HDC recording = CreateMetaFileW(nullptr);
        Draw(box, recording);
        const HMETAFILE metafile = CloseMetaFile(recording);
        const Canvas canvas(paper);
        SetMapMode(canvas.Dc(), MM_ANISOTROPIC);
        SetViewportExtEx(canvas.Dc(), paper.cx, paper.cy, nullptr);
        EXPECT_TRUE(PlayMetaFile(canvas.Dc(), metafile));
        DeleteMetaFile(metafile);
        return canvas.Content();
    }
};

TEST_F(AmountPaperTest, HasTheScreensSigns)
{
    ForBoth([this](Row& row) {
        // As wide as the other.
        const std::wstring another = row.Value == L"-12345" ? L"-67890" : L"0.987654";
        for (const Way way : {&Enlarged, &ByEnhancedMetafile, &ByMetafile})
        {
            for (const int missing : {0, 1})
            {
                GiveRoom(row.Box, WidthOf(row.Text) - missing);
                row.Box.Site().Put(L"Value", Variant(row.Value));
                const Pixels one = way(row.Box);
                row.Box.Site().Put(L"Value", Variant(another));
                const Pixels other = way(row.Box);
                EXPECT_EQ(one == other, missing > 0) << "which amount it is, signs do not show";
                EXPECT_GT(one.Count(GetSysColor(COLOR_WINDOWTEXT)), 100);
            }
        }
    });
}

TEST_F(AmountFitTest, AnEmptyBoxShowsNothingHoweverNarrow)
{
    ForBoth([this](Row& row) {
        row.Box.Site().Put(L"Value", Variant::Null());
        for (const int room : {20, 1, 0, -3})
        {
            GiveRoom(row.Box, room);
            ExpectLabel(row.Box, L"");
        }
    });
}

TEST_F(AmountFitTest, ItFollowsTheAmount)
{
    ForBoth([this](Row& row) {
        const int room = WidthOf(row.Text) - 1;
        GiveRoom(row.Box, room);
        row.Box.Site().Put(L"Value", Variant(short{1}));
        ExpectLabel(row.Box, row.Box.Site().Get(L"Text").Text());
        row.Box.Site().Put(L"Value", Variant(row.Value));
        ExpectLabel(row.Box, Signs(room));
    });
}

TEST_F(AmountFitTest, ItFollowsTheFont)
{
    ForBoth([this](Row& row) {
        Microsoft::WRL::ComPtr<IFont> font;
        row.Box.Site().Put(L"Font",
                           Variant(static_cast<IDispatch*>(MakeFont(FactsOf(TheForm().FontObject())).Get())));
        ASSERT_HRESULT_SUCCEEDED(row.Box.Site().Get(L"Font").Object()->QueryInterface(IID_PPV_ARGS(&font)));
        ExpectLabel(row.Box, row.Text);
        const Pixels whole = PixelsOfWindow(row.Box.Site().Window());
        ASSERT_HRESULT_SUCCEEDED(font->put_Bold(TRUE));
        PumpPending(TheForm());
        EXPECT_NE(Difference(whole, PixelsOfWindow(row.Box.Site().Window())), "");
        EXPECT_EQ(row.Box.Site().Get(L"Text").Text(), row.Text);
        ASSERT_HRESULT_SUCCEEDED(font->put_Bold(FALSE));
        PumpPending(TheForm());
        EXPECT_EQ(Difference(whole, PixelsOfWindow(row.Box.Site().Window())), "");
    });
}

// While it is typed into, the box holds the amount and moves it as the caret goes.
TEST_F(AmountFitTest, TheBoxThatIsTypedIntoHasTheAmount)
{
    ForBoth([this](Row& row) {
        GiveRoom(row.Box, WidthOf(row.Text) - 1);
        const std::wstring typed = row.Box.Text();
        row.Box.Site().Focus();
        ASSERT_TRUE(IsInView(row.Box));
        EXPECT_EQ(row.Box.Look(), (BoxLook{typed, 0, static_cast<int>(typed.size())}));
        Leave(row.Box);
        ExpectLabel(row.Box, Signs(WidthOf(row.Text) - 1));
        EXPECT_EQ(row.Box.Value(), row.Value);
    });
}

TEST_F(AmountFitTest, AnAmountOutOfTheRangeStaysInViewAsItWasTyped)
{
    HostedBox box = ShownCurrencyBox();
    GiveRoom(box, WidthOf(L"12,345"));
    box.Site().Put(L"MaxValue", Variant(Currency::FromUnits(1000000)));
    Leave(box);
    Enter(box);
    Type(L"1234567");
    Leave(box);
    EXPECT_TRUE(IsInView(box));
    EXPECT_EQ(box.Text(), L"1234567");
    EXPECT_EQ(box.Value(), L"1234567");
}

} // namespace

} // namespace kiv::test
