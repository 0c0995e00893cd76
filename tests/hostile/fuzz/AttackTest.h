#pragma once

#include "tests/hostile/CrashReport.h"
#include "tests/hostile/GuardedHeap.h"
#include "tests/support/LibraryTest.h"

namespace kiv::test
{

// Base of the fuzzers' tests: the library on the guarded heap.
class AttackTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        GuardedHeap::PutUnder(TheLibrary().Module());
        ReportCrashes();
    }
};

} // namespace kiv::test
