#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

namespace kiv::typelib
{
using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// A type library or a file of names that is not what this tool understands; says what and where.
class TypeLibraryError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Every read and write of the file goes through these: little-endian, and an error outside the bytes.
ByteView Slice(ByteView bytes, std::size_t offset, std::size_t length);
std::uint16_t Read16(ByteView bytes, std::size_t offset);
std::uint32_t Read32(ByteView bytes, std::size_t offset);
void Write16(Bytes& bytes, std::size_t offset, std::uint16_t value);
void Write32(Bytes& bytes, std::size_t offset, std::uint32_t value);
void Append32(Bytes& bytes, std::uint32_t value);
void Append(Bytes& bytes, ByteView more);

// Stands for "none" wherever the format has an offset.
constexpr std::uint32_t NoOffset = 0xFFFFFFFF;

constexpr std::size_t RoundUpTo4(std::size_t size)
{
    return (size + 3) / 4 * 4;
}
} // namespace kiv::typelib
