#include "bench/AmountBench.h"

#include "bench/BareSite.h"
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
constexpr char Text[] = "12345";

HWND TextBoxIn(const HostedControl& control)
{
    const HWND box = FindWindowExA(control.Window(), nullptr, "EDIT", nullptr);
    if (!box)
        ThrowLastError();
    return box;
}

void RunTypingRow(const std::string& name, IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const HWND box = TextBoxIn(control);
    // In view, where its changes are seen.
    SetFocus(box);
    SetWindowTextA(box, Text);
    const BareEdit bare(parent, Text);
    Typist onControl(box, 1);
    Typist onBare(bare.Handle(), 1);
    const Pair times = MeasurePair(
        500, [&] { onControl.Type(); }, [&] { onBare.Type(); });
    Print({name + ": one typed digit", times.Library, times.Bare, 2.0});
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

} // namespace

void RunAmountRows(IClassFactory* currency, IClassFactory* percent, HWND parent)
{
    RunTypingRow("CurrencyBox", currency, parent);
    RunValueRow<_CurrencyBox>("CurrencyBox", currency, parent);
    RunTypingRow("PercentBox", percent, parent);
    RunValueRow<_PercentBox>("PercentBox", percent, parent);
}

} // namespace kiv::bench
