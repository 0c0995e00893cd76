#include "tools/typelib/NameTable.h"

#include <algorithm>
#include <cctype>

namespace kiv::typelib
{
namespace
{
// A name is a reference to its type, the next name of its hash chain, a word that holds length, kind and
// hash, and the characters, filled up to a multiple of four.
constexpr std::size_t NextField = 4;
constexpr std::size_t LengthField = 8; // one byte
constexpr std::size_t HashField = 10;  // two bytes
constexpr std::size_t NameHeaderSize = 12;
constexpr std::size_t ChainCount = 128;

// What the hash sees of a character. Only what lies in ASCII is certain, so other names are refused.
std::uint32_t Fold(char character)
{
    const auto code = static_cast<unsigned char>(character);
    if (code > 0x7F)
        throw TypeLibraryError("a name holds a character outside ASCII");
    switch (const int upper = std::toupper(code))
    {
    case 'W':
        return 'V';
    case 'Y':
        return 'U';
    case '/':
        return 0;
    default:
        return static_cast<std::uint32_t>(upper);
    }
}

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    });
}

std::string NameAt(ByteView names, std::size_t offset)
{
    const std::size_t length = Slice(names, offset, NameHeaderSize)[LengthField];
    const ByteView characters = Slice(names, offset + NameHeaderSize, length);
    return {characters.begin(), characters.end()};
}
} // namespace

std::uint16_t NameHash(std::string_view name)
{
    std::uint32_t hash = 0x0DEADBEE;
    for (const char character : name)
        hash = hash * 37 + Fold(character);
    return static_cast<std::uint16_t>(hash % 65599);
}

NameTable::NameTable(const TypeLibrary& library) : names_(library.Segment(TypeLibrary::Names))
{
    std::size_t characterCount = 0;
    for (std::size_t position = 0; position < names_.size();)
    {
        const std::string name = NameAt(names_, position);
        if (Read16(names_, position + HashField) != NameHash(name))
            throw TypeLibraryError("the hash of the name '" + name + "' is not the expected one");
        offsets_.push_back(static_cast<std::uint32_t>(position));
        characterCount += name.size();
        position += NameHeaderSize + RoundUpTo4(name.size());
        Slice(names_, 0, position);
    }
    if (offsets_.size() != library.NameCount() || characterCount != library.NameCharacterCount())
        throw TypeLibraryError("the name table does not hold as many names as the header says");
    const Chains expected = LinkChains();
    if (expected.Names != names_ || expected.Heads != library.Segment(TypeLibrary::NameHash))
        throw TypeLibraryError("the hash chains of the name table are not the expected ones");
}

NameTable::Chains NameTable::LinkChains() const
{
    Chains chains{names_, Bytes(4 * ChainCount, 0xFF)}; // a chain ends with noOffset
    for (const std::uint32_t offset : offsets_)
    {
        const std::size_t head = 4 * (Read16(names_, offset + HashField) % ChainCount);
        Write32(chains.Names, offset + NextField, Read32(chains.Heads, head));
        Write32(chains.Heads, head, offset);
    }
    return chains;
}

std::string NameTable::At(std::uint32_t offset) const
{
    if (!std::binary_search(offsets_.begin(), offsets_.end(), offset))
        throw TypeLibraryError("a member refers to a name that is not there");
    return NameAt(names_, offset);
}

void NameTable::Rename(std::uint32_t offset, std::string_view name)
{
    const std::string old = At(offset);
    if (old.size() != name.size())
        throw TypeLibraryError("'" + old + "' and '" + std::string(name) + "' differ in length");
    for (const std::uint32_t other : offsets_)
    {
        if (other != offset && EqualIgnoringCase(NameAt(names_, other), name))
            throw TypeLibraryError("the name '" + std::string(name) + "' is there already");
    }
    std::copy(name.begin(), name.end(),
              names_.begin() + static_cast<std::ptrdiff_t>(offset + NameHeaderSize));
    Write16(names_, offset + HashField, NameHash(name));
}

void NameTable::Store(TypeLibrary& library) const
{
    Chains chains = LinkChains();
    library.ReplaceSegment(TypeLibrary::Names, std::move(chains.Names));
    library.ReplaceSegment(TypeLibrary::NameHash, std::move(chains.Heads));
}
} // namespace kiv::typelib
