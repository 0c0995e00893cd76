#include "runtime/core/PropertyStream.h"

#include <algorithm>
#include <array>
#include <limits>

namespace kiv
{

namespace
{

constexpr std::array<std::uint8_t, 4> Signature = {'K', 'I', 'V', 'S'};
constexpr std::uint32_t Version = 1;
// A form's control holds a few fonts and pictures; what claims more is no stream of ours.
constexpr std::uint32_t LargestBody = 64U * 1024 * 1024;
constexpr std::size_t ChecksumOffset = 12;

std::uint32_t Crc32(std::span<const std::uint8_t> bytes)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const std::uint8_t byte : bytes)
    {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

class Writer
{
public:
    void Number(std::uint32_t number, int size)
    {
        for (int i = 0; i < size; ++i)
            bytes_.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }

    template<class Range>
    void Bytes(const Range& range)
    {
        bytes_.insert(bytes_.end(), range.begin(), range.end());
    }

    std::vector<std::uint8_t> Take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

class Reader
{
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    std::span<const std::uint8_t> Bytes(std::size_t count)
    {
        if (count > rest_.size())
            throw DamagedStream("the stream ends early");
        const auto taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

    std::uint32_t Number(std::size_t size)
    {
        std::uint32_t number = 0;
        int shift = 0;
        for (const std::uint8_t byte : Bytes(size))
        {
            number |= static_cast<std::uint32_t>(byte) << shift;
            shift += 8;
        }
        return number;
    }

    std::size_t Left() const { return rest_.size(); }

private:
    std::span<const std::uint8_t> rest_;
};

std::uint32_t CheckedSize(std::size_t size, std::size_t largest)
{
    if (size > largest)
        throw std::length_error("a property is too long for a stream");
    return static_cast<std::uint32_t>(size);
}

std::vector<std::uint8_t> EncodeBody(const PropertyStream& stream)
{
    Writer body;
    body.Number(static_cast<std::uint32_t>(stream.WidthHimetric), 4);
    body.Number(static_cast<std::uint32_t>(stream.HeightHimetric), 4);
    body.Number(CheckedSize(stream.Properties.size(), LargestBody), 4);
    for (const StoredProperty& property : stream.Properties)
    {
        body.Number(CheckedSize(property.Name.size(), std::numeric_limits<std::uint16_t>::max()), 2);
        body.Bytes(property.Name);
        body.Number(property.Type, 2);
        body.Number(CheckedSize(property.Value.size(), LargestBody), 4);
        body.Bytes(property.Value);
    }
    return body.Take();
}

StoredProperty DecodeProperty(Reader& body)
{
    StoredProperty property;
    const auto name = body.Bytes(body.Number(2));
    property.Name.assign(name.begin(), name.end());
    property.Type = static_cast<std::uint16_t>(body.Number(2));
    const auto value = body.Bytes(body.Number(4));
    property.Value.assign(value.begin(), value.end());
    return property;
}

} // namespace

std::vector<std::uint8_t> EncodePropertyStream(const PropertyStream& stream)
{
    const std::vector<std::uint8_t> body = EncodeBody(stream);
    Writer whole;
    whole.Bytes(Signature);
    whole.Number(Version, 4);
    whole.Number(CheckedSize(body.size(), LargestBody), 4);
    whole.Number(Crc32(body), 4);
    whole.Bytes(body);
    return whole.Take();
}

std::uint32_t PropertyStreamBodySize(std::span<const std::uint8_t, PropertyStreamHeaderSize> header)
{
    Reader reader(header);
    if (!std::ranges::equal(reader.Bytes(Signature.size()), Signature))
        throw DamagedStream("the stream has another signature");
    if (reader.Number(4) != Version)
        throw DamagedStream("the stream has an unknown version");
    const std::uint32_t size = reader.Number(4);
    if (size > LargestBody)
        throw DamagedStream("the stream claims an impossible size");
    return size;
}

PropertyStream DecodePropertyStream(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < PropertyStreamHeaderSize)
        throw DamagedStream("the stream ends early");
    const std::uint32_t bodySize = PropertyStreamBodySize(bytes.first<PropertyStreamHeaderSize>());
    const auto bodyBytes = bytes.subspan(PropertyStreamHeaderSize);
    if (bodyBytes.size() != bodySize)
        throw DamagedStream("the stream has another size than it says");
    if (Reader(bytes.subspan(ChecksumOffset)).Number(4) != Crc32(bodyBytes))
        throw DamagedStream("the stream's checksum is wrong");

    Reader body(bodyBytes);
    PropertyStream stream;
    stream.WidthHimetric = static_cast<std::int32_t>(body.Number(4));
    stream.HeightHimetric = static_cast<std::int32_t>(body.Number(4));
    const std::uint32_t count = body.Number(4);
    for (std::uint32_t i = 0; i < count; ++i)
        stream.Properties.push_back(DecodeProperty(body));
    if (body.Left() != 0)
        throw DamagedStream("the stream goes on behind its last property");
    return stream;
}

void ResealPropertyStream(std::span<std::uint8_t> bytes)
{
    const std::uint32_t crc = Crc32(bytes.subspan(PropertyStreamHeaderSize));
    for (std::size_t i = 0; i < 4; ++i)
        bytes[ChecksumOffset + i] = static_cast<std::uint8_t>(crc >> (8 * i));
}

} // namespace kiv
