#include "tests/support/Pixels.h"

#include "runtime/com/Errors.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace kiv::test
{

namespace
{

constexpr int BitsPerPixel = 32;

// A device-independent bitmap has blue in its lowest byte, a COLORREF red.
COLORREF FromBits(DWORD bits)
{
    return RGB((bits >> 16) & 0xFF, (bits >> 8) & 0xFF, bits & 0xFF);
}

} // namespace

Pixels::Pixels(SIZE size) : size_(size), colors_(static_cast<std::size_t>(size.cx * size.cy)) {}

int Pixels::Count(COLORREF color) const
{
    return static_cast<int>(std::ranges::count(colors_, color));
}

bool Pixels::operator==(const Pixels& other) const
{
    return size_.cx == other.size_.cx && size_.cy == other.size_.cy && colors_ == other.colors_;
}

Pixels PixelsOfWindow(HWND window)
{
    RECT inner = {};
    if (!GetClientRect(window, &inner))
        ThrowLastError();
    const Canvas canvas({inner.right, inner.bottom});
    const HDC dc = GetDC(window);
    // From left to right, also where the window counts from the right.
    SetLayout(dc, 0);
    BitBlt(canvas.Dc(), 0, 0, inner.right, inner.bottom, dc, 0, 0, SRCCOPY);
    ReleaseDC(window, dc);
    return canvas.Content();
}

Pixels PixelsOfWholeWindow(HWND window)
{
    RECT outer = {};
    if (!GetWindowRect(window, &outer))
        ThrowLastError();
    const SIZE size = {outer.right - outer.left, outer.bottom - outer.top};
    const Canvas canvas(size);
    const HDC dc = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    BitBlt(canvas.Dc(), 0, 0, size.cx, size.cy, dc, 0, 0, SRCCOPY);
    ReleaseDC(window, dc);
    return canvas.Content();
}

Pixels Cut(const Pixels& picture, const RECT& place)
{
    Pixels part({place.right - place.left, place.bottom - place.top});
    for (int y = 0; y < part.Size().cy; ++y)
        for (int x = 0; x < part.Size().cx; ++x)
            part.Set(x, y, picture.At(place.left + x, place.top + y));
    return part;
}

std::string Difference(const Pixels& expected, const Pixels& actual)
{
    if (expected == actual)
        return {};
    std::ostringstream text;
    const SIZE size = expected.Size();
    if (size.cx != actual.Size().cx || size.cy != actual.Size().cy)
    {
        text << size.cx << " by " << size.cy << " pixels expected, there are " << actual.Size().cx << " by "
             << actual.Size().cy;
        return text.str();
    }
    int count = 0;
    RECT where = {size.cx, size.cy, 0, 0};
    std::ostringstream map;
    for (int y = 0; y < size.cy; ++y)
    {
        for (int x = 0; x < size.cx; ++x)
        {
            const bool same = expected.At(x, y) == actual.At(x, y);
            map << (same ? '.' : 'X');
            if (same)
                continue;
            if (++count == 1)
                text << std::hex << "first (" << std::dec << x << ", " << y << "): " << std::hex
                     << expected.At(x, y) << " expected, there is " << actual.At(x, y) << std::dec << "; ";
            where = {std::min<LONG>(where.left, x), std::min<LONG>(where.top, y),
                     std::max<LONG>(where.right, x), std::max<LONG>(where.bottom, y)};
        }
        map << '\n';
    }
    text << count << " pixels differ within (" << where.left << ", " << where.top << ") to (" << where.right
         << ", " << where.bottom << ")\n"
         << map.str();
    return text.str();
}

Canvas::Canvas(SIZE size) : size_(size), dc_(CreateCompatibleDC(nullptr))
{
    BITMAPINFO description = {};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = std::max<LONG>(size.cx, 1);
    description.bmiHeader.biHeight = -std::max<LONG>(size.cy, 1); // top row first
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = BitsPerPixel;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(dc_, &description, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap_)
        ThrowLastError();
    bits_ = static_cast<const DWORD*>(bits);
    former_ = SelectObject(dc_, bitmap_);
}

Canvas::~Canvas()
{
    SelectObject(dc_, former_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

Pixels Canvas::Content() const
{
    GdiFlush();
    Pixels content(size_);
    for (int y = 0; y < size_.cy; ++y)
    {
        for (int x = 0; x < size_.cx; ++x)
            content.Set(x, y, FromBits(bits_[y * size_.cx + x]));
    }
    return content;
}

} // namespace kiv::test
