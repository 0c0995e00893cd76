#include "tests/native/typelib/TestLibraries.h"

#include "tools/typelib/NameTable.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>

namespace kiv::test
{
using namespace typelib;

namespace
{
Bytes fileContent(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    Bytes content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (content.empty())
        throw std::runtime_error("cannot read " + path.string());
    return content;
}

// Offset in the module's file of what is loaded at this address.
std::size_t fileOffset(ByteView module, std::uint32_t address)
{
    const std::size_t header = read32(module, 0x3C);
    const std::size_t sections = header + 24 + read16(module, header + 20);
    for (std::size_t i = 0; i < read16(module, header + 6); ++i)
    {
        const ByteView section = slice(module, sections + 40 * i, 40);
        const std::uint32_t start = read32(section, 12);
        if (address >= start && address - start < read32(section, 16))
            return read32(section, 20) + (address - start);
    }
    throw std::runtime_error("the module has no section for an address");
}
} // namespace

const Bytes& compiledLibrary(std::string_view arch)
{
    static std::map<std::string, Bytes, std::less<>> libraries;
    const auto known = libraries.find(arch);
    if (known != libraries.end())
        return known->second;
    const std::string name(arch);
    return libraries[name] = fileContent(KIV_COMPILED_LIBRARIES "/compiled-" + name + ".tlb");
}

const PublishedNames& contractNames()
{
    static const PublishedNames names = [] {
        const Bytes text = fileContent(KIV_CONTRACT_NAMES);
        return parsePublishedNames(std::string(text.begin(), text.end()));
    }();
    return names;
}

std::vector<std::filesystem::path> installedLibraries()
{
    std::vector<std::filesystem::path> paths;
    for (const char* folder :
         {"/usr/lib/i386-linux-gnu/wine/i386-windows", "/usr/lib/x86_64-linux-gnu/wine/x86_64-windows"})
    {
        if (!std::filesystem::is_directory(folder))
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
        {
            if (entry.path().extension() == ".tlb")
                paths.push_back(entry.path());
        }
    }
    return paths;
}

Bytes libraryInModule(const std::filesystem::path& path)
{
    const Bytes module = fileContent(path);
    constexpr std::string_view start("MSFT\x02\x00\x01\x00", 8);
    const auto library = std::search(module.begin(), module.end(), start.begin(), start.end());
    const auto position = static_cast<std::size_t>(library - module.begin());
    // A resource's entry holds address and size: the one whose address leads here tells how long it is.
    for (std::size_t entry = 0; entry + 8 <= position; entry += 4)
    {
        const std::uint32_t address = read32(module, entry);
        const std::uint32_t size = read32(module, entry + 4);
        try
        {
            if (size > 84 && fileOffset(module, address) == position)
            {
                const ByteView found = slice(module, position, size);
                return {found.begin(), found.end()};
            }
        }
        catch (const std::runtime_error&)
        {
            continue; // not an address
        }
    }
    throw std::runtime_error("no type library in " + path.string());
}

void expectRefused(const std::function<void()>& action, std::string_view message)
{
    try
    {
        action();
    }
    catch (const TypeLibraryError& error)
    {
        EXPECT_NE(std::string_view(error.what()).find(message), std::string_view::npos)
            << "expected: " << message << "\n  actual: " << error.what();
        return;
    }
    ADD_FAILURE() << "accepted; expected: " << message;
}

void expectUnreadable(const Bytes& file, std::string_view message)
{
    expectRefused([&] { TypeLibrary::read(file); }, message);
}

std::size_t directoryEntry(const Bytes& file, std::size_t segment)
{
    return 0x54 + 4 * std::size_t{read32(file, 0x20)} + 16 * segment;
}

std::size_t segmentOffset(const Bytes& file, std::size_t segment)
{
    return read32(file, directoryEntry(file, segment));
}

std::string nameAt(const TypeLibrary& library, std::uint32_t offset)
{
    const Bytes& names = library.segment(TypeLibrary::Names);
    const ByteView text = slice(names, offset + 12, names.at(offset + 8));
    return {text.begin(), text.end()};
}

std::string stringAt(const TypeLibrary& library, std::uint32_t offset)
{
    const Bytes& strings = library.segment(TypeLibrary::Strings);
    const ByteView text = slice(strings, offset + 2, read16(strings, offset));
    return {text.begin(), text.end()};
}

std::uint32_t findByHash(const TypeLibrary& library, std::string_view name)
{
    const Bytes& names = library.segment(TypeLibrary::Names);
    const std::uint16_t hash = nameHash(name);
    std::uint32_t offset = read32(library.segment(TypeLibrary::NameHash), 4 * (hash & 0x7Fu));
    while (offset != noOffset && (read16(names, offset + 10) != hash || nameAt(library, offset) != name))
        offset = read32(names, offset + 4);
    return offset;
}
} // namespace kiv::test
