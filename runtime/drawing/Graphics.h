#pragma once

#include "runtime/drawing/Gdi.h"

#include <functional>
#include <string>
#include <string_view>

namespace kiv
{

// The ANSI code page's form of a text, which is what the controls' windows draw and hold, and back.
std::string Ansi(std::wstring_view text);
std::wstring Wide(std::string_view ansi);

// A surface's device context in use, with the surface's font and colours in force. A window's is given back
// and a painter's put back as it was when this ends.
class Graphics
{
public:
    // window: whose device context to take and give back; null when dc is the painter's own.
    Graphics(HWND window, HDC dc, HFONT font, COLORREF textColor, COLORREF backColor);
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;
    ~Graphics();

    HDC Dc() const { return dc_; }
    // What a memory device context for this one is made compatible with; the screen (null) for a metafile,
    // which has no bits of its own.
    HDC CompatibleWith() const;

private:
    HWND window_;
    HDC dc_;
    int saved_;
};

// A device context of the calling thread's own, like the screen's, to measure with. Put it back as it was.
HDC MeasuringDc();

// Fills with one colour, as a metafile records it too.
void FillSolid(HDC dc, const RECT& rectangle, COLORREF color);

// Whether a device context records instead of drawing.
bool IsMetafile(HDC dc);

// Width of a text and height of a line in pixels, as the screen draws them with a font.
int TextWidthInPixels(std::wstring_view text, HFONT font);
int LineHeightInPixels(HFONT font);

// The text of something disabled: highlighted a pixel to the right and below, with its shadow on top; in high
// contrast in the system's grey alone. format
// is DrawText's. The rectangle is changed while this draws and ends as it began, and so does the text colour.
void DrawEmbossed(HDC dc, const std::string& text, RECT& rectangle, UINT format);
// The same of whatever write draws, so many pixels to the right and below of where it belongs.
void DrawEmbossed(HDC dc, const std::function<void(int shift)>& write);

} // namespace kiv
