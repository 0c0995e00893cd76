#pragma once

#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace kiv
{

// The number that a text is, as std::from_chars reads it; none for one that its type does not hold, and for
// a text that begins with none.
template<class Number>
std::optional<Number> ParsedNumber(std::string_view text)
{
    Number number{};
    const auto read = std::from_chars(std::to_address(text.begin()), std::to_address(text.end()), number);
    return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

} // namespace kiv
