#include "controls/choice/Recolor.h"

#include "controls/choice/PixelExchange.h"
#include "runtime/com/Errors.h"

#include <bit>
#include <optional>
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
    // source: a device context with a bitmap of the format.
    explicit Probe(HDC source) : dc_(nullptr), bitmap_(CreateCompatibleBitmap(source, 1, 1)) {}

    // The bits of the pixel after a colour has been drawn over others. No bitmap reads as zero.
    std::uint32_t Draw(COLORREF color, std::uint32_t over)
    {
        Bits(over);
        const Selection selected(dc_.Get(), bitmap_.Get());
        SetPixel(dc_.Get(), 0, 0, color);
        GdiFlush();
        return Bits();
    }
    // Whether the colour comes out exactly as it went in.
    bool Holds(COLORREF color)
    {
        const Selection selected(dc_.Get(), bitmap_.Get());
        SetPixel(dc_.Get(), 0, 0, color);
        return GetPixel(dc_.Get(), 0, 0) == color;
    }

private:
    void Bits(std::uint32_t bits) { SetBitmapBits(bitmap_.Get(), RowBytes(), &bits); }
    std::uint32_t Bits() const
    {
        std::uint32_t bits = 0;
        GetBitmapBits(bitmap_.Get(), RowBytes(), &bits);
        BITMAP header = {};
        GetObjectA(bitmap_.Get(), sizeof header, &header);
        return header.bmBitsPixel < 32 ? bits & ((1U << header.bmBitsPixel) - 1) : bits;
    }
    LONG RowBytes() const
    {
        BITMAP header = {};
        GetObjectA(bitmap_.Get(), sizeof header, &header);
        return (header.bmBitsPixel + 15) / 16 * 2;
    }

    MemoryDc dc_;
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
std::optional<PixelExchange> ExchangeFor(HDC source, const BITMAP& header, HBITMAP bitmap, COLORREF mask,
                                         COLORREF replace)
{
    if (!CanExchange(header.bmBitsPixel) || header.bmPlanes != 1 || !HoldsNoMoreThanEightBitsEach(bitmap))
        return std::nullopt;
    Probe probe(source);
    constexpr std::uint32_t none = 0;
    constexpr std::uint32_t all = ~none;
    PixelExchange exchange;
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

// The target holds a copy of the source, so each pixel can be exchanged where it is.
bool ExchangeRows(HBITMAP target, const BITMAP& header, const PixelExchange& exchange)
{
    // As GetBitmapBits lays them out: rows of whole words.
    const auto width = static_cast<std::size_t>(header.bmWidth);
    const std::size_t rowBytes = (width * header.bmBitsPixel + 15) / 16 * 2;
    std::vector<std::uint8_t> bits(rowBytes * static_cast<std::size_t>(header.bmHeight));
    const auto size = static_cast<LONG>(bits.size());
    GdiFlush();
    if (GetBitmapBits(target, size, bits.data()) != size)
        return false;
    Exchange({bits, rowBytes, width, header.bmBitsPixel}, exchange);
    return SetBitmapBits(target, static_cast<DWORD>(size), bits.data()) == size;
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
    {
        const MemoryDc targetDc(nullptr);
        const Selection selectedTarget(targetDc.Get(), target.Get());
        BitBlt(targetDc.Get(), 0, 0, header.bmWidth, header.bmHeight, sourceDc.Get(), 0, 0, SRCCOPY);
    }
    const std::optional<PixelExchange> exchange =
        ExchangeFor(sourceDc.Get(), header, target.Get(), mask, replace);
    if (!exchange || !ExchangeRows(target.Get(), header, *exchange))
    {
        const MemoryDc targetDc(nullptr);
        const Selection selectedTarget(targetDc.Get(), target.Get());
        ExchangePixels(sourceDc.Get(), targetDc.Get(), {header.bmWidth, header.bmHeight}, mask, replace);
    }
    return target;
}

} // namespace kiv
