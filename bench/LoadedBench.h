#pragma once

namespace kiv::bench
{

// What a let costs after a form file has said what no let would take.
void RunLoadedRows();

} // namespace kiv::bench
