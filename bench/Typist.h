#pragma once

#include <windows.h>

namespace kiv::bench
{

// A text box as Windows has it, for the library's to be held against.
class BareEdit
{
public:
    BareEdit(HWND parent, const char* text);
    BareEdit(const BareEdit&) = delete;
    BareEdit& operator=(const BareEdit&) = delete;
    ~BareEdit() { DestroyWindow(window_); }

    HWND Handle() const { return window_; }

private:
    HWND window_;
};

struct Digits
{
    WPARAM One;
    WPARAM Other;
};

// Types digits at the beginning of a text box, each another one than the last.
class Typist
{
public:
    // overtypes: whether a digit replaces the first character of the text instead of coming before it.
    Typist(HWND window, Digits digits, bool overtypes) :
        window_(window), digits_(digits), overtypes_(overtypes), digit_(digits.One)
    {
    }

    // In microseconds each, without what makes the text ready for the next one. The box has the focus
    // meanwhile.
    double TimeOfDigits(int count);

private:
    void Type();
    void MakeReady();

    HWND window_;
    Digits digits_;
    bool overtypes_;
    WPARAM digit_;
};

} // namespace kiv::bench
