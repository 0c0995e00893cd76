#pragma once

#include "tests/support/Library.h"

#include <KivControls.h>

#include <gtest/gtest.h>

namespace kiv::test
{

// Windows of the library's controls and their tool tips in the calling thread, wherever in the window tree
// they are.
int ControlWindows();

// Hands out all messages that wait for the calling thread.
void DrainMessages();

// How many references others hold on an object.
ULONG References(IUnknown* object);

// Base of the tests that load the library: enters a single-threaded apartment, and holds every test to have
// left neither object nor window behind.
class LibraryTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    const Library& TheLibrary() const { return Library::UnderTest(); }
    Microsoft::WRL::ComPtr<_YesNo> CreateYesNo() const;

private:
    int windowsBefore_ = 0;
    bool cleanBefore_ = true;
};

} // namespace kiv::test
