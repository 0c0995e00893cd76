#include "tools/typelib/MemberBlock.h"

namespace kiv::typelib
{
namespace
{
constexpr std::size_t sizeField = 4;
constexpr std::size_t tableEntry = 4;
} // namespace

std::size_t memberBlockSize(ByteView bytes, std::size_t memberCount)
{
    return memberCount == 0 ? 0 : sizeField + read32(bytes, 0) + 3 * tableEntry * memberCount;
}

MemberBlock readMemberBlock(ByteView block, std::size_t memberCount)
{
    if (memberCount == 0)
        return {};
    const std::size_t recordsSize = read32(block, 0);
    const ByteView records = slice(block, sizeField, recordsSize);
    const ByteView ids = slice(block, sizeField + recordsSize, tableEntry * memberCount);
    const ByteView names = slice(block, sizeField + recordsSize + ids.size(), ids.size());
    const ByteView offsets = slice(block, sizeField + recordsSize + 2 * ids.size(), ids.size());

    MemberBlock members;
    std::size_t position = 0;
    for (std::size_t i = 0; i < memberCount; ++i)
    {
        const std::size_t size = read16(records, position);
        if (read32(offsets, tableEntry * i) != position)
            throw TypeLibraryError("the member records of a type do not follow each other");
        const ByteView record = slice(records, position, size);
        members.push_back({Bytes(record.begin(), record.end()), read32(ids, tableEntry * i),
                           read32(names, tableEntry * i)});
        position += size;
    }
    if (position != recordsSize)
        throw TypeLibraryError("the member records of a type do not fill their block");
    return members;
}

void appendMemberBlock(Bytes& bytes, const MemberBlock& members)
{
    if (members.empty())
        return;
    Bytes records, ids, names, offsets;
    for (const Member& member : members)
    {
        append32(offsets, static_cast<std::uint32_t>(records.size()));
        append(records, member.record);
        append32(ids, member.id);
        append32(names, member.nameOffset);
    }
    append32(bytes, static_cast<std::uint32_t>(records.size()));
    for (const Bytes* part : {&records, &ids, &names, &offsets})
        append(bytes, *part);
}
} // namespace kiv::typelib
