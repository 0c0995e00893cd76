// What the user can do in the picker, with keys and with the mouse, and what comes of it.

#include "tests/gui/lists/ListsTest.h"

#include "tests/support/MessageBoxWatcher.h"

namespace kiv::test
{

namespace
{

using PickerChoiceTest = ListsTest;

// Of the longest code the last ten characters count, which makes it the first.
const Texts SingleByCode = {L"(none)\t", L"990000000001\tZucchini", L"7\tPears", L"10\tMelons",
                            L"100\tApples"};
const Texts SingleByText = {L"(none)\t", L"100\tApples", L"10\tMelons", L"7\tPears",
                            L"990000000001\tZucchini"};

TEST_F(PickerChoiceTest, EnterTakesTheSelectedCode)
{
    host::ControlSite& list = ShownList();
    Pick([&](Picker& picker) {
        EXPECT_EQ(WindowText(picker.Window()), L"Fruit");
        EXPECT_EQ(picker.Focus(), picker.List());
        for (int i = 0; i < 3; ++i)
            picker.Key(VK_DOWN);
        TapKey(VK_RETURN);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"7");
    EXPECT_EQ(TakeEvents(list), (Texts{L"SelectionChanged"}));
    EXPECT_EQ(RecordOf(list).Notifications(), (Texts{L"EnumCode", L"BoundEnumCode"}));
    EXPECT_EQ(Database().StillOpen(), 0);
}

TEST_F(PickerChoiceTest, EveryWayOfLeavingItWithoutAChoiceKeepsTheCode)
{
    host::ControlSite& list = ShownList(0, L"10");
    const std::function<void(Picker&)> ways[] = {
        [](Picker&) { TapKey(VK_ESCAPE); },
        [](Picker& picker) { picker.Click(picker.CancelButton()); },
        [](Picker& picker) { PostMessageW(picker.Window(), WM_SYSCOMMAND, SC_CLOSE, 0); },
        [](Picker&) { TapKey(VK_F4, {VK_MENU}); },
    };
    for (const auto& leave : ways)
    {
        Pick([&](Picker& picker) {
            picker.ClickItem(4);
            EXPECT_EQ(picker.Selected(), 4);
            leave(picker);
            picker.WaitUntilGone();
        });
        EXPECT_EQ(CodeOf(list), L"10");
        EXPECT_EQ(TakeEvents(list), Texts());
        EXPECT_EQ(RecordOf(list).Notifications(), Texts());
    }
}

TEST_F(PickerChoiceTest, ADoubleClickTakesTheCodeUnderIt)
{
    host::ControlSite& list = ShownList(0, L"10");
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Items(), SingleByCode);
        picker.DoubleClickItem(4);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"100");
    EXPECT_EQ(TakeEvents(list), (Texts{L"SelectionChanged"}));
}

TEST_F(PickerChoiceTest, TheSameCodeAgainIsNoChange)
{
    host::ControlSite& list = ShownList(0, L"10");
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Selected(), 3);
        picker.Click(picker.Ok());
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"10");
    EXPECT_EQ(TakeEvents(list), Texts());
    EXPECT_EQ(RecordOf(list).Notifications(), Texts());
}

