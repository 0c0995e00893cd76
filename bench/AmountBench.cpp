#include "bench/AmountBench.h"

#include "bench/BareSite.h"
#include "bench/BareWindow.h"
#include "bench/Bench.h"
#include "bench/Typist.h"
#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <KivControls.h>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 32};
constexpr RECT PlaceBelow = {10, 50, 130, 72};

HWND TextBoxIn(const HostedControl& control)
{
    const HWND box = FindWindowExA(control.Window(), nullptr, "EDIT", nullptr);
    if (!box)
        ThrowLastError();
    return box;
}

template<class Control>
void RunValueRow(const std::string& name, IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<Control> box;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&box)));
    const HWND window = TextBoxIn(control);
    SetWindowTextA(window, "12.5");
    const auto read = [&] {
        Variant value;
        Check(box->get_Value(value.Receive()));
    };
    const auto readBare = [&] {
        char text[32] = {};
        GetWindowTextA(window, text, ARRAYSIZE(text));
    };
    const Pair times = MeasurePair(5000, read, readBare);
    Print({name + ": Value, against the box's text", times.Library, times.Bare, std::nullopt});
}

constexpr wchar_t Amount[] = L"1,234,567.50";

// One background, one text at the right.
void DrawAmount(HDC dc, const RECT& whole)
{
    FillRect(dc, &whole, GetSysColorBrush(COLOR_WINDOW));
    const HGDIOBJ oldFont = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    RECT place = whole;
    DrawTextW(dc, Amount, -1, &place, DT_RIGHT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(dc, oldFont);
}

void PaintAmount(HWND window, HDC dc)
{
    RECT whole = {};
    GetClientRect(window, &whole);
    DrawAmount(dc, whole);
}

void RunPaintRows(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<_CurrencyBox> box;
    ComPtr<IViewObject> view;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&box)));
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&view)));
    Check(box->put_AllowRounding(VARIANT_FALSE));
    Check(box->put_Value(Variant(Currency::FromUnits(12345675000)).Get()));

    const HWND window = control.Window();
    const BareWindow bare(parent, PlaceBelow, &PaintAmount);
    const Pair repaints = MeasurePair(
        2000, [&] { Repaint(window); }, [&] { Repaint(bare.Handle()); });
    Print({"CurrencyBox: one repaint", repaints.Library, repaints.Bare, 1.0});

    const RECT whole = {0, 0, Place.right - Place.left, Place.bottom - Place.top};
    const RECTL bounds = {0, 0, whole.right, whole.bottom};
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, whole.right, whole.bottom);
    const HGDIOBJ oldBitmap = SelectObject(memory, bitmap);
    const auto draw = [&] {
        Check(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr,
                         0));
    };
    const auto drawBare = [&] {
        RECT inside = whole;
        DrawEdge(memory, &inside, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        DrawAmount(memory, inside);
    };
    const Pair drawings = MeasurePair(5000, draw, drawBare);
    SelectObject(memory, oldBitmap);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    Print({"CurrencyBox: drawn into a bitmap", drawings.Library, drawings.Bare, std::nullopt});
}

} // namespace

void RunAmountRows(IClassFactory* currency, IClassFactory* percent, HWND parent)
{
    RunValueRow<_CurrencyBox>("CurrencyBox", currency, parent);
    RunPaintRows(currency, parent);
    RunValueRow<_PercentBox>("PercentBox", percent, parent);
}

} // namespace kiv::bench
