#include "controls/choice/Recolor.h"

#include "controls/choice/PixelExchange.h"
#include "runtime/com/Errors.h"

#include <bit>
#include <optional>
#include <span>
#include <vector>

namespace kiv
{

namespace
{

constexpr LONG LongestSide = 32768;

// Pixel after pixel: right for every format, and slow.
void ExchangePixels(HDC source, HDC target, SIZE size, COLORREF mask, COLORREF replace)
{
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            if (GetPixel(source, x, y) == mask)
                SetPixel(target, x, y, replace);
}

// A bitmap of a single pixel in the format of another, to see what a colour becomes there: the system is
// asked instead of its rounding being imitated.
class Probe
{
public:
    // source: a device context with a bitmap of the format; free: one with none of its own, for as long as
    // this lives.
    Probe(HDC source, HDC free) : dc_(free), bitmap_(CreateCompatibleBitmap(source, 1, 1)) {}

    // The bits of the pixel after a colour has been drawn over others. No bitmap reads as zero.
    std::uint32_t Draw(COLORREF color, std::uint32_t over)
    {
        Bits(over);
        const Selection selected(dc_, bitmap_.Get());
        SetPixel(dc_, 0, 0, color);
        GdiFlush();
        return Bits();
    }
    // Whether the colour comes out exactly as it went in.
    bool Holds(COLORREF color)
    {
        const Selection selected(dc_, bitmap_.Get());
        SetPixel(dc_, 0, 0, color);
        return GetPixel(dc_, 0, 0) == color;
    }

private:
    void Bits(std::uint32_t bits) { SetBitmapBits(bitmap_.Get(), RowBytes(), &bits); }
    std::uint32_t Bits() const
    {
        std::uint32_t bits = 0;
        GetBitmapBits(bitmap_.Get(), static_cast<LONG>(RowBytes()), &bits);
        BITMAP header = {};
        GetObjectA(bitmap_.Get(), sizeof header, &header);
        return header.bmBitsPixel < 32 ? bits & ((1U << header.bmBitsPixel) - 1) : bits;
    }
    DWORD RowBytes() const
    {
        BITMAP header = {};
        GetObjectA(bitmap_.Get(), sizeof header, &header);
        return (DWORD{header.bmBitsPixel} + 15) / 16 * 2;
    }

