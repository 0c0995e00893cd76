#pragma once

#include <windows.h>

#include <utility>

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

// One key stroke on a text box, whose first digit becomes another one than it was.
class Typist
{
public:
    // selected: how many characters the stroke replaces.
    Typist(HWND window, Digits digits, int selected) :
        window_(window), digits_(digits), selected_(selected), digit_(digits.One)
    {
    }

    void Type()
    {
        digit_ = digit_ == digits_.One ? digits_.Other : digits_.One;
        // In view, with the caret in it. Only when another one has the focus: asking costs time.
        if (std::exchange(lastTyped_, window_) != window_)
            SetFocus(window_);
        SendMessageA(window_, EM_SETSEL, 0, selected_);
        SendMessageA(window_, WM_KEYDOWN, digit_, 1);
        SendMessageA(window_, WM_CHAR, digit_, 1);
        SendMessageA(window_, WM_KEYUP, digit_, static_cast<LPARAM>(0xC0000001));
    }

private:
    static inline HWND lastTyped_ = nullptr;

    HWND window_;
    Digits digits_;
    int selected_;
    WPARAM digit_;
};

} // namespace kiv::bench
