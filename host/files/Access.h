#pragma once

#include <filesystem>

namespace kiv::host
{

// Throws FileError where a person has marked the file as read-only; that the program might write it all the
// same, as an administrator, does not count.
void RefuseReadOnly(const std::filesystem::path& file);

// Puts a fresh file in the place of another, which need not be there; who may read and write that one stays.
// Throws FileError, and leaves both as they were.
void TakePlace(const std::filesystem::path& fresh, const std::filesystem::path& file);

// A name beside the file's that nobody has.
std::filesystem::path FreeNameBeside(const std::filesystem::path& file, const char* extension);

} // namespace kiv::host
