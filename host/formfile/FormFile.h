#pragma once

#include "host/formfile/FormText.h"

#include <filesystem>

namespace kiv::host
{

// Throws FileError when the file cannot be read, FormError when it holds a mistake.
FormDocument LoadFormFile(const std::filesystem::path& path);

// As WriteFile: whatever goes wrong leaves the old file. Throws FileError.
void SaveFormFile(const std::filesystem::path& path, const FormDocument& document);

} // namespace kiv::host
