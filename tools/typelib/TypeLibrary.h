#pragma once

#include "tools/typelib/MemberBlock.h"

#include <array>
#include <string_view>

namespace kiv::typelib
{
// One type of the library: the members, and of its header what tells them apart.
struct Type
{
    bool IsEnumeration = false;
    std::size_t FunctionCount = 0; // so many members are functions, the others variables
    MemberBlock Members;
};

// A compiled type library ("MSFT" file) taken apart: header, segments and the members of each type. The file
// is a header, the offsets of the type headers, a directory of fifteen segments, the segments, and the types'
// member blocks, each beginning where the one before it ends. Anything else is refused, so that what is
// written back holds every byte of what was read.
class TypeLibrary
{
public:
    static TypeLibrary Read(ByteView file);
    Bytes Write() const;

    enum SegmentIndex
    {
        TypeHeaders = 0,
        NameHash = 6,
        Names = 7,
        Strings = 8,
        SegmentCount = 15
    };
    const Bytes& Segment(SegmentIndex index) const { return segments_[index].Data; }
    void ReplaceSegment(SegmentIndex index, Bytes data) { segments_[index].Data = std::move(data); }

    // Adds a text to the string table and returns its offset there.
    std::uint32_t AddString(std::string_view text);

    const std::vector<Type>& Types() const { return types_; }
    std::vector<Type>& Types() { return types_; }

    // What the header says about the name table.
    std::uint32_t NameCount() const;
    std::uint32_t NameCharacterCount() const;

private:
    struct StoredSegment
    {
        bool Present = false;
        Bytes Data;
    };

    std::size_t ReadSegments(ByteView file);
    std::size_t ReadTypes(ByteView file, std::size_t position);

    Bytes preamble_; // header and offsets of the type headers
    std::array<StoredSegment, SegmentCount> segments_;
    std::vector<std::size_t> fileOrder_; // the present segments, as they lie in the file
    std::vector<Type> types_;
};
} // namespace kiv::typelib
