#include "runtime/core/Scoped.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(ScopedTest, SetsAVariableForTheTimeOfAScope)
{
    int variable = 1;
    {
        const Scoped outer(variable, 2);
        EXPECT_EQ(variable, 2);
        {
            const Scoped inner(variable, 3);
            EXPECT_EQ(variable, 3);
        }
        EXPECT_EQ(variable, 2);
        variable = 4;
    }
    EXPECT_EQ(variable, 1) << "whatever it was set to meanwhile";
}

} // namespace

} // namespace kiv::test
