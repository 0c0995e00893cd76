#include "bench/TypingBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "bench/Controls.h"
#include "bench/Typist.h"
#include "runtime/com/Errors.h"

#include <KivControls.h>

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 32};

struct Box
{
    const char* Name;
    CLSID ClassId;
    const char* Text; // to begin with
    Digits Typed;
    int Selected; // characters that the digit replaces; an overtyped box needs none selected
};

void RunTypingRow(const Box& box, HWND parent)
{
    const HostedControl control(FactoryOf(box.ClassId).Get(), parent, Place);
    const HWND inner = FindWindowExA(control.Window(), nullptr, "EDIT", nullptr);
    if (!inner)
        ThrowLastError();
    SetFocus(inner);
    SetWindowTextA(inner, box.Text);
    const BareEdit bare(parent, box.Text);
    Typist onControl(inner, box.Typed, box.Selected);
    Typist onBare(bare.Handle(), box.Typed, 1);
    const Pair times = MeasurePair(
        500, [&] { onControl.Type(); }, [&] { onBare.Type(); });
    Print({std::string(box.Name) + ": one typed digit", times.Library, times.Bare, 1.25});
}

} // namespace

void RunTypingRows(HWND parent)
{
    const Box boxes[] = {
        {"NumberBox", CLSID_NumberBox, "123-45-6789", {'1', '2'}, 0},
        {"DateBox", CLSID_DateBox, "01/15/2001", {'0', '1'}, 0},
        {"CurrencyBox", CLSID_CurrencyBox, "12345", {'1', '2'}, 1},
        {"PercentBox", CLSID_PercentBox, "12345", {'1', '2'}, 1},
    };
    for (const Box& box : boxes)
        RunTypingRow(box, parent);
}

} // namespace kiv::bench
