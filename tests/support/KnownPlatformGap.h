#pragma once

#include "runtime/com/Wine.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

// For a check that holds on Windows and is known to fail on Wine, which lacks or mistakes something. There it
// passes as long as the check fails, and fails once the gap has closed: then the check is to stand alone.
// check answers whether it held.
template<class Check>
void KnownPlatformGap(const char* what, Check&& check)
{
    const bool held = std::forward<Check>(check)();
    if (RunsOnWine())
        EXPECT_FALSE(held) << "Wine has learnt this, so the gap can go: " << what;
    else
        EXPECT_TRUE(held) << what;
}

} // namespace kiv::test
