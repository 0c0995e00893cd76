#pragma once

#include "host/files/FileError.h"

#include <string>
#include <string_view>

namespace kiv::host
{

// Throws FileError.
std::string ReadFile(const std::filesystem::path& file);

// Writes beside the file first and then takes its place, so that whatever goes wrong leaves the old one; who
// may read and write it stays. Throws FileError, also for a file that is marked as read-only.
void WriteFile(const std::filesystem::path& file, std::string_view content);

} // namespace kiv::host
