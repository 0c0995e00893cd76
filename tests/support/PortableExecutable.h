#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kiv::test
{

// What the file of a Windows module says about itself, without loading it.
struct PortableExecutable
{
    bool Is64Bit = false;
    std::vector<std::string> Exports; // in order of name
    std::vector<std::string> Imports; // file names in lower case, delayed ones included
    std::size_t UnnamedExports = 0;   // exported by number only
};

// Throws std::runtime_error for bytes that are no such file.
PortableExecutable ReadPortableExecutable(const std::vector<std::uint8_t>& file);

} // namespace kiv::test
