// Runs the native tests on mutated sources: kiv-mutants <list> <results>. First all tests on the sources as
// they are, which tells what each reaches; then for each mutant those that reach it, in a process of their
// own, until one fails. The results are a line each: the number, and "found", "survived" or "unreached".
// Without arguments: the tests.
#include "tests/mutants/Switch.h"

#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

struct Reaching
{
    std::string Tests;     // as a filter of names
    long Milliseconds = 0; // of computing
};

// What each test reaches.
class Reach : public testing::EmptyTestEventListener
{
public:
    std::map<std::size_t, Reaching> Of;

private:
    void OnTestStart(const testing::TestInfo&) override
    {
        mutants::Reached.fill(false);
        start_ = std::clock();
    }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        const std::string name = std::string(test.test_suite_name()) + "." + test.name();
        const long milliseconds = (std::clock() - start_) / (CLOCKS_PER_SEC / 1000);
        for (std::size_t number = 1; number < mutants::Most; ++number)
        {
            if (!mutants::Reached[number])
                continue;
            Reaching& reaching = Of[number];
            reaching.Tests += (reaching.Tests.empty() ? "" : ":") + name;
            reaching.Milliseconds += milliseconds;
        }
    }

    std::clock_t start_ = 0;
};

// A mutant that hangs is stopped by the time that it computes, one that grows by the memory that it asks for.
void LimitProcess(long milliseconds)
{
    const itimerval time{{0, 0}, {milliseconds / 1000, milliseconds % 1000 * 1000}};
    setitimer(ITIMER_VIRTUAL, &time, nullptr);
    constexpr rlim_t enough = rlim_t{1} << 30;
    const rlimit memory{enough, enough};
    setrlimit(RLIMIT_AS, &memory);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

[[noreturn]] void RunMutant(int number, const Reaching& reaching)
{
    LimitProcess(500 + 3 * reaching.Milliseconds);
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    testing::GTEST_FLAG(filter) = reaching.Tests;
    testing::GTEST_FLAG(fail_fast) = true;
    mutants::Active = number;
    _exit(RUN_ALL_TESTS());
}

bool Survives(int number, const Reaching& reaching)
{
    const pid_t child = fork();
    if (child == 0)
        RunMutant(number, reaching);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int RunMutants(const char* listPath, const char* resultsPath)
{
    // Of the listeners' owner, which is the library.
    auto* const reach = new Reach;
    testing::UnitTest::GetInstance()->listeners().Append(reach);
    const bool passed = RUN_ALL_TESTS() == 0;
    testing::UnitTest::GetInstance()->listeners().Release(reach);
    if (!passed)
        return 1;
    std::ifstream list(listPath);
    std::ofstream results(resultsPath);
    int number = 0;
    for (std::string rest; list >> number && std::getline(list, rest);)
    {
        const auto found = reach->Of.find(static_cast<std::size_t>(number));
        const bool reached = found != reach->Of.end();
        const char* const result =
            !reached ? "unreached" : (Survives(number, found->second) ? "survived" : "found");
        results << number << '\t' << result << std::endl;
    }
    delete reach;
    return results ? 0 : 1;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    if (argumentCount == 3)
        return RunMutants(arguments[1], arguments[2]);
    return RUN_ALL_TESTS();
}
