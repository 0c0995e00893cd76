#include "tools/typelib/Bytes.h"

#include <string>

namespace kiv::typelib
{
ByteView slice(ByteView bytes, std::size_t offset, std::size_t length)
{
    if (offset > bytes.size() || length > bytes.size() - offset)
    {
        throw TypeLibraryError("cut short: " + std::to_string(length) + " bytes at " +
                               std::to_string(offset) + " reach beyond " + std::to_string(bytes.size()));
    }
    return bytes.subspan(offset, length);
}

std::uint16_t read16(ByteView bytes, std::size_t offset)
{
    const ByteView field = slice(bytes, offset, 2);
    return static_cast<std::uint16_t>(field[0] | field[1] << 8);
}

std::uint32_t read32(ByteView bytes, std::size_t offset)
{
    return read16(bytes, offset) | static_cast<std::uint32_t>(read16(bytes, offset + 2)) << 16;
}

void write16(Bytes& bytes, std::size_t offset, std::uint16_t value)
{
    slice(bytes, offset, 2);
    bytes[offset] = static_cast<std::uint8_t>(value);
    bytes[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}

void write32(Bytes& bytes, std::size_t offset, std::uint32_t value)
{
    write16(bytes, offset, static_cast<std::uint16_t>(value));
    write16(bytes, offset + 2, static_cast<std::uint16_t>(value >> 16));
}

void append32(Bytes& bytes, std::uint32_t value)
{
    bytes.resize(bytes.size() + 4);
    write32(bytes, bytes.size() - 4, value);
}

void append(Bytes& bytes, ByteView more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}
} // namespace kiv::typelib
