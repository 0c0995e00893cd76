#pragma once

#include <windows.h>

#include <string>

namespace kiv
{

// A window's text, read without a message: the window may be busy, or another thread's.
std::wstring CaptionOf(HWND window);

// The text of the static text that stands right before a window among its siblings, as a dialog lays out a
// label and its box; without the mark of its mnemonic. A window that fills another one alone is as good as
// that. Empty when there is none.
std::wstring PrecedingLabel(HWND window);

} // namespace kiv
