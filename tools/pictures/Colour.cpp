#include "tools/pictures/Colour.h"

#include <algorithm>
#include <charconv>

namespace kiv::pictures
{

const std::array<StandardColour, 16> StandardColours{{
    {"black", {0, 0, 0}},
    {"maroon", {128, 0, 0}},
    {"green", {0, 128, 0}},
    {"olive", {128, 128, 0}},
    {"navy", {0, 0, 128}},
    {"purple", {128, 0, 128}},
    {"teal", {0, 128, 128}},
    {"gray", {128, 128, 128}},
    {"silver", {192, 192, 192}},
    {"red", {255, 0, 0}},
    {"lime", {0, 255, 0}},
    {"yellow", {255, 255, 0}},
    {"blue", {0, 0, 255}},
    {"fuchsia", {255, 0, 255}},
    {"aqua", {0, 255, 255}},
    {"white", {255, 255, 255}},
}};

std::optional<std::size_t> StandardIndex(Colour colour)
{
    const auto found = std::ranges::find(StandardColours, colour, &StandardColour::colour);
    if (found == StandardColours.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - StandardColours.begin());
}

std::optional<Colour> ParseColour(std::string_view text)
{
    const auto named = std::ranges::find(StandardColours, text, &StandardColour::name);
    if (named != StandardColours.end())
        return named->colour;
    if (text.size() != 7 || text.front() != '#')
        return std::nullopt;
    std::uint32_t rgb = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, rgb, 16);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return Colour{static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8 & 0xff),
                  static_cast<std::uint8_t>(rgb & 0xff)};
}

} // namespace kiv::pictures
