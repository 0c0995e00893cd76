#pragma once

namespace kiv::bench
{

// Prints the rows of formatting numbers.
void RunNumbersRows();

} // namespace kiv::bench
