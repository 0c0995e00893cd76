#include "bench/YesNoBench.h"

#include "bench/BareSite.h"
#include "bench/BareWindow.h"
#include "bench/Bench.h"
#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <KivControls.h>

#include <cstdio>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 34};
constexpr int ImageSize = 14;

// One background, two options of two copies each, two captions.
void DrawOptions(HWND window, HDC dc)
{
    static const HBITMAP image = CreateBitmap(ImageSize, ImageSize, 1, 4, nullptr);
    RECT whole = {};
    GetClientRect(window, &whole);
    FillRect(dc, &whole, GetSysColorBrush(COLOR_BTNFACE));
    const HGDIOBJ oldFont = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    const HDC memory = CreateCompatibleDC(dc);
    const HGDIOBJ oldBitmap = SelectObject(memory, image);
    for (const DWORD operation : {SRCAND, SRCPAINT})
    {
        for (const int x : {0, 80})
            BitBlt(dc, x, 5, ImageSize, ImageSize, memory, 0, 0, operation);
    }
    SelectObject(memory, oldBitmap);
    DeleteDC(memory);
    RECT yes = {0, 0, 40, whole.bottom};
    RECT no = {80, 0, whole.right, whole.bottom};
    DrawTextA(dc, "Yes", -1, &yes, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
    DrawTextA(dc, "No", -1, &no, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, oldFont);
}

void RunRepaintRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const BareWindow window(parent, Place, &DrawOptions);
    const HWND controlWindow = control.Window();
    const Pair times = MeasurePair(
        2000, [&] { Repaint(controlWindow); }, [&] { Repaint(window.Handle()); });
    Print({"YesNo: one repaint", times.Library, times.Bare, 1.0});
}

void RunValueRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<_YesNo> direct;
    ComPtr<IDispatch> late;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&direct)));
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&late)));
    const auto lateBound = [&] {
        DISPPARAMS none = {};
        Variant value;
        Check(late->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                           value.Receive(), nullptr, nullptr));
    };
    const auto earlyBound = [&] {
        AnswerEnums value = Neither;
        Check(direct->get_Value(&value));
    };
    const Pair times = MeasurePair(20000, lateBound, earlyBound);
    Print({"YesNo: Value through IDispatch, against its vtable", times.Library, times.Bare, std::nullopt});
}

void RunMemoryRow(IClassFactory* factory, HWND parent)
{
    constexpr int cycles = 6000;
    constexpr int warmUp = 2000;
    std::size_t warm = 0;
    for (int i = 0; i < cycles; ++i)
    {
        if (i == warmUp)
            warm = PrivateBytes();
        const HostedControl control(factory, parent, Place);
    }
    const std::size_t end = PrivateBytes();
    std::printf("%-52s %9.1f MB after %d, %.1f MB after %d: %+.1f bytes a cycle\n",
                "YesNo: memory over create-and-destroy cycles", static_cast<double>(warm) / 1e6, warmUp,
                static_cast<double>(end) / 1e6, cycles,
                (static_cast<double>(end) - static_cast<double>(warm)) / (cycles - warmUp));
}

} // namespace

void RunYesNoRows(IClassFactory* factory, HWND parent)
{
    RunRepaintRow(factory, parent);
    RunValueRow(factory, parent);
    RunMemoryRow(factory, parent);
}

} // namespace kiv::bench
