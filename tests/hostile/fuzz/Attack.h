#pragma once

#include "tests/hostile/Host.h"
#include "tests/hostile/fuzz/Random.h"

#include <functional>
#include <string>

namespace kiv::test
{

// Makes inputs out of chance and tries them on a control, one control for a round of them.
class Fuzzer
{
public:
    // Says what the input is, for the report, before it is tried.
    using Tell = std::function<void(std::string)>;

    Fuzzer() = default;
    Fuzzer(const Fuzzer&) = delete;
    Fuzzer& operator=(const Fuzzer&) = delete;
    virtual ~Fuzzer() = default;

    // A round begins with a control that is there, and ends while it still is.
    virtual void Begin(Host&) {}
    virtual void End(Host&) {}
    // Whether the control of a round is active; each fuzzer has both kinds, unless there is nothing to try on
    // one of them.
    virtual bool NeedsWindow() const { return false; }
    // One input. Returns what is wrong, empty for nothing.
    virtual std::string Try(Host& host, Random& random, const Tell& tell) = 0;
};

// Tries inputs on all classes in turn for as long as there is time, and fails the test for each that does
// harm. Where that is a crash, the program ends with a report of the input.
//
// KIV_ATTACK_SEED: where chance starts.
// KIV_ATTACK_SECONDS: how long; a few seconds unless it is said here.
// KIV_ATTACK_INPUT: instead, these inputs only, all of one round: "1203", or "1200-1203,1207".
void RunAttack(const char* name, Fuzzer& fuzzer);

} // namespace kiv::test
