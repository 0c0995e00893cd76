#pragma once

#include "tools/typelib/PublishedNames.h"
#include "tools/typelib/TypeLibrary.h"

#include <filesystem>
#include <functional>

namespace kiv::test
{
// The contract as the build's IDL compiler leaves it, before the names are published.
const typelib::Bytes& CompiledLibrary(std::string_view arch = "x86");
const typelib::PublishedNames& ContractNames();

// The type libraries that Wine installs, taken out of the modules that carry them; empty where Wine is
// absent.
std::vector<std::filesystem::path> InstalledLibraries();
typelib::Bytes LibraryInModule(const std::filesystem::path& module);

// Expects the action to be refused with a message that holds this text.
void ExpectRefused(const std::function<void()>& action, std::string_view message);
void ExpectUnreadable(const typelib::Bytes& file, std::string_view message);

// Where the parts of a library file are, found here once more to check the tool against.
std::size_t DirectoryEntry(const typelib::Bytes& file, std::size_t segment);
std::size_t SegmentOffset(const typelib::Bytes& file, std::size_t segment);

std::string NameAt(const typelib::TypeLibrary& library, std::uint32_t offset);
std::string StringAt(const typelib::TypeLibrary& library, std::uint32_t offset);
// The offset of a name, looked up by way of its hash chain as automation does; noOffset when it is not there.
std::uint32_t FindByHash(const typelib::TypeLibrary& library, std::string_view name);
} // namespace kiv::test
