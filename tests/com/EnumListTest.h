#pragma once

#include "tests/com/MaskedControl.h"
#include "tests/support/EnumDatabase.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/PropertyNotifyRecorder.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kiv::test
{

using Names = std::vector<std::wstring>;

// Base of the tests of a list of codes on a database that keeps account of what it is asked.
class EnumListTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<MaskedControl>(CLSID_EnumList);
        control_->InitNew();
        control_->Put(L"StateCode", Variant(L"MA"));
        control_->Put(L"TableName", Variant(L"Single"));
        control_->Put(L"Database", Variant(database_.Get()));
    }
    void TearDown() override
    {
        connection_.reset();
        control_.reset();
        LibraryTest::TearDown();
    }

    const MaskedControl& Control() const { return *control_; }
    EnumDatabase& Database() { return database_; }
    std::string Shown(const wchar_t* name) const { return control_->Shown(name); }
    void Put(const wchar_t* name, const Variant& value) const { control_->Put(name, value); }
    void ListenToChanges()
    {
        connection_ = std::make_unique<Connection>(control_->Get(), IID_IPropertyNotifySink, changes_.Get());
    }
    // Names of the properties that were told since the last time.
    Names TakeChanges() const
    {
        Names names;
        Microsoft::WRL::ComPtr<ITypeInfo> description;
        Check(control_->Get()->GetTypeInfo(0, LOCALE_USER_DEFAULT, &description));
        for (const DISPID each : changes_->TakeChanges())
        {
            Bstr name;
            UINT found = 0;
            Check(description->GetNames(each, name.Receive(), 1, &found));
            names.push_back(name.String());
        }
        return names;
    }
    // What is shown while act runs, which must be the one message.
    void ExpectUnread(const std::function<void()>& act)
    {
        MessageBoxWatcher watcher;
        act();
        const std::vector<ShownMessageBox>& shown = watcher.Stop();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].Text, L"Could not read enum table from database.");
        EXPECT_EQ(shown[0].Icon, LoadIconA(nullptr, IDI_HAND));
    }
    void ExpectNoMessage(const std::function<void()>& act)
    {
        MessageBoxWatcher watcher;
        act();
        EXPECT_TRUE(watcher.Stop().empty());
    }

private:
    EnumDatabase database_{SampleEnumRows()};
    std::unique_ptr<MaskedControl> control_;
    Microsoft::WRL::ComPtr<PropertyNotifyRecorder> changes_ = MakeCom<PropertyNotifyRecorder>();
    std::unique_ptr<Connection> connection_;
};

} // namespace kiv::test
