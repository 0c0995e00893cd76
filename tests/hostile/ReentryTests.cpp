// A host that does its worst inside every call that a control makes on it.

#include "tests/com/each/EachTest.h"
#include "tests/hostile/CrashReport.h"
#include "tests/hostile/GuardedHeap.h"
#include "tests/hostile/Operations.h"
#include "tests/support/Text.h"

#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace kiv::test
{

namespace
{

class Reentry : public EachTest
{
protected:
    void SetUp() override
    {
        EachTest::SetUp();
        GuardedHeap::PutUnder(TheLibrary().Module());
        ReportCrashes();
        host_.emplace();
    }
    void TearDown() override
    {
        host_.reset();
        EachTest::TearDown();
    }

    // One life of a control, with the blow, if any. Returns what is wrong.
    std::string Live(const Operation& operation, std::optional<Blow> blow)
    {
        host_->Begin(GetParam(), operation.Active, operation.Accompanied);
        host_->Arm(blow);
        try
        {
            operation.Run(*host_);
        }
        catch (const std::runtime_error&)
        {
            // The host's own objects throw at the host as well, which uses them in between.
        }
        DrainMessages();
        return host_->End();
    }

    // The same, once more if something is left in memory: what is there only once is kept for later.
    std::string Try(const Operation& operation, const Blow& blow)
    {
        constexpr int Repetitions = 3;
        const std::size_t before = GuardedHeap::Blocks();
        std::string wrong = Live(operation, blow);
        if (!wrong.empty() || GuardedHeap::Blocks() == before)
            return wrong;
        const std::size_t first = GuardedHeap::Blocks();
        for (int repetition = 0; repetition < Repetitions; ++repetition)
            wrong += Live(operation, blow);
        if (GuardedHeap::Blocks() >= first + Repetitions)
            wrong += " memory is left: " + std::to_string(GuardedHeap::Blocks() - first) + " blocks;";
        return wrong;
    }

    std::string Describe(const Operation& operation, const Blow& blow,
                         const std::vector<std::string>& calls) const
    {
        const std::string call = blow.Position < calls.size() ? calls[blow.Position] : "?";
        return Narrow(GetParam().Name) + ", " + operation.Name + ", " + NameOf(blow.What) +
               (blow.AndAfter ? " from " : " in ") + call + " (" + std::to_string(blow.Position) + ")";
    }

    std::optional<Host> host_;
};

// How many of the cases run: one of so many, each time the same ones. No divisor of the number of blows at
// one call, so that all of them have their turn.
std::size_t Stride()
{
    const char* const stride = std::getenv("KIV_HOSTILE_STRIDE");
    return stride ? static_cast<std::size_t>(std::max(1, std::atoi(stride))) : 21;
}

// Only the cases whose description holds this text, if it is set: to look at one of them.
bool IsWanted(const std::string& description)
{
    const char* const wanted = std::getenv("KIV_HOSTILE_CASE");
    return !wanted || description.find(wanted) != std::string::npos;
}

// When there is no more time for a class: an equal share of what all classes have, if that is limited.
DWORD EndOfTime()
{
    const char* const seconds = std::getenv("KIV_HOSTILE_SECONDS");
    const auto share = static_cast<DWORD>(1000 / PublishedClasses().size());
    return seconds ? GetTickCount() + share * static_cast<DWORD>(std::max(1, std::atoi(seconds))) : MAXDWORD;
}

TEST_P(Reentry, LeavesTheControlWholeOrGone)
{
    std::size_t cases = 0;
    std::size_t number = 0;
    const DWORD end = EndOfTime();
    for (const Operation& operation : OperationsOn(GetParam()))
    {
        Doing(Narrow(GetParam().Name) + ", " + operation.Name);
        ASSERT_EQ(Live(operation, std::nullopt), "") << operation.Name;
        const std::vector<std::string> calls = host_->Calls();
        for (std::size_t position = 0; position < calls.size(); ++position)
        {
            for (int what = 0; what < static_cast<int>(Action::Count_); ++what)
            {
                for (const bool after : {false, true})
                {
                    const Blow blow{position, static_cast<Action>(what), after};
                    if (number++ % Stride() != 0 || GetTickCount() > end)
                        continue;
                    const std::string description = Describe(operation, blow, calls);
                    if (!IsWanted(description))
                        continue;
                    Doing(description);
                    ++cases;
                    EXPECT_EQ(Try(operation, blow), "") << description;
                }
            }
        }
    }
    std::cout << "    " << cases << " cases of " << number << ", "
              << GuardedHeap::Made() / std::max<std::size_t>(cases, 1) << " blocks each\n";
    EXPECT_GT(cases, 0U);
}

INSTANTIATE_TEST_SUITE_P(Classes, Reentry, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
