#pragma once

#include "tools/pictures/Picture.h"

#include <filesystem>
#include <string>

namespace kiv::test
{

// A picture of the folder by its file's name without .pix. Throws std::runtime_error.
pictures::Picture ReadTextPicture(const std::filesystem::path& folder, const std::string& name);

} // namespace kiv::test
