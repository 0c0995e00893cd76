#include "tools/typelib/MemberBlock.h"

namespace kiv::typelib
{
namespace
{
constexpr std::size_t SizeField = 4;
constexpr std::size_t TableEntry = 4;
} // namespace

std::size_t MemberBlockSize(ByteView bytes, std::size_t memberCount)
{
    return memberCount == 0 ? 0 : SizeField + Read32(bytes, 0) + 3 * TableEntry * memberCount;
}

MemberBlock ReadMemberBlock(ByteView block, std::size_t memberCount)
{
    if (memberCount == 0)
        return {};
    const std::size_t recordsSize = Read32(block, 0);
    const ByteView records = Slice(block, SizeField, recordsSize);
    const ByteView ids = Slice(block, SizeField + recordsSize, TableEntry * memberCount);
    const ByteView names = Slice(block, SizeField + recordsSize + ids.size(), ids.size());
    const ByteView offsets = Slice(block, SizeField + recordsSize + 2 * ids.size(), ids.size());

    MemberBlock members;
    std::size_t position = 0;
    for (std::size_t i = 0; i < memberCount; ++i)
    {
        const std::size_t size = Read16(records, position);
        if (Read32(offsets, TableEntry * i) != position)
            throw TypeLibraryError("the member records of a type do not follow each other");
        const ByteView record = Slice(records, position, size);
        members.push_back({Bytes(record.begin(), record.end()), Read32(ids, TableEntry * i),
                           Read32(names, TableEntry * i)});
        position += size;
    }
    if (position != recordsSize)
        throw TypeLibraryError("the member records of a type do not fill their block");
    return members;
}

void AppendMemberBlock(Bytes& bytes, const MemberBlock& members)
{
    if (members.empty())
        return;
    Bytes records, ids, names, offsets;
    for (const Member& member : members)
    {
        Append32(offsets, static_cast<std::uint32_t>(records.size()));
        Append(records, member.Record);
        Append32(ids, member.Id);
        Append32(names, member.NameOffset);
    }
    Append32(bytes, static_cast<std::uint32_t>(records.size()));
    for (const Bytes* part : {&records, &ids, &names, &offsets})
        Append(bytes, *part);
}
} // namespace kiv::typelib
