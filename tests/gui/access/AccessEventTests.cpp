// The system's events that assistive tools hear: each once, when it happens, and for the right thing.

#include "tests/gui/access/AccessTest.h"
#include "tests/support/KnownPlatformGap.h"

namespace kiv::test
{

namespace
{

using Events = std::vector<std::wstring>;

class AccessEventTest : public AccessTest
{
protected:
    Events After(WinEventLog& log, const std::function<void()>& action)
    {
        Settle();
        log.Take();
        action();
        Settle();
        return log.Take();
    }
};

} // namespace

TEST_F(AccessEventTest, TheFocusIsToldOnceForEachArrival)
{
    const CLSID* const classes[] = {&CLSID_YesNo,      &CLSID_NumberBox, &CLSID_DateBox,  &CLSID_CurrencyBox,
                                    &CLSID_PercentBox, &CLSID_ChkCombo,  &CLSID_EnumList, &CLSID_PicCommand};
    for (const CLSID* id : classes)
        AddLabelled(L"One:", *id);
    ShowForm();
    WinEventLog log(TheForm().Window());
    // From one to the next by Tab, and once around.
    for (std::size_t at = 0; at < std::size(classes) + 1; ++at)
        EXPECT_EQ(After(log, [&] { Key(VK_TAB); }), Events{L"focus"}) << at;
    EXPECT_EQ(After(log, [&] { Key(VK_TAB, {VK_SHIFT}); }), Events{L"focus"});
}

TEST_F(AccessEventTest, TheFocusIsThatOfTheControlAsAWhole)
{
    host::ControlSite& site = AddLabelled(L"Forms:", CLSID_ChkCombo);
    ShowForm();
    site.Focus();
    Settle();
    // Whichever window has it, its object is that of the control.
    EXPECT_EQ(ReadingsOf(GetFocus()).front(), ReadingsOf(site.Window()).front());
}

TEST_F(AccessEventTest, YesNoTellsItsAnswerAndItsOptions)
{
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    site.Focus();
    WinEventLog log(site.Window());
    EXPECT_EQ(After(log, [&] { Type(L"y"); }), (Events{L"value", L"state 1"}));
    EXPECT_EQ(After(log, [&] { Type(L"y"); }), Events{});
    EXPECT_EQ(After(log, [&] { Key(VK_RIGHT); }), Events{L"focus 2"});
    EXPECT_EQ(After(log, [&] { Key(VK_RIGHT); }), Events{});
    EXPECT_EQ(After(log, [&] { Key(VK_SPACE); }), (Events{L"value", L"state 1", L"state 2"}));
    EXPECT_EQ(After(log, [&] { site.Put(L"Value", Variant(0L)); }), (Events{L"value", L"state 2"}));
    EXPECT_EQ(After(log, [&] { site.Put(L"Value", Variant(0L)); }), Events{});
    EXPECT_EQ(After(log, [&] { site.Put(L"Enabled", Variant(false)); }), Events{L"state"});
}

TEST_F(AccessEventTest, BoxesTellEachChangeOnce)
{
    const std::pair<const CLSID&, const wchar_t*> rows[] = {{CLSID_NumberBox, L"123-45-6789"},
                                                            {CLSID_DateBox, L"01/02/03"},
                                                            {CLSID_CurrencyBox, L"17"},
                                                            {CLSID_PercentBox, L"17"}};
    for (const auto& [id, value] : rows)
    {
        StartAnew();
        AddElsewhere();
        host::ControlSite& site = AddLabelled(L"One:", id);
        ShowForm();
        site.Focus();
        WinEventLog log(site.Window());
        EXPECT_EQ(After(log, [&] { Type(L"1"); }), Events{L"value"});
        EXPECT_EQ(After(log, [&] { Type(L"x"); }), Events{});
        EXPECT_EQ(After(log, [&] { site.Put(L"Value", Variant(value)); }), Events{L"value"}) << value;
    }
}

TEST_F(AccessEventTest, ChkComboTellsSelectionStatusAndList)
{
    host::ControlSite& site = AddLabelled(L"Forms:", CLSID_ChkCombo);
    for (const wchar_t* item : {L"One", L"Two"})
        site.Call(L"AddItem", {Variant(item)});
    ShowForm();
    site.Focus();
    WinEventLog log(site.Window());
    EXPECT_EQ(After(log, [&] { Key(VK_DOWN); }), Events{L"value"});
    EXPECT_EQ(After(log, [&] { site.Put(L"ListIndex", Variant(1L)); }), Events{L"value"});
    EXPECT_EQ(After(log, [&] { site.Put(L"ListCompletionStatus", Variant(2L), {Variant(1L)}); }),
              Events{L"description"});
    EXPECT_EQ(After(log, [&] { site.Put(L"ListCompletionStatus", Variant(2L), {Variant(0L)}); }), Events{});
    EXPECT_EQ(After(log, [&] { site.Call(L"AddItem", {Variant(L"Three")}); }), Events{});
    EXPECT_EQ(After(log, [&] { Key(VK_F4); }), Events{L"state"});
    EXPECT_EQ(After(log, [&] { Key(VK_F4); }), Events{L"state"});
}

TEST_F(AccessEventTest, TheOthersTellWhatTheyShow)
{
    host::ControlSite& list = AddLabelled(L"County:", CLSID_EnumList);
    host::ControlSite& button = AddLabelled(L"", CLSID_PicCommand);
    ShowForm();
    WinEventLog log(TheForm().Window());
    EXPECT_EQ(After(log, [&] { list.Put(L"EnumCode", Variant(L"17")); }), Events{L"value"});
    EXPECT_EQ(After(log, [&] { button.Put(L"Caption", Variant(L"&More")); }), Events{L"name"});
    EXPECT_EQ(After(log, [&] { button.Put(L"DetailStatus", Variant(2L)); }), Events{L"description"});
    EXPECT_EQ(After(log, [&] { button.Put(L"PictureType", Variant(1L)); }), Events{L"description"});
    EXPECT_EQ(After(log, [&] { button.Put(L"Enabled", Variant(false)); }), Events{L"state"});
}

// The library leaves to the system what the system's own controls tell by themselves, and does it for them
// where they do not.
TEST_F(AccessEventTest, TheSystemsOwnControlsTellByThemselves)
{
    ShowForm();
    KnownPlatformGap("an edit control announces its value", [&] {
        const HWND edit = CreateWindowW(L"EDIT", L"", WS_CHILD, 0, 0, 10, 10, TheForm().Window(), nullptr,
                                        nullptr, nullptr);
        WinEventLog log(edit);
        SetWindowTextW(edit, L"x");
        Settle();
        const bool told = !log.Take().empty();
        DestroyWindow(edit);
        return told;
    });
    KnownPlatformGap("a scroll bar announces its value", [&] {
        const HWND bar = CreateWindowW(L"SCROLLBAR", L"", WS_CHILD, 0, 0, 10, 10, TheForm().Window(), nullptr,
                                       nullptr, nullptr);
        WinEventLog log(bar);
        SetScrollPos(bar, SB_CTL, 7, FALSE);
        Settle();
        const bool told = !log.Take().empty();
        DestroyWindow(bar);
        return told;
    });
}

} // namespace kiv::test
