#include "bench/Bench.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace kiv::bench
{

namespace
{

constexpr std::size_t Rounds = 7;

int goalsMet = 0;
std::vector<std::string> goalsMissed;

double TimeOf(int runs, const std::function<void()>& job)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int i = 0; i < runs; ++i)
        job();
    const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
    return taken.count() / runs;
}

} // namespace

double Middle(std::vector<double> times)
{
    const auto middle = times.begin() + std::ssize(times) / 2;
    std::ranges::nth_element(times, middle);
    return *middle;
}

double Measure(int runsPerRound, const std::function<void()>& job)
{
    TimeOf(runsPerRound, job);
    std::vector<double> times(Rounds);
    for (double& time : times)
        time = TimeOf(runsPerRound, job);
    return Middle(times);
}

Pair MeasurePair(int runsPerRound, const std::function<void()>& library, const std::function<void()>& bare)
{
    TimeOf(runsPerRound, library);
    TimeOf(runsPerRound, bare);
    std::vector<double> libraryTimes(Rounds);
    std::vector<double> bareTimes(Rounds);
    for (std::size_t i = 0; i < Rounds; ++i)
    {
        libraryTimes[i] = TimeOf(runsPerRound, library);
        bareTimes[i] = TimeOf(runsPerRound, bare);
    }
    return {Middle(libraryTimes), Middle(bareTimes)};
}

void PrintHeading()
{
    std::printf("%-52s %12s %12s %8s  %s\n", "", "library", "bare calls", "ratio", "goal");
}

void Print(const Row& row)
{
    const double ratio = row.Microseconds / row.BareMicroseconds;
    std::printf("%-52s %9.2f us %9.2f us %7.2fx", row.Name.c_str(), row.Microseconds, row.BareMicroseconds,
                ratio);
    if (row.Goal)
    {
        const bool met = ratio <= *row.Goal;
        std::printf("  at most %.3gx: %s", *row.Goal, met ? "met" : "missed");
        if (met)
            ++goalsMet;
        else
            goalsMissed.push_back(row.Name);
    }
    std::printf("\n");
    std::fflush(stdout);
}

void Print(const std::string& name, double microseconds)
{
    std::printf("%-52s %9.3f us\n", name.c_str(), microseconds);
    std::fflush(stdout);
}

void PrintSummary()
{
    std::printf("%d of %d goals are met", goalsMet, goalsMet + static_cast<int>(goalsMissed.size()));
    const char* before = "; missed: ";
    for (const std::string& name : goalsMissed)
    {
        std::printf("%s%s", before, name.c_str());
        before = " | ";
    }
    std::printf("\n");
}

std::size_t PrivateBytes()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

} // namespace kiv::bench
