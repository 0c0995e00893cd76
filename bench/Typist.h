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

} // namespace kiv::bench
