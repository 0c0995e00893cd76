#include "bench/RulesBench.h"

#include "bench/Bench.h"
#include "controls/masked/DateRules.h"

#include <stdexcept>

namespace kiv::bench
{

void RunRulesRows()
{
    const DateRules rules;
    const double microseconds = Measure(20000, [&] {
        if (!rules.Read(L"1_/5_/1_"))
            throw std::logic_error("the date must be read");
    });
    Print("DateBox: completing a date", microseconds);
}

} // namespace kiv::bench
