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
Bytes FileContent(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    Bytes content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (content.empty())
        throw std::runtime_error("cannot read " + path.string());
    return content;
}

// Offset in the module's file of what is loaded at this address.
std::size_t FileOffset(ByteView module, std::uint32_t address)
{
    const std::size_t header = Read32(module, 0x3C);
    const std::size_t sections = header + 24 + Read16(module, header + 20);
    for (std::size_t i = 0; i < Read16(module, header + 6); ++i)
    {
        const ByteView section = Slice(module, sections + 40 * i, 40);
        const std::uint32_t start = Read32(section, 12);
        if (address >= start && address - start < Read32(section, 16))
            return Read32(section, 20) + (address - start);
    }
    throw std::runtime_error("the module has no section for an address");
}
} // namespace

const Bytes& CompiledLibrary(std::string_view arch)
{
    static std::map<std::string, Bytes, std::less<>> libraries;
    const auto known = libraries.find(arch);
    if (known != libraries.end())
        return known->second;
    const std::string name(arch);
    return libraries[name] = FileContent(KIV_COMPILED_LIBRARIES "/compiled-" + name + ".tlb");
}

const PublishedNames& ContractNames()
{
    static const PublishedNames names = [] {
        const Bytes text = FileContent(KIV_CONTRACT_NAMES);
        return ParsePublishedNames(std::string(text.begin(), text.end()));
    }();
    return names;
}

std::vector<std::filesystem::path> InstalledLibraries()
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

Bytes LibraryInModule(const std::filesystem::path& path)
{
    const Bytes module = FileContent(path);
    constexpr std::string_view start("MSFT\x02\x00\x01\x00", 8);
    const auto library = std::search(module.begin(), module.end(), start.begin(), start.end());
    const auto position = static_cast<std::size_t>(library - module.begin());
    // A resource's entry holds address and size: the one whose address leads here tells how long it is.
    for (std::size_t entry = 0; entry + 8 <= position; entry += 4)
    {
        const std::uint32_t address = Read32(module, entry);
        const std::uint32_t size = Read32(module, entry + 4);
        try
        {
            if (size > 84 && FileOffset(module, address) == position)
            {
                const ByteView found = Slice(module, position, size);
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

void ExpectRefused(const std::function<void()>& action, std::string_view message)
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

void ExpectUnreadable(const Bytes& file, std::string_view message)
{
    ExpectRefused([&] { TypeLibrary::Read(file); }, message);
}

std::size_t DirectoryEntry(const Bytes& file, std::size_t segment)
{
    return 0x54 + 4 * std::size_t{Read32(file, 0x20)} + 16 * segment;
}

std::size_t SegmentOffset(const Bytes& file, std::size_t segment)
{
    return Read32(file, DirectoryEntry(file, segment));
}

std::string NameAt(const TypeLibrary& library, std::uint32_t offset)
{
    const Bytes& names = library.Segment(TypeLibrary::Names);
    const ByteView text = Slice(names, offset + 12, names.at(offset + 8));
    return {text.begin(), text.end()};
}

std::string StringAt(const TypeLibrary& library, std::uint32_t offset)
{
    const Bytes& strings = library.Segment(TypeLibrary::Strings);
    const ByteView text = Slice(strings, offset + 2, Read16(strings, offset));
    return {text.begin(), text.end()};
}

std::uint32_t FindByHash(const TypeLibrary& library, std::string_view name)
{
    const Bytes& names = library.Segment(TypeLibrary::Names);
    const std::uint16_t hash = NameHash(name);
    std::uint32_t offset = Read32(library.Segment(TypeLibrary::NameHash), 4 * (hash & 0x7Fu));
    while (offset != NoOffset && (Read16(names, offset + 10) != hash || NameAt(library, offset) != name))
        offset = Read32(names, offset + 4);
    return offset;
}
} // namespace kiv::test
