#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace kiv::test
{

struct ProcessOutcome
{
    DWORD ExitCode = ~0U;
    std::string Output; // standard output and error together
    bool TimedOut = false;
};

// Runs a program to its end; one that takes longer than the limit is ended. started hears of its first
// thread.
ProcessOutcome RunProcess(const std::wstring& commandLine, DWORD limitMilliseconds = 60000,
                          const std::function<void(DWORD thread)>& started = {});

// A path as one word of a command line.
std::wstring Quoted(const std::wstring& path);

} // namespace kiv::test
