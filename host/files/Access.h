#pragma once

#include <filesystem>

namespace kiv::host
{

// Throws FileError where a person has marked the file as read-only; that the program might write it all the
// same, as an administrator, does not count.
void RefuseReadOnly(const std::filesystem::path& file);

// Gives a file the access rights of another, as far as the system lets it.
void CopyAccess(const std::filesystem::path& from, const std::filesystem::path& to);

// A name beside the file's that nobody has.
std::filesystem::path FreeNameBeside(const std::filesystem::path& file, const char* extension);

} // namespace kiv::host
