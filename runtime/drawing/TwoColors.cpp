#include "runtime/drawing/TwoColors.h"

#include "runtime/drawing/Color.h"
#include "runtime/drawing/Graphics.h"

#include <algorithm>
#include <vector>

namespace kiv
{

namespace
{

// Owner of an icon.
class Icon
{
public:
    explicit Icon(HICON icon) : icon_(icon) {}
    Icon(const Icon&) = delete;
    Icon& operator=(const Icon&) = delete;
    ~Icon()
    {
        if (icon_)
            DestroyIcon(icon_);
    }

    HICON Get() const { return icon_; }

private:
    HICON icon_;
};

// Pixels as a bitmap of 32 bits has them, row by row from the top.
using Pixels = std::vector<DWORD>;

constexpr DWORD White = 0x00FFFFFF;
constexpr DWORD Black = 0x00000000;

DWORD PixelOf(COLORREF color)
{
    return RGB(GetBValue(color), GetGValue(color), GetRValue(color));
}

BITMAPINFO FormOf(SIZE size)
{
    BITMAPINFO form = {};
    form.bmiHeader.biSize = sizeof form.bmiHeader;
    form.bmiHeader.biWidth = size.cx;
    form.bmiHeader.biHeight = -size.cy;
    form.bmiHeader.biPlanes = 1;
    form.bmiHeader.biBitCount = 32;
    return form;
}

SIZE SizeOf(HBITMAP bitmap)
{
    BITMAP header = {};
    return bitmap && GetObjectA(bitmap, sizeof header, &header) != 0 ? SIZE{header.bmWidth, header.bmHeight}
                                                                     : SIZE{};
}

// Empty when they cannot be had.
Pixels PixelsOf(HBITMAP bitmap, SIZE size)
{
    Pixels pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    BITMAPINFO form = FormOf(size);
    if (GetDIBits(MeasuringDc(), bitmap, 0, static_cast<UINT>(size.cy), pixels.data(), &form,
                  DIB_RGB_COLORS) == 0)
        pixels.clear();
    return pixels;
}

GdiObject<HBITMAP> BitmapOf(const Pixels& pixels, SIZE size)
{
    const BITMAPINFO form = FormOf(size);
    void* bits = nullptr;
    GdiObject<HBITMAP> bitmap(CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap)
        std::ranges::copy(pixels, static_cast<DWORD*>(bits));
    return bitmap;
}

// Null when it cannot be made.
HICON InTwoColors(HICON icon, const TwoColors& colors)
{
    ICONINFO parts = {};
    if (!GetIconInfo(icon, &parts))
        return nullptr;
    const GdiObject<HBITMAP> mask(parts.hbmMask);
    const GdiObject<HBITMAP> picture(parts.hbmColor);
    const GdiObject<HBITMAP> recolored = InTwoColors(picture.Get(), mask.Get(), colors);
    parts.hbmColor = recolored.Get();
    return recolored ? CreateIconIndirect(&parts) : nullptr;
}

} // namespace

GdiObject<HBITMAP> InTwoColors(HBITMAP picture, HBITMAP mask, const TwoColors& colors)
{
    const SIZE size = SizeOf(picture);
    const SIZE maskSize = SizeOf(mask);
    if (size.cx <= 0 || size.cy <= 0 || maskSize.cx != size.cx || maskSize.cy != size.cy)
        return {};
    Pixels pixels = PixelsOf(picture, size);
    const Pixels left = PixelsOf(mask, size);
    if (pixels.empty() || left.empty())
        return {};
    const DWORD ink = PixelOf(colors.Ink);
    const DWORD ground = PixelOf(colors.Ground);
    std::ranges::transform(pixels, left, pixels.begin(), [=](DWORD pixel, DWORD masked) {
        return (masked & White) == White ? Black : (pixel & White) == White ? ground : ink;
    });
    return BitmapOf(pixels, size);
}

void DrawSign(HDC dc, POINT place, HICON icon, const TwoColors& inHighContrast)
{
    const Icon recolored(InHighContrast() ? InTwoColors(icon, inHighContrast) : nullptr);
    DrawIconEx(dc, place.x, place.y, recolored.Get() ? recolored.Get() : icon, 0, 0, 0, nullptr,
               DI_NORMAL | DI_NOMIRROR);
}

} // namespace kiv
