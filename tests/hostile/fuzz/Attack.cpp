#include "tests/hostile/fuzz/Attack.h"

#include "tests/hostile/CrashReport.h"
#include "tests/hostile/GuardedHeap.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace kiv::test
{

namespace
{

constexpr std::uint64_t InputsPerRound = 60;
constexpr int MostFindings = 5;

std::string Setting(const char* name, const char* otherwise)
{
    const char* const value = std::getenv(name);
    return value ? value : otherwise;
}

// Inputs by number, "1200-1203,1207".
std::vector<std::uint64_t> Chosen(const std::string& text)
{
    std::vector<std::uint64_t> inputs;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');)
    {
        const std::size_t dash = part.find('-');
        const std::uint64_t last = std::stoull(dash == std::string::npos ? part : part.substr(dash + 1));
        for (std::uint64_t input = std::stoull(part); input <= last; ++input)
            inputs.push_back(input);
    }
    return inputs;
}

class Attack
{
public:
    Attack(const char* name, Fuzzer& fuzzer) :
        name_(name), fuzzer_(fuzzer), seed_(std::stoull(Setting("KIV_ATTACK_SEED", "1")))
    {
    }

    void Run()
    {
        const std::string chosen = Setting("KIV_ATTACK_INPUT", "");
        const DWORD begin = GetTickCount();
        chosen_ = !chosen.empty();
        if (chosen_)
        {
            RunRound(Chosen(chosen));
        }
        else
        {
            const DWORD length = 1000 * static_cast<DWORD>(std::stoul(Setting("KIV_ATTACK_SECONDS", "3")));
            for (std::uint64_t round = 0; GetTickCount() - begin < length && findings_ < MostFindings;
                 ++round)
                RunRound(InputsOf(round));
        }
        const DWORD took = std::max<DWORD>(GetTickCount() - begin, 1);
        std::cout << "    " << name_ << ": " << done_ << " inputs of seed " << seed_ << " in "
                  << static_cast<double>(took) / 1000 << " s, " << findings_ << " findings\n";
        EXPECT_GT(done_, 0U);
    }

private:
    static std::vector<std::uint64_t> InputsOf(std::uint64_t round)
    {
        std::vector<std::uint64_t> inputs;
        for (std::uint64_t input = round * InputsPerRound; input < (round + 1) * InputsPerRound; ++input)
            inputs.push_back(input);
        return inputs;
    }

    // What a round leaves in memory it may keep for good, but not each time that it is run.
    void RunRound(const std::vector<std::uint64_t>& inputs)
    {
        constexpr std::size_t Repetitions = 3;
        const std::size_t before = GuardedHeap::Blocks();
        std::string wrong = Live(inputs);
        std::size_t grew = 0;
        for (std::size_t held = before; wrong.empty() && GuardedHeap::Blocks() > held && grew <= Repetitions;
             ++grew)
        {
            held = GuardedHeap::Blocks();
            if (grew < Repetitions)
                wrong = Live(inputs);
            else
                wrong = " memory is left: " + std::to_string(held - before) + " blocks;";
        }
        done_ += inputs.size();
        if (wrong.empty())
            return;
        ++findings_;
        ADD_FAILURE() << wrong << "\n  " << what_ << Again(inputs.front(), inputs.back());
    }

    // The life of one control, with these inputs tried on it. Returns what is wrong.
    std::string Live(const std::vector<std::uint64_t>& inputs)
    {
        const std::uint64_t round = inputs.front() / InputsPerRound;
        const std::vector<PublishedClass>& classes = PublishedClasses();
        const PublishedClass& tried = classes[static_cast<std::size_t>(round % classes.size())];
        const bool active = fuzzer_.NeedsWindow() || round / classes.size() % 2 == 0;
        const int windows = ControlWindows();
        what_ = Narrow(tried.Name) + (active ? "" : " (inactive)") + ", made";
        Doing(what_ + Again(inputs.front(), inputs.front()));
        host_.Begin(tried, active);
        fuzzer_.Begin(host_);
        std::string wrong;
        for (const std::uint64_t input : inputs)
        {
            Random random(seed_, input);
            wrong = fuzzer_.Try(host_, random, [&](const std::string& what) {
                what_ = Narrow(tried.Name) + (active ? "" : " (inactive)") + ", " + what;
                Doing(what_ + Again(inputs.front(), input));
                if (chosen_)
                    std::cout << "    " << input << ": " << what_ << std::endl;
            });
            DrainMessages();
            if (!wrong.empty())
                break;
        }
        fuzzer_.End(host_);
        wrong += host_.End();
        if (wrong.empty() && ControlWindows() != windows)
            wrong = " windows are left;";
        return wrong;
    }

    // How to do this once more.
    std::string Again(std::uint64_t first, std::uint64_t last) const
    {
        return "\n  again: KIV_ATTACK_SEED=" + std::to_string(seed_) +
               " KIV_ATTACK_INPUT=" + std::to_string(first) + "-" + std::to_string(last) + " " + name_;
    }

    const char* name_;
    Fuzzer& fuzzer_;
    const std::uint64_t seed_;
    Host host_;
    std::string what_;
    std::uint64_t done_ = 0;
    int findings_ = 0;
    bool chosen_ = false; // by whoever looks at a finding: each input is told
};

} // namespace

void RunAttack(const char* name, Fuzzer& fuzzer)
{
    Attack(name, fuzzer).Run();
}

} // namespace kiv::test
