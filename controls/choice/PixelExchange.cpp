#include "controls/choice/PixelExchange.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kiv
{

namespace
{

using Row = std::span<std::uint8_t>;

// As many as take less time than looking up every byte.
constexpr std::size_t MostSteps = 8;

// memcpy, because a row need not begin where a number of that size may lie; it costs nothing. The exchange
// comes as a copy, which writing to the row cannot change: so the compiler may take several pixels at once.
template<class Number>
void ExchangeRow(std::uint8_t* row, std::size_t width, PixelExchange exchange)
{
    const auto colorBits = static_cast<Number>(exchange.ColorBits);
    const auto wanted = static_cast<Number>(exchange.Wanted);
    const auto keptBits = static_cast<Number>(exchange.KeptBits);
    const auto written = static_cast<Number>(exchange.Written);
    for (std::size_t x = 0; x < width; ++x)
    {
        Number pixel;
        std::memcpy(&pixel, row + x * sizeof pixel, sizeof pixel);
        const auto exchanged = static_cast<Number>((pixel & keptBits) | written);
        pixel = static_cast<Number>(pixel & colorBits) == wanted ? exchanged : pixel;
        std::memcpy(row + x * sizeof pixel, &pixel, sizeof pixel);
    }
}

// The bytes of pixels of 24 bits, for as many as are handled at once.
constexpr std::size_t StripPixels = 256;
constexpr std::size_t StripBytes = 3 * StripPixels;
using Strip = std::array<std::uint8_t, StripBytes>;
using WiderStrip = std::array<std::uint8_t, StripBytes + 2>;

Strip Repeated(std::uint32_t pixel)
{
    Strip strip;
    for (std::size_t i = 0; i < strip.size(); ++i)
        strip[i] = static_cast<std::uint8_t>(pixel >> (8 * (i % 3)));
    return strip;
}

// No number of the processor's has 24 bits, so these go byte by byte: a pixel is exchanged where none of its
// three bytes differs. Each loop is one in which the compiler can take many bytes at once.
class Exchange24
{
public:
    explicit Exchange24(const PixelExchange& exchange) :
        colorBits_(Repeated(exchange.ColorBits)),
        wanted_(Repeated(exchange.Wanted)),
        keptBits_(Repeated(exchange.KeptBits)),
        written_(Repeated(exchange.Written)),
        firstOfPixel_(Repeated(0xFF))
    {
    }

    void OnRow(Row row)
    {
        while (!row.empty())
        {
            const std::size_t count = std::min(row.size(), StripBytes);
            Part(row.data(), count);
            row = row.subspan(count);
        }
    }

private:
    void Part(std::uint8_t* bytes, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            differs_[i] = static_cast<std::uint8_t>((bytes[i] & colorBits_[i]) ^ wanted_[i]);
        for (std::size_t i = 0; i < count; ++i)
        {
            const auto any = static_cast<std::uint8_t>(differs_[i] | differs_[i + 1] | differs_[i + 2]);
            const std::uint8_t first = firstOfPixel_[i];
            equals_[i + 2] = any == 0 ? first : std::uint8_t{0};
        }
        for (std::size_t i = 0; i < count; ++i)
        {
            const int exchanged = equals_[i] | equals_[i + 1] | equals_[i + 2];
            const int byte = bytes[i];
            bytes[i] = static_cast<std::uint8_t>((byte & ~exchanged) |
                                                 (((byte & keptBits_[i]) | written_[i]) & exchanged));
        }
    }

    const Strip colorBits_;
    const Strip wanted_;
    const Strip keptBits_;
    const Strip written_;
    const Strip firstOfPixel_; // all bits of each pixel's first byte
    // What differs in each byte; nothing in the two behind the last one.
    WiderStrip differs_ = {};
    // All bits of the first byte of each pixel that is exchanged, two places further on.
    WiderStrip equals_ = {};
};

void ExchangeBytes(std::span<std::uint8_t> bytes, const EntryExchange& exchange)
{
    if (!exchange.Steps())
    {
        std::ranges::transform(bytes, bytes.begin(), exchange);
        return;
    }
    for (const PixelExchange& step : *exchange.Steps())
    {
        if (step.ColorBits == 0)
            std::fill_n(bytes.data(), bytes.size(), static_cast<std::uint8_t>(step.Written));
        else
            ExchangeRow<std::uint8_t>(bytes.data(), bytes.size(), step);
    }
}

void ExchangeEntries(Row row, std::size_t bits, const EntryExchange& exchange)
{
    ExchangeBytes(row.first(bits / 8), exchange);
    if (bits % 8 == 0)
        return;
    std::uint8_t& rest = row[bits / 8];
    // The first pixel of a byte is in its highest bits; those after the last one stay as they are.
    const auto theirs = static_cast<std::uint8_t>(0xFF << (8 - bits % 8));
    rest = static_cast<std::uint8_t>((rest & ~theirs) | (exchange(rest) & theirs));
}

// A row that is cut short at the end is left alone.
template<class Each>
void ForEachRow(const PixelRows& rows, Each each)
{
    const std::size_t used = (rows.Width * rows.BitsPerPixel + 7) / 8;
    for (std::size_t start = 0; start + used <= rows.Bytes.size() && rows.RowBytes != 0;
         start += rows.RowBytes)
        each(rows.Bytes.subspan(start, used));
}

// For each pixel of a byte: how far up in it its bits are.
template<class Each>
void ForEachShift(std::size_t bitsPerPixel, Each each)
{
    for (std::size_t shift = 0; shift < 8; shift += bitsPerPixel)
        each(shift);
}

} // namespace

std::vector<std::uint8_t> EntryExchange::EveryEntry(std::size_t bitsPerPixel)
{
    std::vector<std::uint8_t> pixels(((std::size_t{1} << bitsPerPixel) * bitsPerPixel + 7) / 8);
    for (std::size_t entry = 0; entry < std::size_t{1} << bitsPerPixel; ++entry)
    {
        const std::size_t bit = entry * bitsPerPixel;
        pixels[bit / 8] |= static_cast<std::uint8_t>(entry << (8 - bitsPerPixel - bit % 8));
    }
    return pixels;
}

EntryExchange::EntryExchange(std::size_t bitsPerPixel, std::span<const std::uint8_t> exchanged)
{
    const std::size_t entries = std::size_t{1} << bitsPerPixel;
    std::vector<std::uint32_t> becomes(entries);
    for (std::size_t entry = 0; entry < entries; ++entry)
    {
        const std::size_t bit = entry * bitsPerPixel;
        becomes[entry] = exchanged[bit / 8] >> (8 - bitsPerPixel - bit % 8) & (entries - 1);
    }
    ForEachShift(bitsPerPixel, [&](std::size_t shift) {
        for (std::size_t value = 0; value < bytes_.size(); ++value)
            bytes_[value] |= static_cast<std::uint8_t>(becomes[value >> shift & (entries - 1)] << shift);
    });
    FindSteps(becomes, bitsPerPixel);
}

void EntryExchange::FindSteps(std::span<const std::uint32_t> becomes, std::size_t bitsPerPixel)
{
    std::vector<PixelExchange> steps;
    if (std::ranges::count(becomes, becomes.front()) == std::ssize(becomes))
    {
        // Whatever the byte's bits are.
        PixelExchange everyByte = {};
        everyByte.Written = bytes_.front();
        steps_ = {everyByte};
        return;
    }
    const auto entries = static_cast<std::uint32_t>(becomes.size());
    for (std::uint32_t entry = 0; entry < entries; ++entry)
    {
        const std::uint32_t other = becomes[entry];
        if (other == entry)
            continue;
        // A later step must not meet what an earlier one has written.
        if (becomes[other] != other)
            return;
        ForEachShift(bitsPerPixel, [&](std::size_t shift) {
            steps.push_back(
                {(entries - 1) << shift, entry << shift, ~((entries - 1) << shift), other << shift});
        });
    }
    if (steps.size() <= MostSteps)
        steps_ = std::move(steps);
}

void Exchange(const PixelRows& rows, const PixelExchange& exchange)
{
    // Wanted may have bits that no pixel has: for a colour that the format does not know.
    const std::uint32_t pixelBits = ~0U >> (32 - rows.BitsPerPixel);
    if ((exchange.Wanted & ~(exchange.ColorBits & pixelBits)) != 0)
        return;
    if (rows.BitsPerPixel == 16)
        ForEachRow(rows, [&](Row row) { ExchangeRow<std::uint16_t>(row.data(), rows.Width, exchange); });
    else if (rows.BitsPerPixel == 24)
        ForEachRow(rows, [byBytes = Exchange24(exchange)](Row row) mutable { byBytes.OnRow(row); });
    else if (rows.BitsPerPixel == 32)
        ForEachRow(rows, [&](Row row) { ExchangeRow<std::uint32_t>(row.data(), rows.Width, exchange); });
}

void Exchange(const PixelRows& rows, const EntryExchange& exchange)
{
    if (exchange.Steps() && exchange.Steps()->empty())
        return;
    ForEachRow(rows, [&](Row row) { ExchangeEntries(row, rows.Width * rows.BitsPerPixel, exchange); });
}

} // namespace kiv
