#pragma once

namespace kiv::bench
{

// Prints the rows of rules that need no window.
void RunRulesRows();

} // namespace kiv::bench
