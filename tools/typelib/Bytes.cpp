#include "tools/typelib/Bytes.h"

#include <string>

namespace kiv::typelib
{
ByteView Slice(ByteView bytes, std::size_t offset, std::size_t length)
{
    if (offset > bytes.size() || length > bytes.size() - offset)
    {
        throw TypeLibraryError("cut short: " + std::to_string(length) + " bytes at " +
                               std::to_string(offset) + " reach beyond " + std::to_string(bytes.size()));
    }
    return bytes.subspan(offset, length);
}

std::uint16_t Read16(ByteView bytes, std::size_t offset)
{
    const ByteView field = Slice(bytes, offset, 2);
    return static_cast<std::uint16_t>(field[0] | field[1] << 8);
}

std::uint32_t Read32(ByteView bytes, std::size_t offset)
{
    return Read16(bytes, offset) | static_cast<std::uint32_t>(Read16(bytes, offset + 2)) << 16;
}

void Write16(Bytes& bytes, std::size_t offset, std::uint16_t value)
{
    Slice(bytes, offset, 2);
    bytes[offset] = static_cast<std::uint8_t>(value);
    bytes[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}

void Write32(Bytes& bytes, std::size_t offset, std::uint32_t value)
{
    Write16(bytes, offset, static_cast<std::uint16_t>(value));
    Write16(bytes, offset + 2, static_cast<std::uint16_t>(value >> 16));
}

void Append32(Bytes& bytes, std::uint32_t value)
{
    bytes.resize(bytes.size() + 4);
    Write32(bytes, bytes.size() - 4, value);
}

void Append(Bytes& bytes, ByteView more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}
} // namespace kiv::typelib
