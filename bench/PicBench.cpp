#include "bench/PicBench.h"

#include "bench/BareSite.h"
#include "bench/BareWindow.h"
#include "bench/Bench.h"
#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <KivControls.h>
#include <olectl.h>

#include <cstdio>
#include <cstring>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 38};
constexpr char Caption[] = "Details";

// Four pens, eight lines, a face, a caption that is measured and drawn, and an icon.
void DrawButton(HWND window, HDC dc)
{
    static const HICON icon = LoadIconA(nullptr, reinterpret_cast<const char*>(IDI_APPLICATION));
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
    Print({"PicCommand: one repaint", times.Library, times.Bare, 1.5});
}

void RunLifeRow(IClassFactory* factory, HWND parent)
{
    const Pair times = MeasurePair(
        100, [&] { const HostedControl control(factory, parent, Place); },
        [&] {
            const BareWindow window(parent, Place, &DrawButton);
            DestroyWindow(CreateWindowExA(0, "BUTTON", "", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 120,
                                          28, window.Handle(), nullptr, nullptr, nullptr));
        });
    Print({"PicCommand: create, activate and destroy", times.Library, times.Bare, std::nullopt});
}

constexpr int Side = 1024;
constexpr COLORREF Mask = RGB(255, 0, 255);
constexpr COLORREF Other = RGB(10, 20, 30);

// Every second pixel has the colour that is exchanged.
HBITMAP LargeBitmap(void** bits)
{
    BITMAPINFO description = {};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = Side;
    description.bmiHeader.biHeight = Side;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 24;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, bits, nullptr, 0);
    if (!bitmap)
        ThrowLastError();
    auto* byte = static_cast<unsigned char*>(*bits);
    for (int pixel = 0; pixel < Side * Side; ++pixel)
    {
        const COLORREF color = pixel % 2 == 0 ? Mask : Other;
        *byte++ = GetBValue(color);
        *byte++ = GetGValue(color);
        *byte++ = GetRValue(color);
    }
    return bitmap;
}

// The same exchange, pixel after pixel.
void ExchangePixelByPixel(HBITMAP source, COLORREF replace)
{
    const HDC from = CreateCompatibleDC(nullptr);
    const HDC to = CreateCompatibleDC(nullptr);
    const HGDIOBJ oldSource = SelectObject(from, source);
    const HBITMAP target = CreateCompatibleBitmap(from, Side, Side);
    const HGDIOBJ oldTarget = SelectObject(to, target);
    BitBlt(to, 0, 0, Side, Side, from, 0, 0, SRCCOPY);
    for (int y = 0; y < Side; ++y)
    {
        for (int x = 0; x < Side; ++x)
        {
            if (GetPixel(from, x, y) == Mask)
                SetPixel(to, x, y, replace);
        }
    }
    SelectObject(to, oldTarget);
    SelectObject(from, oldSource);
    DeleteObject(target);
    DeleteDC(to);
    DeleteDC(from);
}

void RunRecolorRows(_PicLite* control, HBITMAP bitmap, const void* bits)
{
    OLE_COLOR replace = 1;
    const auto recolor = [&] {
        ++replace;
        Check(control->put_ReplaceColor(&replace));
    };
    const double byLibrary = Measure(10, recolor);
    const double byPixel = Measure(1, [&] { ExchangePixelByPixel(bitmap, 1); });
    constexpr double goal = 50;
    const double timesAsFast = byPixel / byLibrary;
    std::printf("%-52s %9.2f us, pixel by pixel %.2f us: %.0f times as fast, at least %.0f wanted: %s\n",
                "PicLite: 1024x1024, 24 bits", byLibrary, byPixel, timesAsFast, goal,
                timesAsFast >= goal ? "met" : "missed");

    const std::size_t size = std::size_t{3} * Side * Side;
    std::vector<unsigned char> copy(size);
    const Pair times = MeasurePair(10, recolor, [&] { std::memcpy(copy.data(), bits, size); });
    Print({"PicLite: the same, against one copy in memory", times.Library, times.Bare, std::nullopt});
}

} // namespace

void RunPicCommandRows(IClassFactory* factory, HWND parent)
{
    RunLifeRow(factory, parent);
    RunRepaintRow(factory, parent);
}

void RunPicLiteRows(IClassFactory* factory)
{
    ComPtr<_PicLite> control;
    Check(factory->CreateInstance(nullptr, IID_PPV_ARGS(&control)));
    void* bits = nullptr;
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = LargeBitmap(&bits);
    ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    OLE_COLOR mask = Mask;
    Check(control->put_MaskColor(&mask));
    Check(control->putref_Picture(picture.Get()));
    RunRecolorRows(control.Get(), description.bmp.hbitmap, bits);
}

} // namespace kiv::bench
