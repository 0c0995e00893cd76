// In a program that has the user's theme drawn, all boxes have the same border: those that are the system's
// own, and those that hold several of them or none.

#include "host/folio/VisualStyles.h"
#include "tests/gui/HostedTest.h"
#include "tests/gui/host/HostProcess.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pixels.h"

#include "host/container/Button.h"

#include <KivControls.h>
#include <uxtheme.h>

#include <optional>

namespace kiv::test
{

namespace
{

constexpr SIZE Size = {120, 22};
constexpr int Edge = 2;

struct BoxRow : NamedRow
{
    const CLSID& ClassId;
};

const BoxRow BoxRows[] = {
    {"CurrencyBox", CLSID_CurrencyBox}, {"PercentBox", CLSID_PercentBox}, {"EnumList", CLSID_EnumList}};

class ThemedBox : public HostedTest, public testing::WithParamInterface<BoxRow>
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        ASSERT_TRUE(IsThemeActive()) << "the user has chosen no theme";
    }

    void Show(bool themed)
    {
        if (themed)
            styles_.emplace(HostProgram());
        AddElsewhere();
        system_ = &Add(CLSID_NumberBox, 40);
        box_ = &Add(GetParam().ClassId, 80);
        ShowForm();
    }
    void TearDown() override
    {
        HostedTest::TearDown();
        styles_.reset();
    }

    // The border, the inside being one colour.
    Pixels Border(const host::ControlSite& site)
    {
        PumpPending(TheForm());
        Pixels whole = PixelsOfWholeWindow(site.Window());
        for (int y = Edge; y < whole.Size().cy - Edge; ++y)
            for (int x = Edge; x < whole.Size().cx - Edge; ++x)
                whole.Set(x, y, 0);
        return whole;
    }
    static Pixels Drawn(const host::ControlSite& site)
    {
        const Canvas canvas(Size);
        const RECTL bounds = {0, 0, Size.cx, Size.cy};
        EXPECT_HRESULT_SUCCEEDED(site.Query<IViewObject2>()->Draw(
            DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.Dc(), &bounds, nullptr, nullptr, 0));
        Pixels whole = canvas.Content();
        for (int y = Edge; y < Size.cy - Edge; ++y)
            for (int x = Edge; x < Size.cx - Edge; ++x)
                whole.Set(x, y, 0);
        return whole;
    }

    host::ControlSite& System() { return *system_; }
    host::ControlSite& Box() { return *box_; }

private:
    host::ControlSite& Add(REFCLSID classId, int top)
    {
        return TheForm().Add(Library::UnderTest().Create(classId).Get(),
                             Placed({20, top, 20 + Size.cx, top + Size.cy}));
    }

    std::optional<host::VisualStyles> styles_;
    host::ControlSite* system_ = nullptr;
    host::ControlSite* box_ = nullptr;
};

TEST_P(ThemedBox, HasTheBorderOfTheSystemsOwnAtRest)
{
    Show(true);
    EXPECT_EQ(Difference(Border(System()), Border(Box())), "");
}

TEST_P(ThemedBox, HasTheBorderOfTheSystemsOwnWithTheFocus)
{
    Show(true);
    const Pixels atRest = Border(Box());
    System().Focus();
    const Pixels expected = Border(System());
    Box().Focus();
    EXPECT_EQ(Difference(expected, Border(Box())), "");
    System().Focus();
    EXPECT_EQ(Difference(atRest, Border(Box())), "");
}

TEST_P(ThemedBox, HasTheBorderOfTheSystemsOwnWhileDisabled)
{
    Show(true);
    const Pixels atRest = Border(Box());
    System().Put(L"Enabled", Variant(false));
    Box().Put(L"Enabled", Variant(false));
    EXPECT_EQ(Difference(Border(System()), Border(Box())), "");
    Box().Put(L"Enabled", Variant(true));
    EXPECT_EQ(Difference(atRest, Border(Box())), "");
}

// As where it is shown, also for a container that draws it itself.
TEST_P(ThemedBox, IsDrawnWithItElsewhere)
{
    Show(true);
    EXPECT_EQ(Difference(Border(Box()), Drawn(Box())), "");
    EXPECT_EQ(Difference(Border(System()), Drawn(System())), "");
}

TEST_P(ThemedBox, IsSunkenInAProgramThatAsksForNoTheme)
{
    Show(false);
    EXPECT_EQ(Difference(Border(System()), Border(Box())), "");
    const Canvas canvas(Size);
    RECT bounds = {0, 0, Size.cx, Size.cy};
    DrawEdge(canvas.Dc(), &bounds, EDGE_SUNKEN, BF_RECT);
    EXPECT_EQ(Difference(canvas.Content(), Border(Box())), "");
}

// The theme's data is opened anew.
TEST_P(ThemedBox, OutlivesAChangeOfTheme)
{
    Show(true);
    const Pixels before = Border(Box());
    for (const HWND window : {System().Window(), Box().Window(), GetWindow(System().Window(), GW_CHILD)})
        SendMessageW(window, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(Difference(before, Border(Box())), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, ThemedBox, testing::ValuesIn(BoxRows), RowName());

} // namespace

} // namespace kiv::test