TEST_F(PickerChoiceTest, NoneIsTheEmptyCode)
{
    host::ControlSite& list = ShownList(0, L"10");
    Pick([&](Picker& picker) {
        picker.ClickItem(0);
        picker.Click(picker.Ok());
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"");
    EXPECT_TRUE(list.Get(L"BoundEnumCode").IsNull());
    EXPECT_EQ(TakeEvents(list), (Texts{L"SelectionChanged"}));
}

TEST_F(PickerChoiceTest, SortsByTheOptionsAndRemembersThem)
{
    host::ControlSite& list = ShownList(0, L"10");
    Pick([&](Picker& picker) {
        EXPECT_TRUE(picker.IsSelected(picker.Option(0)));
        EXPECT_EQ(picker.Items(), SingleByCode);
        picker.Click(picker.Option(1));
        EXPECT_EQ(picker.Items(), SingleByText);
        EXPECT_TRUE(picker.IsSelected(picker.Option(1)));
        EXPECT_FALSE(picker.IsSelected(picker.Option(0)));
        picker.Key('C', {VK_MENU});
        EXPECT_EQ(picker.Items(), SingleByCode);
        picker.Key('D', {VK_MENU});
        EXPECT_EQ(picker.Items(), SingleByText);
        picker.Key(VK_LEFT);
        EXPECT_EQ(picker.Items(), SingleByCode);
        picker.Key(VK_RIGHT);
        EXPECT_EQ(picker.Items(), SingleByText);
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(list.Get(L"SortListBy").Long(), 0);
    Pick([&](Picker& picker) {
        EXPECT_TRUE(picker.IsSelected(picker.Option(1)));
        EXPECT_EQ(picker.Items(), SingleByText);
    });
}

// Sorting takes the selection away, and without one OK chooses no code.
TEST_F(PickerChoiceTest, AfterSortingNothingIsSelected)
{
    host::ControlSite& list = ShownList(0, L"10");
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Selected(), 3);
        picker.Click(picker.Option(1));
        EXPECT_EQ(picker.Selected(), -1);
        picker.Click(picker.Ok());
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"");
    EXPECT_EQ(TakeEvents(list), (Texts{L"SelectionChanged"}));
}

TEST_F(PickerChoiceTest, TabGoesRoundInOrder)
{
    ShownList();
    Pick([&](Picker& picker) {
        for (const HWND next : {picker.Option(0), picker.Ok(), picker.CancelButton(), picker.List()})
        {
            picker.Key(VK_TAB);
            EXPECT_EQ(WindowText(picker.Focus()), WindowText(next));
        }
        for (const HWND next : {picker.CancelButton(), picker.Ok(), picker.Option(0), picker.List()})
        {
            picker.Key(VK_TAB, {VK_SHIFT});
            EXPECT_EQ(WindowText(picker.Focus()), WindowText(next));
        }
        picker.Key(VK_TAB);
        picker.Key(VK_TAB);
        picker.Key(VK_TAB);
        TapKey(VK_RETURN); // on Cancel, which then is what Enter presses
        picker.WaitUntilGone();
    });
}

TEST_F(PickerChoiceTest, EveryLineLeadsToItsEntrysCode)
{
    for (const long style : {0L, 1L})
    {
        host::ControlSite& list = AddList(style, L"", L"Lines", Placed({20, 50, 140, 70}));
        ShowForm();
        list.Focus();
        const Texts items = style == 0 ? Texts{L"(none)\t",     L"A\tFirst line", L"\tsecond line",
                                               L"\tthird line", L"B\tAlone",      L"C\tEnds with a break"}
                                       : Texts{L"(none)\t",      L"Alone\tB",      L"Ends with a break\tC",
                                               L"First line\tA", L"second line\t", L"third line\t"};
        const std::vector<long> data =
            style == 0 ? std::vector<long>{0, 1, 1, 1, 4, 5} : std::vector<long>{0, 1, 2, 3, 3, 3};
        const int last = style == 0 ? 3 : 5;
        // A new list's picker begins by code; with codes hidden it then remembers the other order.
        Pick([](Picker&) {});
        for (int item = last - 2; item <= last; ++item)
        {
            SCOPED_TRACE("style " + std::to_string(style) + ", item " + std::to_string(item));
            list.Put(L"EnumCode", Variant(L""));
            list.Focus();
            Pick([&](Picker& picker) {
                EXPECT_EQ(picker.Items(), items);
                EXPECT_EQ(picker.ItemData(), data);
                picker.DoubleClickItem(item);
                picker.WaitUntilGone();
            });
            EXPECT_EQ(CodeOf(list), L"A");
        }
        TheForm().Remove(list);
    }
}

TEST_F(PickerChoiceTest, HiddenCodesAreSortedAsClickedAndRememberedByDescription)
{
    host::ControlSite& list = ShownList(1, L"10");
    const Texts byText = {L"(none)\t", L"Apples\t100", L"Melons\t10", L"Pears\t7", L"Zucchini\t990000000001"};
    const Texts byCode = {L"(none)\t", L"Zucchini\t990000000001", L"Pears\t7", L"Melons\t10", L"Apples\t100"};
    // A new list's picker begins by code, whatever is shown; what it remembers is another matter.
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Items(), byCode);
        EXPECT_FALSE(IsWindowVisible(picker.Frame()));
        EXPECT_FALSE(IsWindowVisible(picker.Option(0)));
        EXPECT_EQ(picker.Selected(), 3);
        picker.Key('D', {VK_MENU});
        picker.Key(VK_TAB);
        EXPECT_EQ(picker.Focus(), picker.Ok()) << "the options are not there";
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    });
    Pick([&](Picker& picker) {
        EXPECT_EQ(picker.Items(), byText);
        picker.DoubleClickItem(1);
        picker.WaitUntilGone();
    });
    EXPECT_EQ(CodeOf(list), L"100");
    EXPECT_EQ(list.Get(L"EnumText").Text(), L"Apples");
}

TEST_F(PickerChoiceTest, AHelpNumberOfOneShowsTheCodes)
{
    host::ControlSite& list = ShownList(1);
    for (const long number : {1L, 2L})
    {
        Variant help(number);
        Microsoft::WRL::ComPtr<IDispatch> extended = list.ExtendedControl();
        wchar_t name[] = L"WhatsThisHelpID";
        LPOLESTR names = name;
        DISPID id = 0;
        ASSERT_HRESULT_SUCCEEDED(extended->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS arguments = {help.Borrow(), &put, 1, 1};
        ASSERT_HRESULT_SUCCEEDED(extended->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                                  &arguments, nullptr, nullptr, nullptr));
        Pick([&](Picker& picker) {
            EXPECT_EQ(IsWindowVisible(picker.Frame()), number == 1);
            EXPECT_EQ(picker.Items()[1], number == 1 ? L"990000000001\tZucchini" : L"Zucchini\t990000000001");
        });
    }
}

TEST_F(PickerChoiceTest, FourTheFunctionKeyOpensItAndSoDoAltWithDownAndTheMouse)
{
    host::ControlSite& list = ShownList();
    int opened = 0;
    const auto close = [&](Picker& picker) {
        ++opened;
        TapKey(VK_ESCAPE);
        picker.WaitUntilGone();
    };
    Pick([] { TapKey(VK_F4); }, close);
    Pick(
        [] {
            PressKey(VK_MENU);
            PressKey(VK_DOWN);
        },
        [&](Picker& picker) {
            ReleaseKey(VK_MENU); // released first, it is not to open the picker's menu
            ReleaseKey(VK_DOWN);
            picker.Settle();
            close(picker);
        });
    Pick(
        [&] {
            POINT place = {5, 5};
            ClientToScreen(ButtonOf(list), &place);
            PointAt(place);
            PressButton(MouseButton::Left);
            ReleaseButton(MouseButton::Left);
        },
        close);
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(GetFocus(), ButtonOf(list)) << "the focus comes back";
}

} // namespace

} // namespace kiv::test
