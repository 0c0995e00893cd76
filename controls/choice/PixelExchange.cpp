#include "controls/choice/PixelExchange.h"

#include <cstring>

namespace kiv
{

namespace
{

// memcpy, because a row need not begin where a number of that size may lie; it costs nothing.
template<class Number>
void ExchangeRow(std::uint8_t* row, std::size_t width, const PixelExchange& exchange)
{
    for (std::size_t x = 0; x < width; ++x)
    {
        Number pixel;
        std::memcpy(&pixel, row + x * sizeof pixel, sizeof pixel);
        pixel = static_cast<Number>(exchange(pixel));
        std::memcpy(row + x * sizeof pixel, &pixel, sizeof pixel);
    }
}

void ExchangeRow24(std::uint8_t* row, std::size_t width, const PixelExchange& exchange)
{
    for (std::uint8_t* at = row; at != row + 3 * width; at += 3)
    {
        const std::uint32_t pixel = at[0] | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16;
        const std::uint32_t exchanged = exchange(pixel);
        at[0] = static_cast<std::uint8_t>(exchanged);
        at[1] = static_cast<std::uint8_t>(exchanged >> 8);
        at[2] = static_cast<std::uint8_t>(exchanged >> 16);
    }
}

} // namespace

void Exchange(const PixelRows& rows, const PixelExchange& exchange)
{
    // A row that is cut short at the end is left alone.
    for (std::size_t start = 0;
         start + rows.Width * rows.BitsPerPixel / 8 <= rows.Bytes.size() && rows.RowBytes != 0;
         start += rows.RowBytes)
    {
        std::uint8_t* const row = rows.Bytes.data() + start;
        if (rows.BitsPerPixel == 16)
            ExchangeRow<std::uint16_t>(row, rows.Width, exchange);
        else if (rows.BitsPerPixel == 24)
            ExchangeRow24(row, rows.Width, exchange);
        else if (rows.BitsPerPixel == 32)
            ExchangeRow<std::uint32_t>(row, rows.Width, exchange);
    }
}

} // namespace kiv
