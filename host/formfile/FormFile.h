#pragma once

#include "host/formfile/FormText.h"

#include <filesystem>

namespace kiv::host
{

// Throws FormError when the file cannot be read or holds a mistake.
FormDocument LoadFormFile(const std::filesystem::path& path);

// Writes beside the file first and then takes its place, so that whatever goes wrong leaves the old one.
// Throws FormError.
void SaveFormFile(const std::filesystem::path& path, const FormDocument& document);

} // namespace kiv::host
