#pragma once

#include <windows.h>

#include <string_view>

namespace kiv::test
{

// How wide a text is in the font that a device context has, by what the system says of it.
int WidthOf(HDC dc, std::wstring_view text);

// Writes a text as wide as that: each character by itself, where those before it end.
void WriteMeasured(HDC dc, int left, int top, std::wstring_view text);

// The columns that a character has ink in, with room around: from the first to behind the last, counted from
// where it is written.
struct Ink
{
    int First = 0;
    int End = 0;
};
Ink InkOf(HFONT font, wchar_t character);

} // namespace kiv::test
