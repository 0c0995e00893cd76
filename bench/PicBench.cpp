#include "bench/PicBench.h"

#include "bench/BareSite.h"
#include "bench/BareWindow.h"
#include "bench/Bench.h"
#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <KivControls.h>
#include <olectl.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 38};
constexpr char Caption[] = "Details";

// Four pens, eight lines, a face, a caption that is measured and drawn, and the control's icon.
void DrawButton(HWND window, HDC dc)
{
    static const auto icon = static_cast<HICON>(
        LoadImageA(GetModuleHandleA("KivCtls.ocx"), "PLUS", IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
    RECT whole = {};
    GetClientRect(window, &whole);
    const POINT corners[] = {
        {1, whole.bottom - 3}, {1, 1}, {whole.right - 2, 1}, {whole.right - 2, whole.bottom - 2},
        {0, whole.bottom - 2}, {0, 0}, {whole.right - 1, 0}, {whole.right - 1, whole.bottom - 1},
        {0, whole.bottom - 1}};
    const COLORREF colors[] = {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNSHADOW),
                               GetSysColor(COLOR_BTNHIGHLIGHT), RGB(0, 0, 0)};
    MoveToEx(dc, corners[0].x, corners[0].y, nullptr);
    for (int side = 0; side < 4; ++side)
    {
        const HPEN pen = CreatePen(PS_SOLID, 1, colors[side]);
        const HGDIOBJ oldPen = SelectObject(dc, pen);
        LineTo(dc, corners[2 * side + 1].x, corners[2 * side + 1].y);
        LineTo(dc, corners[2 * side + 2].x, corners[2 * side + 2].y);
        SelectObject(dc, oldPen);
        DeleteObject(pen);
    }
    InflateRect(&whole, -2, -2);
    FillRect(dc, &whole, GetSysColorBrush(COLOR_BTNFACE));
    const HGDIOBJ oldFont = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SIZE extent = {};
    GetTextExtentPoint32A(dc, Caption, static_cast<int>(std::strlen(Caption)), &extent);
    SetBkMode(dc, TRANSPARENT);
    DrawTextA(dc, Caption, -1, &whole, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
    SelectObject(dc, oldFont);
    DrawIconEx(dc, 16, 3, icon, 0, 0, 0, nullptr, DI_NORMAL);
}

// The button of a control, which is what paints.
HWND ButtonIn(const HostedControl& control)
{
    return GetWindow(control.Window(), GW_CHILD);
}

void RunRepaintRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<_PicCommand> button;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&button)));
    Check(button->put_Caption(Bstr(L"Details").Get()));
    Check(button->put_PictureType(Plus));
    const BareWindow window(parent, Place, &DrawButton);
    const HWND painted = ButtonIn(control);
    const Pair times = MeasurePair(
        2000, [&] { Repaint(painted); }, [&] { Repaint(window.Handle()); });
    Print({"PicCommand: one repaint", times.Library, times.Bare, 1.0});
}

constexpr int Side = 1000;
constexpr COLORREF Mask = RGB(255, 0, 255);

// A bitmap's description with room for what follows it.
struct Description
{
    BITMAPINFOHEADER Header = {};
    DWORD Colors[256] = {};
};

std::size_t RowBytes(WORD bitsPerPixel)
{
    return (std::size_t{Side} * bitsPerPixel + 15) / 16 * 2;
}

// Bits as a picture has them, some of them in the colour that is exchanged.
HBITMAP LargeBitmap(WORD bitsPerPixel)
{
    Description description;
    description.Header.biSize = sizeof description.Header;
    description.Header.biWidth = Side;
    description.Header.biHeight = Side;
    description.Header.biPlanes = 1;
    description.Header.biBitCount = bitsPerPixel;
    std::mt19937 random(bitsPerPixel);
    for (DWORD& color : description.Colors)
        color = random() & 0xFFFFFF;
    description.Colors[1] = 0xFF00FF;
    void* section = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&description),
                                            DIB_RGB_COLORS, &section, nullptr, 0);
    if (!bitmap)
        ThrowLastError();
    std::vector<std::uint8_t> bits(RowBytes(bitsPerPixel) * Side);
    std::ranges::generate(bits, [&] { return static_cast<std::uint8_t>(random()); });
    SetBitmapBits(bitmap, static_cast<DWORD>(bits.size()), bits.data());
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ oldBitmap = SelectObject(dc, bitmap);
    for (int pixel = 0; pixel < Side * Side / 3; ++pixel)
        SetPixel(dc, static_cast<int>(random() % Side), static_cast<int>(random() % Side), Mask);
    SelectObject(dc, oldBitmap);
    DeleteDC(dc);
    return bitmap;
}

// The bits of a bitmap into memory, and from there into a new one of its format.
void CopyInAndOut(HBITMAP source, std::span<std::uint8_t> memory)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ oldBitmap = SelectObject(dc, source);
    const HBITMAP target = CreateCompatibleBitmap(dc, Side, Side);
    const auto size = static_cast<LONG>(memory.size());
    if (GetBitmapBits(source, size, memory.data()) != size ||
        SetBitmapBits(target, static_cast<DWORD>(size), memory.data()) != size)
        ThrowLastError();
    SelectObject(dc, oldBitmap);
    DeleteDC(dc);
    DeleteObject(target);
}

void RunRecolorRow(IClassFactory* factory, WORD bitsPerPixel)
{
    ComPtr<_PicLite> control;
    Check(factory->CreateInstance(nullptr, IID_PPV_ARGS(&control)));
    const HBITMAP bitmap = LargeBitmap(bitsPerPixel);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), FALSE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    OLE_COLOR mask = Mask;
    Check(control->put_MaskColor(&mask));
    Check(control->putref_Picture(picture.Get()));
    OLE_COLOR replace = 1;
    std::vector<std::uint8_t> memory(RowBytes(bitsPerPixel) * Side);
    const Pair times = MeasurePair(
        20,
        [&] {
            ++replace;
            Check(control->put_ReplaceColor(&replace));
        },
        [&] { CopyInAndOut(bitmap, memory); });
    Print({"PicLite: 1000x1000, " + std::to_string(bitsPerPixel) + " bits, against copying it", times.Library,
           times.Bare, 1.5});
}

} // namespace

void RunPicCommandRows(IClassFactory* factory, HWND parent)
{
    RunRepaintRow(factory, parent);
}

void RunPicLiteRows(IClassFactory* factory)
{
    constexpr WORD depths[] = {1, 4, 8, 16, 24, 32};
    for (const WORD bitsPerPixel : depths)
        RunRecolorRow(factory, bitsPerPixel);
}

} // namespace kiv::bench
