#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace kiv
{

// One property as a control's stream holds it: its name (ASCII), an automation type number and the bytes of
// the value in that type's own layout.
struct StoredProperty
{
    std::string Name;
    std::uint16_t Type = 0;
    std::vector<std::uint8_t> Value;

    bool operator==(const StoredProperty&) const = default;
};

// What a control writes to IPersistStreamInit and IPersistStorage.
struct PropertyStream
{
    std::int32_t WidthHimetric = 0;
    std::int32_t HeightHimetric = 0;
    std::vector<StoredProperty> Properties;

    bool operator==(const PropertyStream&) const = default;
};

struct DamagedStream : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Size in bytes of the fixed part in front, which says how many bytes follow it.
constexpr std::size_t PropertyStreamHeaderSize = 16;

// Layout, little-endian: "KIVS", version (32 bits), size of the body, CRC-32 of the body; the body holds
// width and height (HIMETRIC), the count of properties, and for each the name's length (16 bits) and bytes,
// the type (16 bits), the value's size (32 bits) and bytes. Throws std::length_error when a name or the whole
// does not fit its length field.
std::vector<std::uint8_t> EncodePropertyStream(const PropertyStream& stream);

// Size of the body as the header says; throws DamagedStream when it is no header of a known version.
std::uint32_t PropertyStreamBodySize(std::span<const std::uint8_t, PropertyStreamHeaderSize> header);

// Throws DamagedStream for bytes that are not exactly one whole, unharmed stream.
PropertyStream DecodePropertyStream(std::span<const std::uint8_t> bytes);

// Replaces the checksum in the header by the right one for the body: for tests that damage a stream on
// purpose behind its checksum's back. The span must hold at least a header.
void ResealPropertyStream(std::span<std::uint8_t> bytes);

} // namespace kiv
