#pragma once

#include "tests/pictures/TextPicture.h"

#include <string>

namespace kiv::test
{

// A picture of the library as the tree has it, by its file's name without .pix, in percent of its first size.
// Throws std::runtime_error.
pictures::Picture ShippedPicture(const std::string& name, std::size_t percent = 100);

} // namespace kiv::test
