#pragma once

#include <windows.h>

#include <string>

namespace kiv::test
{

// Puts something on the clipboard on behalf of a window; empties it when data is null.
void PutOnClipboard(HWND owner, UINT format, const void* data, std::size_t size);
void PutTextOnClipboard(HWND owner, const std::wstring& text);
void EmptyTheClipboard(HWND owner);
// "nothing" when it holds no text.
std::wstring TextOnClipboard(HWND owner);

} // namespace kiv::test
