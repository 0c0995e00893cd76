#include "tools/typelib/PublishedNames.h"

#include "tools/typelib/Bytes.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace kiv::typelib
{
namespace
{
std::string Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::string PlaceholderOf(std::string published)
{
    std::replace_if(
        published.begin(), published.end(),
        [](char character) { return std::isalnum(static_cast<unsigned char>(character)) == 0; }, '_');
    return published;
}
} // namespace

PublishedNames ParsePublishedNames(std::string_view text)
{
    PublishedNames names;
    std::istringstream lines{std::string(text)};
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);)
    {
        ++number;
        const auto fail = [&](const std::string& what) {
            throw TypeLibraryError("line " + std::to_string(number) + ": " + what);
        };
        line = Trimmed(line);
        if (line.empty() || line.front() == '#')
            continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos)
            fail("expected: placeholder = published name");
        const std::string placeholder = Trimmed(std::string_view(line).substr(0, equals));
        const std::string published = Trimmed(std::string_view(line).substr(equals + 1));
        if (published.empty())
            fail("the published name is missing");
        if (placeholder.size() != published.size())
            fail("'" + placeholder + "' and '" + published + "' differ in length");
        if (placeholder != PlaceholderOf(published))
            fail("the placeholder of '" + published + "' has to be " + PlaceholderOf(published));
        if (!names.emplace(placeholder, published).second)
            fail("'" + placeholder + "' is listed twice");
    }
    return names;
}
} // namespace kiv::typelib
