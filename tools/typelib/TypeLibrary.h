#pragma once

#include "tools/typelib/MemberBlock.h"

#include <array>
#include <string_view>

namespace kiv::typelib
{
// One type of the library: the members, and of its header what tells them apart.
struct Type
{
    bool isEnumeration = false;
    std::size_t functionCount = 0; // so many members are functions, the others variables
    MemberBlock members;
};

// A compiled type library ("MSFT" file) taken apart: header, segments and the members of each type. The file
// is a header, the offsets of the type headers, a directory of fifteen segments, the segments, and the types'
// member blocks, each beginning where the one before it ends. Anything else is refused, so that what is
// written back holds every byte of what was read.
class TypeLibrary
{
public:
    static TypeLibrary read(ByteView file);
    Bytes write() const;

    enum SegmentIndex
    {
        TypeHeaders = 0,
        NameHash = 6,
        Names = 7,
        Strings = 8,
        SegmentCount = 15
    };
    const Bytes& segment(SegmentIndex index) const { return segments_[index].data; }
    void replaceSegment(SegmentIndex index, Bytes data) { segments_[index].data = std::move(data); }

    // Adds a text to the string table and returns its offset there.
    std::uint32_t addString(std::string_view text);

    const std::vector<Type>& types() const { return types_; }
    std::vector<Type>& types() { return types_; }

    // What the header says about the name table.
    std::uint32_t nameCount() const;
    std::uint32_t nameCharacterCount() const;

private:
    struct Segment
    {
        bool present = false;
        Bytes data;
    };

    std::size_t readSegments(ByteView file);
    std::size_t readTypes(ByteView file, std::size_t position);

    Bytes preamble_; // header and offsets of the type headers
    std::array<Segment, SegmentCount> segments_;
    std::vector<std::size_t> fileOrder_; // the present segments, as they lie in the file
    std::vector<Type> types_;
};
} // namespace kiv::typelib
