#pragma once

#include "tests/gui/HostedTest.h"
#include "tests/support/EnumDatabase.h"
#include "tests/support/Picker.h"

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// Base of the tests that answer lists of codes with real input, on a database of the test's own.
class ListsTest : public HostedTest
{
protected:
    EnumDatabase& Database() { return database_; }

    // A list of the state MA on the form, with "Fruit" as its title.
    host::ControlSite& AddList(long style = 0, const wchar_t* code = L"", const wchar_t* table = L"Single",
                               host::SiteOptions site = Placed());
    // The same on a form that is then shown, with the focus.
    host::ControlSite& ShownList(long style = 0, const wchar_t* code = L"", const wchar_t* table = L"Single");
    static HWND ButtonOf(const host::ControlSite& list);

    // Opens the picker by input that open sends, and lets the user answer it; returns when both are done.
    void Pick(const std::function<void()>& open, const std::function<void(Picker&)>& user);
    // The same by the space bar on the button, which has the focus.
    void Pick(const std::function<void(Picker&)>& user);

    static std::wstring CodeOf(const host::ControlSite& list) { return list.Get(L"EnumCode").Text(); }
    // Names of the events since the last time.
    static std::vector<std::wstring> TakeEvents(host::ControlSite& list);

private:
    EnumDatabase database_{SampleEnumRows()};
};

using Texts = std::vector<std::wstring>;

} // namespace kiv::test
