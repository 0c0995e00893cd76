#pragma once

#include "tools/typelib/Bytes.h"

namespace kiv::typelib
{
// One function or variable of a type. Its record starts with the record's own size.
struct Member
{
    Bytes Record;
    std::uint32_t Id = 0;
    std::uint32_t NameOffset = 0; // in the name table
};

// The members of one type, functions before variables. In the file they are one block: the size of all
// records, the records, and then three tables with an entry for each member: id, name, offset of the record.
using MemberBlock = std::vector<Member>;

// How many bytes the block of so many members takes at the front of these bytes; none for a type without
// members.
std::size_t MemberBlockSize(ByteView bytes, std::size_t memberCount);

// The block must be exactly as long as these bytes, and its records must follow each other without a gap.
MemberBlock ReadMemberBlock(ByteView block, std::size_t memberCount);
void AppendMemberBlock(Bytes& bytes, const MemberBlock& members);
} // namespace kiv::typelib
