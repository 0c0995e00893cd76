#pragma once

#include <string>
#include <string_view>

namespace kiv::test
{

// "" for equal texts, else the lines that only one of them has, in order: "- " before one that is expected
// and missing, "+ " before one that is there instead. Above them stands the line without an indent that they
// are under.
std::string LineDifference(std::string_view expected, std::string_view actual);

} // namespace kiv::test
