#pragma once

#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include <string>

namespace kiv::test
{

// Base of the tests of late binding: one control without a site.
class DispatchTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = CreateYesNo();
    }
    void TearDown() override
    {
        control_.Reset();
        LibraryTest::TearDown();
    }

    std::string Read(const wchar_t* name) const
    {
        const CallOutcome outcome = GetByName(control_.Get(), name);
        return SUCCEEDED(outcome.Result) ? Show(outcome.Value) : Hr(outcome.Result);
    }

    Microsoft::WRL::ComPtr<_YesNo> control_;
};

} // namespace kiv::test
