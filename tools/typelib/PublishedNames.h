#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kiv::typelib
{
// Published name by placeholder.
using PublishedNames = std::map<std::string, std::string, std::less<>>;

// Reads rows "placeholder = published name"; blank lines and lines that begin with # say nothing. A
// placeholder is the published name with _ for each character that is no letter or digit. An error names the
// line.
PublishedNames ParsePublishedNames(std::string_view text);
} // namespace kiv::typelib
