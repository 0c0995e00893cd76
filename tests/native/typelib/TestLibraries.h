#pragma once

#include "tools/typelib/PublishedNames.h"
#include "tools/typelib/TypeLibrary.h"

#include <filesystem>
#include <functional>

namespace kiv::test
{
// The contract as the build's IDL compiler leaves it, before the names are published.
const typelib::Bytes& compiledLibrary(std::string_view arch = "x86");
const typelib::PublishedNames& contractNames();

// The type libraries that Wine installs, taken out of the modules that carry them; empty where Wine is
// absent.
std::vector<std::filesystem::path> installedLibraries();
typelib::Bytes libraryInModule(const std::filesystem::path& module);

// Expects the action to be refused with a message that holds this text.
void expectRefused(const std::function<void()>& action, std::string_view message);
void expectUnreadable(const typelib::Bytes& file, std::string_view message);

// Where the parts of a library file are, found here once more to check the tool against.
std::size_t directoryEntry(const typelib::Bytes& file, std::size_t segment);
std::size_t segmentOffset(const typelib::Bytes& file, std::size_t segment);

std::string nameAt(const typelib::TypeLibrary& library, std::uint32_t offset);
std::string stringAt(const typelib::TypeLibrary& library, std::uint32_t offset);
// The offset of a name, looked up by way of its hash chain as automation does; noOffset when it is not there.
std::uint32_t findByHash(const typelib::TypeLibrary& library, std::string_view name);
} // namespace kiv::test
