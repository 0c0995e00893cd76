#include "tests/support/SystemColour.h"

#include "runtime/com/Errors.h"

#include <gtest/gtest.h>

namespace kiv::test
{

SystemColour::SystemColour(int index, COLORREF colour) : index_(index), former_(GetSysColor(index))
{
    if (!SetSysColors(1, &index_, &colour))
        ThrowLastError();
}

SystemColour::~SystemColour()
{
    EXPECT_TRUE(SetSysColors(1, &index_, &former_)) << "the user's colours are changed for good";
}

} // namespace kiv::test
