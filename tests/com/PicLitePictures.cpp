#include "tests/com/PicLitePictures.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <ostream>
#include <sstream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A bitmap's description with room for what follows it.
struct Description
{
    BITMAPINFOHEADER Header = {};
    DWORD Colors[256] = {};
};

GdiObject<HBITMAP> NewSection(const BitmapFormat& format, SIZE size, std::mt19937& random)
{
    Description description;
    description.Header.biSize = sizeof description.Header;
    description.Header.biWidth = size.cx;
    description.Header.biHeight = format.TopDown ? -size.cy : size.cy;
    description.Header.biPlanes = 1;
    description.Header.biBitCount = format.BitsPerPixel;
    description.Header.biClrUsed = format.Colors;
    if (format.Masks[0] != 0)
    {
        description.Header.biCompression = BI_BITFIELDS;
        std::copy(std::begin(format.Masks), std::end(format.Masks), description.Colors);
    }
    else if (format.BitsPerPixel <= 8)
    {
        for (DWORD& color : description.Colors)
            color = random() & 0xFFFFFF;
    }
    void* bits = nullptr;
    return GdiObject<HBITMAP>(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&description),
                                               DIB_RGB_COLORS, &bits, nullptr, 0));
}

ComPtr<IPictureDisp> PictureOf(PICTDESC description)
{
    description.cbSizeofstruct = sizeof description;
    ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

LONG RowBytesOf(const BITMAP& header)
{
    return (header.bmWidth * header.bmBitsPixel + 15) / 16 * 2;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const BitmapFormat& format)
{
    return out << format.Name;
}

const std::vector<BitmapFormat>& BitmapFormats()
{
    static const std::vector<BitmapFormat> formats = {
        {"Section1", 1, true},
        {"Section4", 4, true},
        {"Section8", 8, true},
        {"Section8TopDown", 8, true, true},
        {"Section4FewColors", 4, true, false, {}, 5},
        {"Section8FewColors", 8, true, false, {}, 16},
        {"Section16", 16, true},
        {"Section16TopDown", 16, true, true},
        {"Section555", 16, true, false, {0x7C00, 0x03E0, 0x001F}},
        {"Section565", 16, true, false, {0xF800, 0x07E0, 0x001F}},
        {"Section565TopDown", 16, true, true, {0xF800, 0x07E0, 0x001F}},
        {"Section24", 24, true},
        {"Section24TopDown", 24, true, true},
        {"Section32", 32, true},
        {"Section32TopDown", 32, true, true},
        {"Section888", 32, true, false, {0xFF0000, 0x00FF00, 0x0000FF}},
        {"Section888Swapped", 32, true, false, {0x0000FF, 0x00FF00, 0xFF0000}},
        {"Section888HighBytes", 32, true, false, {0xFF000000, 0x00FF0000, 0x0000FF00}},
        {"Section101010", 32, true, false, {0x3FF00000, 0x000FFC00, 0x000003FF}},
        {"Device1", 1, false},
        {"Device32", 32, false},
    };
    return formats;
}

GdiObject<HBITMAP> RandomBitmap(const BitmapFormat& format, SIZE size, std::mt19937& random)
{
    GdiObject<HBITMAP> bitmap =
        format.IsSection
            ? NewSection(format, size, random)
            : GdiObject<HBITMAP>(CreateBitmap(size.cx, size.cy, 1, format.BitsPerPixel, nullptr));
    BITMAP header = {};
    if (!bitmap || GetObjectA(bitmap.Get(), sizeof header, &header) == 0)
        ThrowLastError();
    // Three pixels, each with different bits also where there is no colour.
    std::uint8_t choices[3][4];
    for (auto& choice : choices)
        for (std::uint8_t& byte : choice)
            byte = static_cast<std::uint8_t>(random());
    const std::size_t bytesPerPixel = std::max<std::size_t>(header.bmBitsPixel / 8, 1);
    std::vector<std::uint8_t> bits(static_cast<std::size_t>(RowBytesOf(header) * header.bmHeight));
    for (LONG y = 0; y < header.bmHeight; ++y)
    {
        std::uint8_t* const row = bits.data() + y * RowBytesOf(header);
        const std::size_t pixels =
            static_cast<std::size_t>(header.bmWidth * header.bmBitsPixel / 8) / bytesPerPixel;
        for (std::size_t x = 0; x < pixels; ++x)
        {
            const std::uint8_t* const choice = choices[random() % 3];
            std::copy(choice, choice + bytesPerPixel, row + x * bytesPerPixel);
            // The same colour with something else beside it.
            if (bytesPerPixel == 4 && random() % 4 == 0)
                row[x * 4 + 3] = static_cast<std::uint8_t>(random());
        }
    }
    SetBitmapBits(bitmap.Get(), static_cast<DWORD>(bits.size()), bits.data());
    return bitmap;
}

ComPtr<IPictureDisp> PictureOf(GdiObject<HBITMAP> bitmap)
{
    PICTDESC description = {};
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.Get();
    ComPtr<IPictureDisp> picture = PictureOf(description);
    bitmap.Release();
    return picture;
}

ComPtr<IPictureDisp> IconPicture()
{
    const std::uint8_t mask[32 * 4] = {};
    const std::uint8_t image[32 * 4] = {0xFF, 0x0F, 0xF0, 0x55};
    PICTDESC description = {};
    description.picType = PICTYPE_ICON;
    description.icon.hicon = CreateIcon(nullptr, 32, 32, 1, 1, mask, image);
    return PictureOf(description);
}

ComPtr<IPictureDisp> MetafilePicture()
{
    const HDC dc = CreateMetaFileW(nullptr);
    Rectangle(dc, 1, 1, 20, 20);
    PICTDESC description = {};
    description.picType = PICTYPE_METAFILE;
    description.wmf.hmeta = CloseMetaFile(dc);
    description.wmf.xExt = 1000;
    description.wmf.yExt = 1000;
    return PictureOf(description);
}

ComPtr<IPictureDisp> EnhancedMetafilePicture()
{
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    Rectangle(dc, 1, 1, 20, 20);
    PICTDESC description = {};
    description.picType = PICTYPE_ENHMETAFILE;
    description.emf.hemf = CloseEnhMetaFile(dc);
    return PictureOf(description);
}

ComPtr<IPictureDisp> EmptyPicture()
{
    PICTDESC description = {};
    description.picType = PICTYPE_NONE;
    return PictureOf(description);
}

HBITMAP BitmapIn(IPictureDisp* object)
{
    ComPtr<IPicture> picture;
    SHORT kind = PICTYPE_UNINITIALIZED;
    OLE_HANDLE handle = 0;
    if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(&picture))) ||
        FAILED(picture->get_Type(&kind)) || kind != PICTYPE_BITMAP || FAILED(picture->get_Handle(&handle)))
        return nullptr;
    return static_cast<HBITMAP>(LongToHandle(static_cast<LONG>(handle)));
}

