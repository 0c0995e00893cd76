#pragma once

#include "tests/com/each/PersistedControls.h"

#include <string>

namespace kiv::test
{

// What hosts have come to rely on in a control beside its contract, a line each: the keys that it reads and
// writes, in their order, what a new one shows, and what a host hears, in its order, when a property is set.
std::string StateText(const PublishedClass& control, TestPropertyBag* unusual);

// Lines of the first that are not in the second in their order; empty when it only adds to the first.
std::string LinesLost(const std::string& released, const std::string& current);

} // namespace kiv::test
