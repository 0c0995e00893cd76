#include "bench/NumberBoxBench.h"

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

ComPtr<_NumberBox> NumberBoxIn(const HostedControl& control)
{
    ComPtr<_NumberBox> box;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&box)));
    return box;
}

HWND TextBoxOf(_NumberBox* box)
{
    LONG window = 0;
    Check(box->get_hwnd(&window));
    return static_cast<HWND>(LongToHandle(window));
}

void RunTypingRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const BareEdit bare(parent, "123-45-6789");
    Typist onControl(TextBoxOf(NumberBoxIn(control).Get()), 0);
    Typist onBare(bare.Handle(), 1);
    const Pair times = MeasurePair(
        500, [&] { onControl.Type(); }, [&] { onBare.Type(); });
    Print({"NumberBox: one typed digit", times.Library, times.Bare, 2.0});
}

void RunValueRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const ComPtr<_NumberBox> box = NumberBoxIn(control);
    Check(box->put_Text(Bstr(L"123-45-6789").Get()));
    const HWND window = TextBoxOf(box.Get());
    const auto read = [&] {
        Variant value;
        Check(box->get_Value(value.Receive()));
    };
    const auto readBare = [&] {
        char text[32] = {};
        GetWindowTextA(window, text, ARRAYSIZE(text));
    };
    const Pair times = MeasurePair(5000, read, readBare);
    Print({"NumberBox: Value, against the box's text", times.Library, times.Bare, std::nullopt});
}

} // namespace

void RunNumberBoxRows(IClassFactory* factory, HWND parent)
{
    RunTypingRow(factory, parent);
    RunValueRow(factory, parent);
}

} // namespace kiv::bench