BitmapFacts FactsOf(HBITMAP bitmap)
{
    BitmapFacts facts;
    DIBSECTION section = {};
    BITMAP& header = section.dsBm;
    facts.IsSection = GetObjectA(bitmap, sizeof section, &section) == sizeof section;
    facts.Width = header.bmWidth;
    facts.Height = header.bmHeight;
    facts.BitsPerPixel = header.bmBitsPixel;
    if (facts.IsSection && section.dsBmih.biCompression == BI_BITFIELDS)
        facts.Masks.assign(std::begin(section.dsBitfields), std::end(section.dsBitfields));
    if (facts.IsSection && facts.BitsPerPixel <= 8)
    {
        const BitmapDc dc(bitmap);
        RGBQUAD table[256] = {};
        const UINT count = GetDIBColorTable(dc.Get(), 0, 256, table);
        for (UINT at = 0; at < count; ++at)
            facts.Table.push_back(RGB(table[at].rgbRed, table[at].rgbGreen, table[at].rgbBlue));
    }
    facts.Bits.resize(static_cast<std::size_t>(RowBytesOf(header) * header.bmHeight));
    GdiFlush();
    GetBitmapBits(bitmap, static_cast<LONG>(facts.Bits.size()), facts.Bits.data());
    return facts;
}

std::string Difference(const BitmapFacts& expected, const BitmapFacts& actual)
{
    if (expected == actual)
        return {};
    std::ostringstream text;
    if (expected.Width != actual.Width || expected.Height != actual.Height)
        text << "size " << actual.Width << " by " << actual.Height << "; ";
    if (expected.BitsPerPixel != actual.BitsPerPixel)
        text << actual.BitsPerPixel << " bits; ";
    if (expected.IsSection != actual.IsSection)
        text << (actual.IsSection ? "is a section; " : "is no section; ");
    if (expected.Masks != actual.Masks)
        text << "other masks; ";
    if (expected.Table != actual.Table)
        text << "another colour table; ";
    for (std::size_t at = 0; at < std::min(expected.Bits.size(), actual.Bits.size()); ++at)
        if (expected.Bits[at] != actual.Bits[at])
        {
            text << "byte " << at << " is " << int{actual.Bits[at]} << " instead of "
                 << int{expected.Bits[at]};
            break;
        }
    return text.str();
}

GdiObject<HBITMAP> ExchangedPixelByPixel(HBITMAP source, COLORREF mask, COLORREF replace)
{
    BITMAP header = {};
    GetObjectA(source, sizeof header, &header);
    const BitmapDc from(source);
    GdiObject<HBITMAP> result(CreateCompatibleBitmap(from.Get(), header.bmWidth, header.bmHeight));
    const BitmapDc to(result.Get());
    BitBlt(to.Get(), 0, 0, header.bmWidth, header.bmHeight, from.Get(), 0, 0, SRCCOPY);
    for (int y = 0; y < header.bmHeight; ++y)
        for (int x = 0; x < header.bmWidth; ++x)
            if (GetPixel(from.Get(), x, y) == mask)
                SetPixel(to.Get(), x, y, replace);
    return result;
}

COLORREF ColorAt(HBITMAP bitmap, int x, int y)
{
    const BitmapDc dc(bitmap);
    return GetPixel(dc.Get(), x, y);
}

} // namespace kiv::test
