#pragma once

#include "tests/support/Drawing.h"

#include <ocidl.h>
#include <wrl/client.h>

#include <cstdint>
#include <iosfwd>
#include <random>
#include <vector>

namespace kiv::test
{

// How a bitmap holds its pixels.
struct BitmapFormat
{
    const char* Name;
    WORD BitsPerPixel;
    bool IsSection;       // a device-independent one, else the device's own
    bool TopDown = false; // sections only
    DWORD Masks[3] = {};  // red, green, blue; none for the usual ones
    DWORD Colors = 0;     // of the palette, which may be fewer than its pixels can name; 0 for all
};

std::ostream& operator<<(std::ostream& out, const BitmapFormat& format);

// Every format of bitmaps that a device context takes.
const std::vector<BitmapFormat>& BitmapFormats();

// A bitmap whose bits are random, with few different pixels, so that a colour occurs often.
GdiObject<HBITMAP> RandomBitmap(const BitmapFormat& format, SIZE size, std::mt19937& random);

// Picture objects. The bitmap's is theirs from then on.
Microsoft::WRL::ComPtr<IPictureDisp> PictureOf(GdiObject<HBITMAP> bitmap);
Microsoft::WRL::ComPtr<IPictureDisp> IconPicture();
Microsoft::WRL::ComPtr<IPictureDisp> MetafilePicture();
Microsoft::WRL::ComPtr<IPictureDisp> EnhancedMetafilePicture();
Microsoft::WRL::ComPtr<IPictureDisp> EmptyPicture();

// Null for no picture and for one that holds no bitmap.
HBITMAP BitmapIn(IPictureDisp* picture);

// Everything about a bitmap: size, format, colours of its table, and bits as they lie in it.
struct BitmapFacts
{
    LONG Width = 0;
    LONG Height = 0;
    WORD BitsPerPixel = 0;
    bool IsSection = false;
    std::vector<DWORD> Masks;
    std::vector<std::uint32_t> Table;
    std::vector<std::uint8_t> Bits;

    bool operator==(const BitmapFacts&) const = default;
};
BitmapFacts FactsOf(HBITMAP bitmap);
// "", or what differs.
std::string Difference(const BitmapFacts& expected, const BitmapFacts& actual);

// The exchange of colours as it is defined: pixel by pixel, on device contexts.
GdiObject<HBITMAP> ExchangedPixelByPixel(HBITMAP source, COLORREF mask, COLORREF replace);

// The colour of a pixel.
COLORREF ColorAt(HBITMAP bitmap, int x, int y);

} // namespace kiv::test
