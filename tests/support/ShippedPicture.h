#pragma once

#include "tests/pictures/TextPicture.h"

#include <string>

namespace kiv::test
{

// A picture of the library as the tree has it, by its file's name without .pix. Throws std::runtime_error.
pictures::Picture ShippedPicture(const std::string& name);

} // namespace kiv::test
