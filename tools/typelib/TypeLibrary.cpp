#include "tools/typelib/TypeLibrary.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kiv::typelib
{
namespace
{
constexpr std::uint32_t magic = 0x5446534D; // "MSFT"
constexpr std::uint32_t version = 0x00010002;

// The file's header; offsets in bytes.
constexpr std::size_t versionField = 0x04;
constexpr std::size_t typeCountField = 0x20;
constexpr std::size_t nameCountField = 0x30;
constexpr std::size_t nameCharactersField = 0x34;
constexpr std::size_t headerSize = 0x54;

// A directory entry: offset and length of the segment, and two fields that always hold the same.
constexpr std::size_t directoryEntrySize = 16;
constexpr std::uint32_t directoryFiller1 = 0xFFFFFFFF;
constexpr std::uint32_t directoryFiller2 = 0x0F;

// A type's header.
constexpr std::size_t typeHeaderSize = 100;
constexpr std::size_t typeKindField = 0x00; // lowest four bits; an enumeration is 0
constexpr std::size_t membersField = 0x04;  // the member block's offset in the file
constexpr std::size_t memberCountField = 0x18;

std::size_t preambleSize(ByteView file)
{
    if (read32(file, 0) != magic)
        throw TypeLibraryError("not a type library: it does not begin with MSFT");
    if (read32(file, versionField) != version)
        throw TypeLibraryError("a type library of an unknown version");
    const std::size_t typeCount = read32(file, typeCountField);
    const std::size_t size = headerSize + 4 * typeCount;
    slice(file, 0, size);
    for (std::size_t i = 0; i < typeCount; ++i)
    {
        if (read32(file, headerSize + 4 * i) != typeHeaderSize * i)
            throw TypeLibraryError("the headers of the types do not follow each other");
    }
    return size;
}
} // namespace

TypeLibrary TypeLibrary::read(ByteView file)
{
    const ByteView preamble = slice(file, 0, preambleSize(file));
    TypeLibrary library;
    library.preamble_.assign(preamble.begin(), preamble.end());
    const std::size_t end = library.readTypes(file, library.readSegments(file));
    if (end != file.size())
        throw TypeLibraryError("there are bytes after the last type's members");
    return library;
}

// Returns where the segments end.
std::size_t TypeLibrary::readSegments(ByteView file)
{
    const ByteView directory = slice(file, preamble_.size(), SegmentCount * directoryEntrySize);
    std::vector<std::pair<std::size_t, std::size_t>> starts; // offset in the file, index
    for (std::size_t i = 0; i < SegmentCount; ++i)
    {
        const ByteView entry = slice(directory, i * directoryEntrySize, directoryEntrySize);
        const std::uint32_t offset = read32(entry, 0);
        const std::uint32_t length = read32(entry, 4);
        if (read32(entry, 8) != directoryFiller1 || read32(entry, 12) != directoryFiller2)
            throw TypeLibraryError("the directory entry of segment " + std::to_string(i) + " is damaged");
        if (offset == noOffset && length != 0)
            throw TypeLibraryError("segment " + std::to_string(i) + " has a length but no place");
        if (offset == noOffset)
            continue;
        const ByteView data = slice(file, offset, length);
        segments_[i] = {true, Bytes(data.begin(), data.end())};
        starts.emplace_back(offset, i);
    }

    std::sort(starts.begin(), starts.end());
    std::size_t position = preamble_.size() + directory.size();
    for (const auto& [offset, index] : starts)
    {
        if (offset != position)
            throw TypeLibraryError("segment " + std::to_string(index) + " does not begin where another ends");
        position += segments_[index].data.size();
        fileOrder_.push_back(index);
    }
    return position;
}

// Returns where the last member block ends.
std::size_t TypeLibrary::readTypes(ByteView file, std::size_t position)
{
    const Bytes& headers = segment(TypeHeaders);
    if (headers.size() != typeHeaderSize * read32(preamble_, typeCountField))
        throw TypeLibraryError("the segment of type headers does not fit the number of types");
    for (std::size_t start = 0; start < headers.size(); start += typeHeaderSize)
    {
        const ByteView header = slice(headers, start, typeHeaderSize);
        if (read32(header, membersField) != position)
            throw TypeLibraryError("the members of a type do not begin where those before them end");
        Type type;
        type.isEnumeration = (read32(header, typeKindField) & 0xF) == 0;
        type.functionCount = read16(header, memberCountField);
        const std::size_t memberCount = type.functionCount + read16(header, memberCountField + 2);
        const ByteView rest = slice(file, position, file.size() - position);
        const ByteView block = slice(rest, 0, memberBlockSize(rest, memberCount));
        type.members = readMemberBlock(block, memberCount);
        position += block.size();
        types_.push_back(std::move(type));
    }
    return position;
}

Bytes TypeLibrary::write() const
{
    std::size_t position = preamble_.size() + SegmentCount * directoryEntrySize;
    std::array<std::uint32_t, SegmentCount> offsets;
    offsets.fill(noOffset);
    for (const std::size_t index : fileOrder_)
    {
        offsets[index] = static_cast<std::uint32_t>(position);
        position += segments_[index].data.size();
    }

    Bytes memberBlocks;
    Bytes headers = segment(TypeHeaders);
    for (std::size_t i = 0; i < types_.size(); ++i)
    {
        write32(headers, i * typeHeaderSize + membersField,
                static_cast<std::uint32_t>(position + memberBlocks.size()));
        appendMemberBlock(memberBlocks, types_[i].members);
    }

    Bytes file = preamble_;
    for (std::size_t i = 0; i < SegmentCount; ++i)
    {
        append32(file, offsets[i]);
        append32(file, static_cast<std::uint32_t>(segments_[i].data.size()));
        append32(file, directoryFiller1);
        append32(file, directoryFiller2);
    }
    for (const std::size_t index : fileOrder_)
        append(file, index == TypeHeaders ? headers : segments_[index].data);
    append(file, memberBlocks);
    return file;
}

std::uint32_t TypeLibrary::addString(std::string_view text)
{
    if (!segments_[Strings].present)
        throw TypeLibraryError("there is no string table to add help strings to");
    if (text.size() > 0xFFFF)
        throw TypeLibraryError("a string is longer than the format can hold");
    // Length, characters, and W up to a multiple of four, but never less than eight bytes.
    Bytes& strings = segments_[Strings].data;
    const std::size_t offset = strings.size();
    strings.resize(offset + std::max<std::size_t>(roundUpTo4(2 + text.size()), 8), 'W');
    write16(strings, offset, static_cast<std::uint16_t>(text.size()));
    std::copy(text.begin(), text.end(), strings.begin() + static_cast<std::ptrdiff_t>(offset + 2));
    return static_cast<std::uint32_t>(offset);
}

std::uint32_t TypeLibrary::nameCount() const
{
    return read32(preamble_, nameCountField);
}

std::uint32_t TypeLibrary::nameCharacterCount() const
{
    return read32(preamble_, nameCharactersField);
}
} // namespace kiv::typelib
