#include "runtime/core/PropertyStream.h"

#include <algorithm>
#include <cstdlib>

namespace
{

// A stream is either refused as damaged or read whole; what was read encodes to the bytes it came from.
void Check(std::span<const std::uint8_t> bytes)
{
    try
    {
        const kiv::PropertyStream stream = kiv::DecodePropertyStream(bytes);
        if (!std::ranges::equal(kiv::EncodePropertyStream(stream), bytes))
            std::abort();
    }
    catch (const kiv::DamagedStream&)
    {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> bytes(data, data + size);
    Check(bytes);
    if (bytes.size() < kiv::PropertyStreamHeaderSize)
        return 0;
    // No random input meets a checksum: give it the right one and the right size, so that the body is read.
    const std::size_t bodySize = bytes.size() - kiv::PropertyStreamHeaderSize;
    for (std::size_t i = 0; i < 4; ++i)
        bytes[8 + i] = static_cast<std::uint8_t>(bodySize >> (8 * i));
    kiv::ResealPropertyStream(bytes);
    Check(bytes);
    return 0;
}
