#pragma once

#include <string>

namespace kiv::test
{

// What the program is doing, for the report of a crash.
void Doing(std::string what);

// From here on the first touch of memory that is not the module's to touch, by it or for it, ends the program
// with a report: what was being done, and where in the module. Other code of the process may probe memory as
// it likes.
void ReportCrashes();

} // namespace kiv::test
