#include "bench/NumberBoxBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
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

// One key stroke on a text box, whose first digit becomes another one than it was.
class Typist
{
public:
    // selected: how many characters the stroke replaces; an overtyped box needs none selected.
    Typist(HWND window, int selected) : window_(window), selected_(selected) {}

    void Type()
    {
        digit_ = digit_ == '1' ? '2' : '1';
        SendMessageA(window_, EM_SETSEL, 0, selected_);
        SendMessageA(window_, WM_KEYDOWN, digit_, 1);
        SendMessageA(window_, WM_CHAR, digit_, 1);
        SendMessageA(window_, WM_KEYUP, digit_, static_cast<LPARAM>(0xC0000001));
    }

private:
    HWND window_;
    int selected_;
    WPARAM digit_ = '1';
};

void RunTypingRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const HWND bare =
        CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", "123-45-6789", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 10,
                        50, 120, 22, parent, nullptr, nullptr, nullptr);
    SendMessageA(bare, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    Typist onControl(TextBoxOf(NumberBoxIn(control).Get()), 0);
    Typist onBare(bare, 1);
    const Pair times = MeasurePair(
        500, [&] { onControl.Type(); }, [&] { onBare.Type(); });
    DestroyWindow(bare);
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
