#include "tests/gui/YesNoReference.h"

#include "runtime/com/Errors.h"
#include "tests/support/Library.h"

#include <cstring>
#include <functional>

namespace kiv::test
{

namespace
{

constexpr SIZE ImageSize = {14, 14};

Pixels LoadOptionBitmap(const wchar_t* name)
{
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageW(Library::UnderTest().Module(), name, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    if (!bitmap)
        ThrowLastError();
    const Canvas canvas(ImageSize);
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ former = SelectObject(source, bitmap);
    BitBlt(canvas.Dc(), 0, 0, ImageSize.cx, ImageSize.cy, source, 0, 0, SRCCOPY);
    SelectObject(source, former);
    DeleteDC(source);
    DeleteObject(bitmap);
    return canvas.Content();
}

struct OptionBitmaps
{
    Pixels Mask = LoadOptionBitmap(L"YNMASK");
    Pixels Set = LoadOptionBitmap(L"YNSET");
    Pixels Clear = LoadOptionBitmap(L"YNCLEAR");
};

const OptionBitmaps& Bitmaps()
{
    static const OptionBitmaps bitmaps;
    return bitmaps;
}

int WidthOf(const char* text, HFONT font)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ former = SelectObject(dc, font);
    SIZE extent = {};
    GetTextExtentPoint32A(dc, text, static_cast<int>(std::strlen(text)), &extent);
    SelectObject(dc, former);
    DeleteDC(dc);
    return extent.cx;
}

void Fill(HDC dc, SIZE size, COLORREF color)
{
    const RECT whole = {0, 0, size.cx, size.cy};
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &whole, brush);
    DeleteObject(brush);
}

template<class Combine>
void Copy(HDC dc, SIZE surface, int left, int top, const Pixels& image, Combine combine)
{
    for (int y = 0; y < ImageSize.cy; ++y)
    {
        for (int x = 0; x < ImageSize.cx; ++x)
        {
            const POINT place = {left + x, top + y};
            if (place.x >= 0 && place.y >= 0 && place.x < surface.cx && place.y < surface.cy)
                SetPixelV(dc, place.x, place.y, combine(GetPixel(dc, place.x, place.y), image.At(x, y)));
        }
    }
}

// White of the mask keeps what is there and black makes room; black of the image keeps what is there. Both
// masks come before both images, which shows where the options overlap.
void DrawOptions(HDC dc, const YesNoLook& look, int noLeft)
{
    // Truncated toward zero, so that a surface of 13 pixels shows all but the image's last row.
    const int top = (look.Size.cy - ImageSize.cy) / 2;
    const OptionBitmaps& bitmaps = Bitmaps();
    for (const int left : {0, noLeft})
        Copy(dc, look.Size, left, top, bitmaps.Mask, std::bit_and<COLORREF>());
    Copy(dc, look.Size, 0, top, look.Value == 1 ? bitmaps.Set : bitmaps.Clear, std::bit_or<COLORREF>());
    Copy(dc, look.Size, noLeft, top, look.Value == 2 ? bitmaps.Set : bitmaps.Clear, std::bit_or<COLORREF>());
}

void DrawShifted(HDC dc, const char* text, RECT rectangle, int shift, COLORREF color)
{
    SetTextColor(dc, color);
    OffsetRect(&rectangle, shift, shift);
    DrawTextA(dc, text, -1, &rectangle, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
}

void DrawCaption(HDC dc, const char* text, const RECT& rectangle, const YesNoLook& look)
{
    if (look.Enabled)
    {
        DrawShifted(dc, text, rectangle, 0, look.ForeColor);
        return;
    }
    DrawShifted(dc, text, rectangle, 1, GetSysColor(COLOR_BTNHIGHLIGHT));
    DrawShifted(dc, text, rectangle, 0, GetSysColor(COLOR_BTNSHADOW));
}

} // namespace

YesNoRegions RegionsOf(const YesNoLook& look)
{
    return {WidthOf("Yes", look.Font) + 20, look.Size.cx - WidthOf("No", look.Font) - 19};
}

Pixels PaintYesNo(const YesNoLook& look, FocusAt focus)
{
    const SIZE size = look.Size;
    const YesNoRegions regions = RegionsOf(look);
    const Canvas canvas(size);
    const HDC dc = canvas.Dc();
    Fill(dc, size, look.BackColor);

    DrawOptions(dc, look, regions.NoLeft);

    const HGDIOBJ former = SelectObject(dc, look.Font);
    SetBkMode(dc, TRANSPARENT);
    DrawCaption(dc, "Yes", {0, 0, regions.YesRight - 2, size.cy}, look);
    DrawCaption(dc, "No", {regions.NoLeft, 0, size.cx - 2, size.cy}, look);
    SelectObject(dc, former);

    // It inverts what is there, whatever the colours in force.
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkColor(dc, RGB(255, 255, 255));
    const RECT yes = {0, 0, regions.YesRight, size.cy};
    const RECT no = {regions.NoLeft, 0, size.cx, size.cy};
    if (focus == FocusAt::Yes || focus == FocusAt::Both)
        DrawFocusRect(dc, &yes);
    if (focus == FocusAt::No || focus == FocusAt::Both)
        DrawFocusRect(dc, &no);
    return canvas.Content();
}

std::string FocusOn(const Pixels& picture, const YesNoLook& look)
{
    if (picture == PaintYesNo(look, FocusAt::None))
        return "None";
    if (picture == PaintYesNo(look, FocusAt::Yes))
        return "Yes";
    if (picture == PaintYesNo(look, FocusAt::No))
        return "No";
    if (picture == PaintYesNo(look, FocusAt::Both))
        return "Both";
    return "something else: " + Difference(PaintYesNo(look, FocusAt::None), picture);
}

} // namespace kiv::test
