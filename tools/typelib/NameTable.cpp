#include "tools/typelib/NameTable.h"

#include <algorithm>
#include <cctype>

namespace kiv::typelib
{
namespace
{
// A name is a reference to its type, the next name of its hash chain, a word that holds length, kind and
// hash, and the characters, filled up to a multiple of four.
constexpr std::size_t nextField = 4;
constexpr std::size_t lengthField = 8; // one byte
constexpr std::size_t hashField = 10;  // two bytes
constexpr std::size_t nameHeaderSize = 12;
constexpr std::size_t chainCount = 128;

// What the hash sees of a character. Only what lies in ASCII is certain, so other names are refused.
std::uint32_t fold(char character)
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

bool equalIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    });
}

std::string nameAt(ByteView names, std::size_t offset)
{
    const std::size_t length = slice(names, offset, nameHeaderSize)[lengthField];
    const ByteView characters = slice(names, offset + nameHeaderSize, length);
    return {characters.begin(), characters.end()};
}
} // namespace

std::uint16_t nameHash(std::string_view name)
{
    std::uint32_t hash = 0x0DEADBEE;
    for (const char character : name)
        hash = hash * 37 + fold(character);
    return static_cast<std::uint16_t>(hash % 65599);
}

NameTable::NameTable(const TypeLibrary& library) : names_(library.segment(TypeLibrary::Names))
{
    std::size_t characterCount = 0;
    for (std::size_t position = 0; position < names_.size();)
    {
        const std::string name = nameAt(names_, position);
        if (read16(names_, position + hashField) != nameHash(name))
            throw TypeLibraryError("the hash of the name '" + name + "' is not the expected one");
        offsets_.push_back(static_cast<std::uint32_t>(position));
        characterCount += name.size();
        position += nameHeaderSize + roundUpTo4(name.size());
        slice(names_, 0, position);
    }
    if (offsets_.size() != library.nameCount() || characterCount != library.nameCharacterCount())
        throw TypeLibraryError("the name table does not hold as many names as the header says");
    const Chains expected = linkChains();
    if (expected.names != names_ || expected.heads != library.segment(TypeLibrary::NameHash))
        throw TypeLibraryError("the hash chains of the name table are not the expected ones");
}

NameTable::Chains NameTable::linkChains() const
{
    Chains chains{names_, Bytes(4 * chainCount, 0xFF)}; // a chain ends with noOffset
    for (const std::uint32_t offset : offsets_)
    {
        const std::size_t head = 4 * (read16(names_, offset + hashField) % chainCount);
        write32(chains.names, offset + nextField, read32(chains.heads, head));
        write32(chains.heads, head, offset);
    }
    return chains;
}

std::string NameTable::at(std::uint32_t offset) const
{
    if (!std::binary_search(offsets_.begin(), offsets_.end(), offset))
        throw TypeLibraryError("a member refers to a name that is not there");
    return nameAt(names_, offset);
}

void NameTable::rename(std::uint32_t offset, std::string_view name)
{
    const std::string old = at(offset);
    if (old.size() != name.size())
        throw TypeLibraryError("'" + old + "' and '" + std::string(name) + "' differ in length");
    for (const std::uint32_t other : offsets_)
    {
        if (other != offset && equalIgnoringCase(nameAt(names_, other), name))
            throw TypeLibraryError("the name '" + std::string(name) + "' is there already");
    }
    std::copy(name.begin(), name.end(),
              names_.begin() + static_cast<std::ptrdiff_t>(offset + nameHeaderSize));
    write16(names_, offset + hashField, nameHash(name));
}

void NameTable::store(TypeLibrary& library) const
{
    Chains chains = linkChains();
    library.replaceSegment(TypeLibrary::Names, std::move(chains.names));
    library.replaceSegment(TypeLibrary::NameHash, std::move(chains.heads));
}
} // namespace kiv::typelib
