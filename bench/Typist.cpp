#include "bench/Typist.h"

#include "runtime/com/Errors.h"

#include <chrono>
#include <stdexcept>

namespace kiv::bench
{

BareEdit::BareEdit(HWND parent, const char* text) :
    window_(CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", text, WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 10, 50,
                            120, 22, parent, nullptr, nullptr, nullptr))
{
    if (!window_)
        ThrowLastError();
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
}

double Typist::TimeOfDigits(int count)
{
    using Clock = std::chrono::steady_clock;
    SetFocus(window_);
    SendMessageA(window_, EM_SETSEL, 0, 0);
    std::chrono::duration<double, std::micro> taken{};
    for (int i = 0; i < count; ++i)
    {
        const auto start = Clock::now();
        Type();
        taken += Clock::now() - start;
        MakeReady();
    }
    return taken.count() / count;
}

void Typist::Type()
{
    digit_ = digit_ == digits_.One ? digits_.Other : digits_.One;
    SendMessageA(window_, WM_KEYDOWN, digit_, 1);
    SendMessageA(window_, WM_CHAR, digit_, 1);
    SendMessageA(window_, WM_KEYUP, digit_, static_cast<LPARAM>(0xC0000001));
}

void Typist::MakeReady()
{
    char start[2] = {};
    SendMessageA(window_, WM_GETTEXT, sizeof start, reinterpret_cast<LPARAM>(start));
    if (static_cast<WPARAM>(start[0]) != digit_)
        throw std::logic_error("the box must take the digit");
    if (!overtypes_)
    {
        SendMessageA(window_, EM_SETSEL, 0, 1);
        SendMessageA(window_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(""));
    }
    SendMessageA(window_, EM_SETSEL, 0, 0);
}

} // namespace kiv::bench
