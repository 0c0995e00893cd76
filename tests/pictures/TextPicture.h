#pragma once

#include "tools/pictures/Picture.h"

#include <filesystem>
#include <string>

namespace kiv::test
{

// A picture of the folder by its file's name without .pix. Throws std::runtime_error.
pictures::Picture ReadTextPicture(const std::filesystem::path& folder, const std::string& name);
// The same as its drawing makes it, in percent of its first size.
pictures::Picture ReadDrawnPicture(const std::filesystem::path& folder, const std::string& name,
                                   std::size_t percent);

} // namespace kiv::test
