// A form that is larger than the screen scrolls and can be sized.

#include "host/container/ScreenUnits.h"
#include "tests/gui/HostedTest.h"

namespace kiv::test
{

namespace
{

SIZE Desk()
{
    RECT desk = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &desk, 0);
    return host::SizeOf(desk);
}

SCROLLINFO Bar(const host::Form& form, int bar)
{
    SCROLLINFO state = {};
    state.cbSize = sizeof(state);
    state.fMask = SIF_ALL;
    GetScrollInfo(form.Window(), bar, &state);
    return state;
}

// Where the sheet stands in the form's client area.
POINT Origin(const host::Form& form)
{
    POINT origin = {};
    MapWindowPoints(form.Page(), form.Window(), &origin, 1);
    return origin;
}

LONG StyleOf(const host::Form& form)
{
    return static_cast<LONG>(GetWindowLongPtrW(form.Window(), GWL_STYLE));
}

class FormSheet : public HostedTest
{
protected:
    // Wider by 200 pixels and higher by 500 than the screen, with a button in each corner.
    std::unique_ptr<host::Form> Large()
    {
        const SIZE size = {Desk().cx + 200, Desk().cy + 500};
        auto form = std::make_unique<host::Form>(L"Large", size);
        AddButton(*form, L"first", {10, 10, 90, 34});
        AddButton(*form, L"last", {size.cx - 90, size.cy - 34, size.cx - 10, size.cy - 10});
        form->Show();
        Settle();
        return form;
    }

    static void AddButton(host::Form& form, const wchar_t* name, const RECT& bounds)
    {
        host::ButtonOptions options;
        options.name = options.caption = name;
        options.bounds = bounds;
        options.onClick = [] {};
        form.AddButton(options);
    }

    // In pixels of the form's client area.
    static bool IsSeen(const host::Form& form, const RECT& bounds)
    {
        RECT client = {};
        GetClientRect(form.Window(), &client);
        const POINT origin = Origin(form);
        return bounds.left + origin.x >= 0 && bounds.top + origin.y >= 0 &&
               bounds.right + origin.x <= client.right && bounds.bottom + origin.y <= client.bottom;
    }
};

TEST_F(FormSheet, NeedsNoBarsWhereThereIsRoom)
{
    ShowForm();
    EXPECT_EQ(StyleOf(TheForm()) & (WS_HSCROLL | WS_VSCROLL | WS_THICKFRAME), 0);
    RECT client = {};
    RECT sheet = {};
    GetClientRect(TheForm().Window(), &client);
    GetClientRect(TheForm().Page(), &sheet);
    EXPECT_TRUE(EqualRect(&client, &sheet));
    // Nothing scrolls either.
    SendMessageW(TheForm().Window(), WM_VSCROLL, SB_PAGEDOWN, 0);
    SendMessageW(TheForm().Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(Origin(TheForm()).y, 0);
}

TEST_F(FormSheet, FitsOnTheScreen)
{
    const auto form = Large();
    RECT place = {};
    GetWindowRect(form->Window(), &place);
    EXPECT_LE(host::SizeOf(place).cx, Desk().cx);
    EXPECT_LE(host::SizeOf(place).cy, Desk().cy);
    EXPECT_NE(StyleOf(*form) & WS_THICKFRAME, 0);
    EXPECT_NE(StyleOf(*form) & WS_HSCROLL, 0);
    EXPECT_NE(StyleOf(*form) & WS_VSCROLL, 0);
    EXPECT_EQ(Bar(*form, SB_HORZ).nMax, Desk().cx + 200 - 1);
    EXPECT_EQ(Bar(*form, SB_VERT).nMax, Desk().cy + 500 - 1);
}

TEST_F(FormSheet, ScrollsByItsBarsAndTheWheel)
{
    const auto form = Large();
    const HWND window = form->Window();
    EXPECT_EQ(Origin(*form).y, 0);
    SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
    const int line = -Origin(*form).y;
    EXPECT_GT(line, 0);
    SendMessageW(window, WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(Origin(*form).y, 0);
    SendMessageW(window, WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(Origin(*form).y, 0) << "not beyond the beginning";
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    const SCROLLINFO bar = Bar(*form, SB_VERT);
    EXPECT_EQ(-Origin(*form).y, bar.nMax - static_cast<int>(bar.nPage) + 1);
    SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
    SendMessageW(window, WM_HSCROLL, SB_LINERIGHT, 0);
    EXPECT_EQ(-Origin(*form).x, line);
    EXPECT_EQ(Origin(*form).y, 0);
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_LT(Origin(*form).y, -line);
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Origin(*form).y, 0);
}

TEST_F(FormSheet, FollowsTheFocus)
{
    const auto form = Large();
    host::FormItem& first = *form->Find(L"first");
    host::FormItem& last = *form->Find(L"last");
    EXPECT_TRUE(IsSeen(*form, first.Bounds()));
    EXPECT_FALSE(IsSeen(*form, last.Bounds()));
    last.Focus();
    EXPECT_TRUE(IsSeen(*form, last.Bounds()));
    EXPECT_FALSE(IsSeen(*form, first.Bounds()));
    first.Focus();
    EXPECT_TRUE(IsSeen(*form, first.Bounds()));
}

TEST_F(FormSheet, FollowsTheFocusToAControl)
{
    const auto form = Large();
    host::SiteOptions options = Placed({300, Desk().cy + 300, 420, Desk().cy + 320});
    host::ControlSite& site = form->Add(CreateYesNo().Get(), options);
    site.Focus();
    EXPECT_TRUE(site.HasFocus());
    EXPECT_TRUE(IsSeen(*form, site.Bounds()));
}

TEST_F(FormSheet, CanBeSized)
{
    const auto form = Large();
    SendMessageW(form->Window(), WM_VSCROLL, SB_BOTTOM, 0);
    SetWindowPos(form->Window(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    RECT client = {};
    GetClientRect(form->Window(), &client);
    EXPECT_EQ(static_cast<int>(Bar(*form, SB_VERT).nPage), client.bottom);
    EXPECT_EQ(static_cast<int>(Bar(*form, SB_HORZ).nPage), client.right);
    EXPECT_LE(-Origin(*form).y, Desk().cy + 500 - client.bottom);
    // No larger than what there is to see; the bars go where they are not needed.
    SetWindowPos(form->Window(), nullptr, 0, 0, Desk().cx * 2, Desk().cy * 3, SWP_NOMOVE | SWP_NOZORDER);
    GetClientRect(form->Window(), &client);
    EXPECT_EQ(client.right, Desk().cx + 200);
    EXPECT_EQ(client.bottom, Desk().cy + 500);
    EXPECT_EQ(StyleOf(*form) & (WS_HSCROLL | WS_VSCROLL), 0);
    EXPECT_EQ(Origin(*form).x, 0);
    EXPECT_EQ(Origin(*form).y, 0);
}

} // namespace

} // namespace kiv::test
