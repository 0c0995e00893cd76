// What assistive tools are told of the picker, by a client in another process while it is open.

#include "tests/gui/access/Reader.h"
#include "tests/gui/lists/ListsTest.h"

namespace kiv::test
{

namespace
{

using AccessPickerTest = ListsTest;
using Lines = std::vector<std::wstring>;

Lines Readings(HWND window)
{
    return Reader::TheOne().ReadingsOf(window, [] { Sleep(1); });
}

bool Holds(const Lines& lines, const std::wstring& line)
{
    return std::ranges::find(lines, line) != lines.end();
}

} // namespace

TEST_F(AccessPickerTest, IsADialogWithAListOfCodesAndDescriptions)
{
    host::ControlSite& list = ShownList(0, L"7");
    Lines dialog;
    Lines items;
    Lines control;
    std::wstring option;
    Pick([&](Picker& picker) {
        dialog = Readings(picker.Window());
        items = Readings(picker.List());
        option = Readings(picker.Option(0)).front();
        control = Readings(list.Window());
        picker.Key(VK_ESCAPE);
    });
    ASSERT_FALSE(dialog.empty());
    EXPECT_EQ(dialog.front(), L"dialog \"Fruit\" [focusable]");
    EXPECT_TRUE(Holds(dialog, L"  button \"OK\" [focusable] {Press}")) << dialog.size();
    EXPECT_TRUE(Holds(dialog, L"  button \"Cancel\" [focusable] {Press}"));
    EXPECT_TRUE(Holds(dialog, L"  grouping \"Sort List By\" []"));
    EXPECT_EQ(option, L"radio button \"Code\" [checked, focusable] {Select}");
    ASSERT_GT(items.size(), 3U);
    EXPECT_EQ(items[0], L"list \"Code, Description\" [focused, focusable]");
    EXPECT_EQ(items[1], L"  item \"(none)\" [focusable, selectable] {Double Click}");
    EXPECT_NE(std::ranges::find_if(items,
                                   [](const std::wstring& line) {
                                       return line.starts_with(L"  item \"7, Pears\"") &&
                                              line.find(L"selected, focused") != line.npos;
                                   }),
              items.end());
    ASSERT_FALSE(control.empty());
    EXPECT_NE(control.front().find(L"expanded"), std::wstring::npos) << "answered while the picker is open";
}

TEST_F(AccessPickerTest, WithoutCodesOnlyDescriptionsAreRead)
{
    ShownList(1);
    Lines items;
    Pick([&](Picker& picker) {
        items = Readings(picker.List());
        picker.Key(VK_ESCAPE);
    });
    ASSERT_GT(items.size(), 2U);
    EXPECT_EQ(items[0], L"list \"Description\" [focused, focusable]");
    for (const std::wstring& item : items)
        EXPECT_EQ(item.find(L'\t'), std::wstring::npos) << item;
}

} // namespace kiv::test
