#include "tests/gui/lists/ListsTest.h"

namespace kiv::test
{

host::ControlSite& ListsTest::AddList(long style, const wchar_t* code, const wchar_t* table,
                                      host::SiteOptions site)
{
    host::ControlSite& list =
        TheForm().Add(Library::UnderTest().Create(CLSID_EnumList).Get(), Recorded(std::move(site)));
    list.Put(L"Database", Variant(database_.Get()));
    list.Put(L"StateCode", Variant(L"MA"));
    list.Put(L"TableName", Variant(table));
    list.Put(L"EnumListTitle", Variant(L"Fruit"));
    list.Put(L"DisplayStyle", Variant(style));
    list.Put(L"EnumCode", Variant(code));
    RecordOf(list).ClearNotifications();
    RecordOf(list).ClearEvents();
    return list;
}

host::ControlSite& ListsTest::ShownList(long style, const wchar_t* code, const wchar_t* table)
{
    host::ControlSite& list = AddList(style, code, table);
    ShowForm();
    list.Focus();
    Settle();
    return list;
}

HWND ListsTest::ButtonOf(const host::ControlSite& list)
{
    return FindWindowExW(list.Window(), nullptr, L"Button", nullptr);
}

void ListsTest::Pick(const std::function<void()>& open, const std::function<void(Picker&)>& user)
{
    const auto pumpUntil = [this](const std::function<bool()>& condition, DWORD limit) {
        return PumpUntil(TheForm(), condition, limit);
    };
    test::Pick(pumpUntil, open, user);
}

void ListsTest::Pick(const std::function<void(Picker&)>& user)
{
    Pick([] { TapKey(VK_SPACE); }, user);
}

std::vector<std::wstring> ListsTest::TakeEvents(host::ControlSite& list)
{
    std::vector<std::wstring> names;
    for (const host::EventRecord& event : RecordOf(list).Events())
        names.push_back(event.Name);
    RecordOf(list).ClearEvents();
    return names;
}

} // namespace kiv::test
