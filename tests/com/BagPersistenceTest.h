#pragma once

#include "tests/com/ControlState.h"
#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestPropertyBag.h"

namespace kiv::test
{

// Base of the tests with a container's property bag.
class BagPersistenceTest : public LibraryTest
{
protected:
    static HRESULT Load(const SitedControl& control, TestPropertyBag* bag, IErrorLog* log = nullptr)
    {
        return control.Query<IPersistPropertyBag>()->Load(bag, log);
    }
    static HRESULT Save(const SitedControl& control, TestPropertyBag* bag, bool clearDirty = true,
                        bool allProperties = false)
    {
        return control.Query<IPersistPropertyBag>()->Save(bag, clearDirty, allProperties);
    }
};

} // namespace kiv::test
