#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kiv
{

// The system's clipboard, as text.
struct Clipboard
{
    // The text that is there; empty when there is none or another program keeps the clipboard to itself.
    static std::wstring GetText(HWND owner);
    // Replaces whatever is there. Throws ComError when the clipboard cannot be had.
    static void SetText(HWND owner, std::wstring_view text);
};

} // namespace kiv
