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

// A value that the host assigns, each time another one, against setting the text of a bare box.
void RunAssignRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const ComPtr<_NumberBox> box = NumberBoxIn(control);
    const BareEdit bare(parent, "123-45-6789");
    const Variant values[] = {Variant(L"123-45-6789"), Variant(L"987-65-4321")};
    const char* const texts[] = {"123-45-6789", "987-65-4321"};
    std::size_t onControl = 0;
    std::size_t onBare = 0;
    const Pair times = MeasurePair(
        500, [&] { Check(box->put_Value(values[onControl++ % 2].Get())); },
        [&] { SetWindowTextA(bare.Handle(), texts[onBare++ % 2]); });
    Print({"NumberBox: Value set, against a box's text", times.Library, times.Bare, 1.5});
}

// The focus goes to another form and comes back, and nothing of the entry changes.
void RunAwayRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const BareEdit bare(parent, "123-45-6789");
    const HWND other = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 500, 500, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    const auto there = [other](HWND window) {
        SetFocus(other);
        SetFocus(window);
    };
    const HWND box = TextBoxOf(NumberBoxIn(control).Get());
    const Pair times = MeasurePair(
        100, [&] { there(box); }, [&] { there(bare.Handle()); });
    Print({"NumberBox: focus to another form and back", times.Library, times.Bare, 1.5});
    DestroyWindow(other);
}

} // namespace

void RunNumberBoxRows(IClassFactory* factory, HWND parent)
{
    RunValueRow(factory, parent);
    RunAssignRow(factory, parent);
    RunAwayRow(factory, parent);
}

} // namespace kiv::bench
