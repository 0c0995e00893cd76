#include "controls/masked/DateLayout.h"

#include <array>

namespace kiv
{

namespace
{

// In the order of the published numbers.
constexpr std::array<DateLayout, 8> Layouts = {{
    {L"__/__", L"mm/yy", L"Month and year, two digits each"},
    {L"__/__/__", L"mm/dd/yy", L"Month, day and year, two digits each"},
    {L"__/__/____", L"mm/dd/yyyy", L"Month and day, two digits each, and year, four digits"},
    {L"__/__", L"mm/dd", L"Month and day, two digits each"},
    {L"__", L"yy", L"Year, two digits"},
    {L"____", L"yyyy", L"Year, four digits"},
    {L"__/____", L"mm/yyyy", L"Month, two digits, and year, four digits"},
    {L"__/__/__", L"mm/dd/yy", L"Month, day and year, two digits each; only the year is required"},
}};

} // namespace

const DateLayout* FindDateLayout(DateFormat style)
{
    const auto place = static_cast<std::uint32_t>(style);
    return place < Layouts.size() ? &Layouts[place] : nullptr;
}

} // namespace kiv
