#include "bench/TypingBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "bench/Controls.h"
#include "bench/Typist.h"
#include "runtime/com/Errors.h"

#include <KivControls.h>

#include <string>
#include <vector>

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 32};
constexpr int Rounds = 7;
constexpr int DigitsPerRound = 500;

struct Box
{
    const char* Name;
    CLSID ClassId;
    const char* Text; // to begin with
    Digits Typed;
    bool Overtypes; // replaces what is behind the caret
};

void RunTypingRow(const Box& box, HWND parent)
{
    const HostedControl control(FactoryOf(box.ClassId).Get(), parent, Place);
    const HWND inner = FindWindowExA(control.Window(), nullptr, "EDIT", nullptr);
    if (!inner)
        ThrowLastError();
    SetFocus(inner);
    SetWindowTextA(inner, box.Text);
    // Of the same looks, in the same place.
    const HWND bare = CreateWindowExA(static_cast<DWORD>(GetWindowLongA(inner, GWL_EXSTYLE)), "EDIT",
                                      box.Text, static_cast<DWORD>(GetWindowLongA(inner, GWL_STYLE)), 0, 0,
                                      118, 18, parent, nullptr, nullptr, nullptr);
    SendMessageA(bare, WM_SETFONT, static_cast<WPARAM>(SendMessageA(inner, WM_GETFONT, 0, 0)), FALSE);
    Typist onControl(inner, box.Typed, box.Overtypes);
    Typist onBare(bare, box.Typed, false);
    // To put the caret in its place is no part of it.
    std::vector<double> library;
    std::vector<double> bareTimes;
    for (int round = 0; round < Rounds; ++round)
    {
        library.push_back(onControl.TimeOfDigits(DigitsPerRound));
        bareTimes.push_back(onBare.TimeOfDigits(DigitsPerRound));
    }
    DestroyWindow(bare);
    Print({std::string(box.Name) + ": one typed digit", Middle(library), Middle(bareTimes), 1.25});
}

} // namespace

void RunTypingRows(HWND parent)
{
    const Box boxes[] = {
        {"NumberBox", CLSID_NumberBox, "123-45-6789", {'1', '2'}, true},
        {"DateBox", CLSID_DateBox, "01/15/2001", {'0', '1'}, true},
        {"CurrencyBox", CLSID_CurrencyBox, "512", {'1', '2'}, false},
        {"PercentBox", CLSID_PercentBox, "5.5", {'1', '2'}, false},
    };
    for (const Box& box : boxes)
        RunTypingRow(box, parent);
}

} // namespace kiv::bench
