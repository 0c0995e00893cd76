#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace kiv
{

// A line of text with a place for each of its characters, as the screen measures them in a font. Drawn in
// these places it is exactly as wide as it was measured, on whatever device. Left to itself, Wine draws a
// text with other distances than those that it measures by, wherever a font has bitmaps of its own or is
// fitted to the pixels: a point takes three pixels of "1,234.50" and four of its picture.
class TextLine
{
public:
    TextLine(HFONT font, std::wstring_view text);

    int Width() const { return width_; }
    // How many of the characters, from the first on, lie within so many pixels.
    std::size_t CountWithin(int pixels) const;

    // With the font and colours that the device context has; clip: all of it that is to show, null for no
    // limit.
    void Draw(HDC dc, int left, int top, const RECT* clip = nullptr) const;

private:
    std::wstring text_;
    std::vector<int> widths_; // of each character; empty where they cannot be had
    int width_ = 0;
};

} // namespace kiv
