#pragma once

#include "tests/hostile/fuzz/OddMessages.h"

#include <windows.h>

#include <span>

namespace kiv::test
{

// A message that a plain window of a class of the system's does not survive, whoever made it.
struct PlatformFault
{
    const char* Name;
    const char* Class; // none for all
    // Whether this is one of those that it does not survive.
    bool (*Kills)(const OddMessage& message, HWND target);
    // One of them.
    OddMessage Example;
};
std::span<const PlatformFault> PlatformFaults();

bool IsPlatformFault(const OddMessage& message, HWND target);

} // namespace kiv::test
