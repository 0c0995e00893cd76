#include "controls/masked/DateLayout.h"

#include <array>

namespace kiv
{

namespace
{

// In the order of the published numbers.
constexpr std::array<DateLayout, 8> Layouts = {{{L"__/__", L"mm/yy"},
                                                {L"__/__/__", L"mm/dd/yy"},
                                                {L"__/__/____", L"mm/dd/yyyy"},
                                                {L"__/__", L"mm/dd"},
                                                {L"__", L"yy"},
                                                {L"____", L"yyyy"},
                                                {L"__/____", L"mm/yyyy"},
                                                {L"__/__/__", L"mm/dd/yy"}}};

} // namespace

const DateLayout* FindDateLayout(DateFormat style)
{
    const auto place = static_cast<std::uint32_t>(style);
    return place < Layouts.size() ? &Layouts[place] : nullptr;
}

} // namespace kiv
