#include "tools/typelib/TypeLibrary.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kiv::typelib
{
namespace
{
constexpr std::uint32_t Magic = 0x5446534D; // "MSFT"
constexpr std::uint32_t Version = 0x00010002;

// The file's header; offsets in bytes.
constexpr std::size_t VersionField = 0x04;
constexpr std::size_t TypeCountField = 0x20;
constexpr std::size_t NameCountField = 0x30;
constexpr std::size_t NameCharactersField = 0x34;
constexpr std::size_t HeaderSize = 0x54;

// A directory entry: offset and length of the segment, and two fields that always hold the same.
constexpr std::size_t DirectoryEntrySize = 16;
constexpr std::uint32_t DirectoryFiller1 = 0xFFFFFFFF;
constexpr std::uint32_t DirectoryFiller2 = 0x0F;

// A type's header.
constexpr std::size_t TypeHeaderSize = 100;
constexpr std::size_t TypeKindField = 0x00; // lowest four bits; an enumeration is 0
constexpr std::size_t MembersField = 0x04;  // the member block's offset in the file
constexpr std::size_t MemberCountField = 0x18;

std::size_t PreambleSize(ByteView file)
{
    if (Read32(file, 0) != Magic)
        throw TypeLibraryError("not a type library: it does not begin with MSFT");
    if (Read32(file, VersionField) != Version)
        throw TypeLibraryError("a type library of an unknown version");
    const std::size_t typeCount = Read32(file, TypeCountField);
    const std::size_t size = HeaderSize + 4 * typeCount;
    Slice(file, 0, size);
    for (std::size_t i = 0; i < typeCount; ++i)
    {
        if (Read32(file, HeaderSize + 4 * i) != TypeHeaderSize * i)
            throw TypeLibraryError("the headers of the types do not follow each other");
    }
    return size;
}
} // namespace

TypeLibrary TypeLibrary::Read(ByteView file)
{
    const ByteView preamble = Slice(file, 0, PreambleSize(file));
    TypeLibrary library;
    library.preamble_.assign(preamble.begin(), preamble.end());
    const std::size_t end = library.ReadTypes(file, library.ReadSegments(file));
    if (end != file.size())
        throw TypeLibraryError("there are bytes after the last type's members");
    return library;
}

// Returns where the segments end.
std::size_t TypeLibrary::ReadSegments(ByteView file)
{
    const ByteView directory = Slice(file, preamble_.size(), SegmentCount * DirectoryEntrySize);
    std::vector<std::pair<std::size_t, std::size_t>> starts; // offset in the file, index
    for (std::size_t i = 0; i < SegmentCount; ++i)
    {
        const ByteView entry = Slice(directory, i * DirectoryEntrySize, DirectoryEntrySize);
        const std::uint32_t offset = Read32(entry, 0);
        const std::uint32_t length = Read32(entry, 4);
        if (Read32(entry, 8) != DirectoryFiller1 || Read32(entry, 12) != DirectoryFiller2)
            throw TypeLibraryError("the directory entry of segment " + std::to_string(i) + " is damaged");
        if (offset == NoOffset && length != 0)
            throw TypeLibraryError("segment " + std::to_string(i) + " has a length but no place");
        if (offset == NoOffset)
            continue;
        const ByteView data = Slice(file, offset, length);
        segments_[i] = {true, Bytes(data.begin(), data.end())};
        starts.emplace_back(offset, i);
    }

    std::sort(starts.begin(), starts.end());
    std::size_t position = preamble_.size() + directory.size();
    for (const auto& [offset, index] : starts)
    {
        if (offset != position)
            throw TypeLibraryError("segment " + std::to_string(index) + " does not begin where another ends");
        position += segments_[index].Data.size();
        fileOrder_.push_back(index);
    }
    return position;
}

// Returns where the last member block ends.
std::size_t TypeLibrary::ReadTypes(ByteView file, std::size_t position)
{
    const Bytes& headers = Segment(TypeHeaders);
    if (headers.size() != TypeHeaderSize * Read32(preamble_, TypeCountField))
        throw TypeLibraryError("the segment of type headers does not fit the number of types");
    for (std::size_t start = 0; start < headers.size(); start += TypeHeaderSize)
    {
        const ByteView header = Slice(headers, start, TypeHeaderSize);
        if (Read32(header, MembersField) != position)
            throw TypeLibraryError("the members of a type do not begin where those before them end");
        Type type;
        type.IsEnumeration = (Read32(header, TypeKindField) & 0xF) == 0;
        type.FunctionCount = Read16(header, MemberCountField);
        const std::size_t memberCount = type.FunctionCount + Read16(header, MemberCountField + 2);
        const ByteView rest = Slice(file, position, file.size() - position);
        const ByteView block = Slice(rest, 0, MemberBlockSize(rest, memberCount));
        type.Members = ReadMemberBlock(block, memberCount);
        position += block.size();
        types_.push_back(std::move(type));
    }
    return position;
}

Bytes TypeLibrary::Write() const
{
    std::size_t position = preamble_.size() + SegmentCount * DirectoryEntrySize;
    std::array<std::uint32_t, SegmentCount> offsets;
    offsets.fill(NoOffset);
    for (const std::size_t index : fileOrder_)
    {
        offsets[index] = static_cast<std::uint32_t>(position);
        position += segments_[index].Data.size();
    }

    Bytes memberBlocks;
    Bytes headers = Segment(TypeHeaders);
    for (std::size_t i = 0; i < types_.size(); ++i)
    {
        Write32(headers, i * TypeHeaderSize + MembersField,
                static_cast<std::uint32_t>(position + memberBlocks.size()));
        AppendMemberBlock(memberBlocks, types_[i].Members);
    }

    Bytes file = preamble_;
    for (std::size_t i = 0; i < SegmentCount; ++i)
    {
        Append32(file, offsets[i]);
        Append32(file, static_cast<std::uint32_t>(segments_[i].Data.size()));
        Append32(file, DirectoryFiller1);
        Append32(file, DirectoryFiller2);
    }
    for (const std::size_t index : fileOrder_)
        Append(file, index == TypeHeaders ? headers : segments_[index].Data);
    Append(file, memberBlocks);
    return file;
}

std::uint32_t TypeLibrary::AddString(std::string_view text)
{
    if (!segments_[Strings].Present)
        throw TypeLibraryError("there is no string table to add help strings to");
    if (text.size() > 0xFFFF)
        throw TypeLibraryError("a string is longer than the format can hold");
    // Length, characters, and W up to a multiple of four, but never less than eight bytes.
    Bytes& strings = segments_[Strings].Data;
    const std::size_t offset = strings.size();
    strings.resize(offset + std::max<std::size_t>(RoundUpTo4(2 + text.size()), 8), 'W');
    Write16(strings, offset, static_cast<std::uint16_t>(text.size()));
    std::copy(text.begin(), text.end(), strings.begin() + static_cast<std::ptrdiff_t>(offset + 2));
    return static_cast<std::uint32_t>(offset);
}

std::uint32_t TypeLibrary::NameCount() const
{
    return Read32(preamble_, NameCountField);
}

std::uint32_t TypeLibrary::NameCharacterCount() const
{
    return Read32(preamble_, NameCharactersField);
}
} // namespace kiv::typelib