    HDC dc_;
    GdiObject<HBITMAP> bitmap_;
};

// Whether no two pixels that differ in their colour's bits look the same to GetPixel.
bool HoldsNoMoreThanEightBitsEach(HBITMAP bitmap)
{
    DIBSECTION section = {};
    if (GetObjectA(bitmap, sizeof section, &section) != sizeof section)
        return true; // a device's own bitmap
    if (section.dsBmih.biCompression != BI_BITFIELDS)
        return section.dsBmih.biCompression == BI_RGB;
    for (const DWORD bits : section.dsBitfields)
        if (std::popcount(bits) > 8)
            return false;
    return true;
}

// Nothing when pixels of the format can only be exchanged one by one.
std::optional<PixelExchange> ExchangeFor(HDC source, HDC free, const BITMAP& header, HBITMAP bitmap,
                                         COLORREF mask, COLORREF replace)
{
    if (!HoldsColors(header.bmBitsPixel) || header.bmPlanes != 1 || !HoldsNoMoreThanEightBitsEach(bitmap))
        return std::nullopt;
    Probe probe(source, free);
    constexpr std::uint32_t none = 0;
    constexpr std::uint32_t all = ~none;
    PixelExchange exchange = {};
    exchange.ColorBits = probe.Draw(RGB(255, 255, 255), none) ^ probe.Draw(RGB(0, 0, 0), none);
    if (exchange.ColorBits == 0)
        return std::nullopt;
    if (!probe.Holds(mask))
    {
        // No pixel of the format has the colour.
        exchange.Wanted = ~exchange.ColorBits;
        return exchange;
    }
    exchange.Wanted = probe.Draw(mask, none) & exchange.ColorBits;
    exchange.Written = probe.Draw(replace, none);
    exchange.KeptBits = exchange.Written ^ probe.Draw(replace, all);
    exchange.Written &= ~exchange.KeptBits;
    return exchange;
}

// What becomes of each entry of a palette: the exchange by definition, once for each. free: a device context
// with no bitmap of its own.
EntryExchange EntriesFor(HDC source, HDC free, std::size_t bitsPerPixel, COLORREF mask, COLORREF replace)
{
    std::vector<std::uint8_t> entries = EntryExchange::EveryEntry(bitsPerPixel);
    const auto size = static_cast<LONG>(entries.size());
    const SIZE row = {LONG{1} << bitsPerPixel, 1};
    const GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(source, row.cx, row.cy));
    SetBitmapBits(bitmap.Get(), static_cast<DWORD>(size), entries.data());
    {
        const Selection selected(free, bitmap.Get());
        ExchangePixels(free, free, row, mask, replace);
    }
    GdiFlush();
    GetBitmapBits(bitmap.Get(), size, entries.data());
    return EntryExchange(bitsPerPixel, entries);
}

// The target holds a copy of the source, so each pixel can be exchanged where it is.
template<class SomeExchange>
bool ExchangeRows(HBITMAP target, const SomeExchange& exchange)
{
    DIBSECTION section = {};
    const int known = GetObjectA(target, sizeof section, &section);
    const BITMAP& header = section.dsBm;
    const auto width = static_cast<std::size_t>(header.bmWidth);
    const auto height = static_cast<std::size_t>(header.bmHeight);
    GdiFlush();
    if (known == sizeof section)
    {
        const auto rowBytes = static_cast<std::size_t>(header.bmWidthBytes);
        const std::span bits(static_cast<std::uint8_t*>(header.bmBits), rowBytes * height);
        Exchange({bits, rowBytes, width, header.bmBitsPixel}, exchange);
        return true;
    }
    // As GetBitmapBits lays them out: rows of whole words.
    const std::size_t rowBytes = (width * header.bmBitsPixel + 15) / 16 * 2;
    std::vector<std::uint8_t> bits(rowBytes * height);
    const auto size = static_cast<LONG>(bits.size());
    if (GetBitmapBits(target, size, bits.data()) != size)
        return false;
    Exchange({bits, rowBytes, width, header.bmBitsPixel}, exchange);
    return SetBitmapBits(target, static_cast<DWORD>(size), bits.data()) == size;
}

// Whether it could be done. False when pixels of the format can only be exchanged one by one.
bool ExchangeRows(HDC source, HDC free, const BITMAP& header, HBITMAP target, COLORREF mask, COLORREF replace)
{
    if (header.bmPlanes == 1 && HoldsEntries(header.bmBitsPixel))
        return ExchangeRows(target, EntriesFor(source, free, header.bmBitsPixel, mask, replace));
    const std::optional<PixelExchange> exchange = ExchangeFor(source, free, header, target, mask, replace);
    return exchange && ExchangeRows(target, *exchange);
}

} // namespace

bool Holds(HDC dc, HBITMAP bitmap)
{
    return HandleToLong(GetCurrentObject(dc, OBJ_BITMAP)) == HandleToLong(bitmap);
}

GdiObject<HBITMAP> Recolored(HBITMAP source, COLORREF mask, COLORREF replace)
{
    BITMAP header = {};
    if (GetObjectA(source, sizeof header, &header) == 0)
        return {};
    if (header.bmWidth > LongestSide || header.bmHeight > LongestSide)
        throw ComError(Overflow);

    const MemoryDc sourceDc(nullptr);
    const Selection selectedSource(sourceDc.Get(), source);
    // Somebody else may be drawing with it.
    if (!Holds(sourceDc.Get(), source))
        return {};
    GdiObject<HBITMAP> target(CreateCompatibleBitmap(sourceDc.Get(), header.bmWidth, header.bmHeight));
    if (!target)
        throw ComError(E_OUTOFMEMORY);
    const MemoryDc targetDc(nullptr);
    {
        const Selection selectedTarget(targetDc.Get(), target.Get());
        BitBlt(targetDc.Get(), 0, 0, header.bmWidth, header.bmHeight, sourceDc.Get(), 0, 0, SRCCOPY);
    }
    if (!ExchangeRows(sourceDc.Get(), targetDc.Get(), header, target.Get(), mask, replace))
    {
        const Selection selectedTarget(targetDc.Get(), target.Get());
        ExchangePixels(sourceDc.Get(), targetDc.Get(), {header.bmWidth, header.bmHeight}, mask, replace);
    }
    return target;
}

} // namespace kiv
