#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace kiv::host
{

// What is wrong with a file as a whole: "file: what".
struct FileError : std::runtime_error
{
    FileError(const std::filesystem::path& file, const std::string& what) :
        std::runtime_error(file.string() + ": " + what)
    {
    }
};

} // namespace kiv::host
