#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kiv::pictures
{

struct Colour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

// The 16 colours that every Windows display can show, in the order of a 16-colour bitmap's colour table.
struct StandardColour
{
    std::string_view name;
    Colour colour;
};
extern const std::array<StandardColour, 16> StandardColours;

// Position in StandardColours; nothing for any other colour.
std::optional<std::size_t> StandardIndex(Colour colour);

// A standard colour's name, or #rrggbb; nothing if the text is neither.
std::optional<Colour> ParseColour(std::string_view text);

} // namespace kiv::pictures
