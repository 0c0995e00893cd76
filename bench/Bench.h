#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kiv::bench
{

// One line of the report: how long a job takes with the library, against the bare calls that it needs at
// least.
struct Row
{
    std::string Name;
    double Microseconds = 0;
    double BareMicroseconds = 0;
    std::optional<double> Goal; // the largest ratio wanted
};

// Time of one run of a job, in microseconds: the middle one of several rounds, after one round to warm up.
double Measure(int runsPerRound, const std::function<void()>& job);

// The middle one of several times.
double Middle(std::vector<double> times);

// The same for two jobs, their rounds taking turns, so that both meet the same machine.
struct Pair
{
    double Library = 0;
    double Bare = 0;
};
Pair MeasurePair(int runsPerRound, const std::function<void()>& library, const std::function<void()>& bare);

void PrintHeading();
void Print(const Row& row);
// A job without a bare counterpart.
void Print(const std::string& name, double microseconds);
// Of the rows printed so far: how many goals are met, and which are missed.
void PrintSummary();

// Bytes of memory that the process holds for itself.
std::size_t PrivateBytes();

} // namespace kiv::bench
