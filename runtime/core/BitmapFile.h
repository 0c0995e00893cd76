#pragma once

#include <cstdint>
#include <span>

namespace kiv
{

// Whether the bytes of a bitmap file hold all that its headers say that there is. What is no such file is
// none of this function's business: true.
bool HoldsItsBitmap(std::span<const std::uint8_t> file);

} // namespace kiv
