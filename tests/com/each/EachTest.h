#pragma once

#include "tests/com/HeldControl.h"
#include "tests/com/PublishedClasses.h"
#include "tests/support/LibraryTest.h"

#include <string>

namespace kiv::test
{

// Base of the tests that hold for every control of the library.
class EachTest : public LibraryTest, public testing::WithParamInterface<PublishedClass>
{
protected:
    static CLSID ClassId() { return Id(GetParam().Class); }
};

// For INSTANTIATE_TEST_SUITE_P.
struct ClassName
{
    std::string operator()(const testing::TestParamInfo<PublishedClass>& each) const;
};

} // namespace kiv::test
