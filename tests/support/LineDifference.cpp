#include "tests/support/LineDifference.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kiv::test
{

namespace
{

std::vector<std::string_view> LinesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        // As a checkout on Windows may have it.
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

bool IsHeading(std::string_view line)
{
    return line.empty() || line.front() != ' ';
}

} // namespace

std::string LineDifference(std::string_view expected, std::string_view actual)
{
    const std::vector<std::string_view> left = LinesOf(expected);
    const std::vector<std::string_view> right = LinesOf(actual);
    // The length of the longest common part behind each pair of lines.
    std::vector<std::vector<std::size_t>> common(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
    for (std::size_t l = left.size(); l-- > 0;)
    {
        for (std::size_t r = right.size(); r-- > 0;)
            common[l][r] =
                left[l] == right[r] ? common[l + 1][r + 1] + 1 : std::max(common[l + 1][r], common[l][r + 1]);
    }

    std::string text;
    std::string_view heading;
    const auto tell = [&](const char* sign, std::string_view line) {
        // Told once, and not above a line that is one itself.
        const std::string_view above = std::exchange(heading, {});
        if (!above.empty() && !IsHeading(line))
            text += "  " + std::string(above) + "\n";
        text += sign + std::string(line) + "\n";
    };
    std::size_t l = 0;
    std::size_t r = 0;
    while (l < left.size() || r < right.size())
    {
        if (l < left.size() && r < right.size() && left[l] == right[r])
        {
            if (IsHeading(left[l]))
                heading = left[l];
            ++l;
            ++r;
        }
        else if (r == right.size() || (l < left.size() && common[l + 1][r] >= common[l][r + 1]))
            tell("- ", left[l++]);
        else
            tell("+ ", right[r++]);
    }
    return text;
}

} // namespace kiv::test
