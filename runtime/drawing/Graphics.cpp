#include "runtime/drawing/Graphics.h"

#include "runtime/com/PerThread.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/MirroredDc.h"

namespace kiv
{

namespace
{

// Measuring needs a device context but no window; one of the thread's own spares taking one each time.
struct Ruler
{
    MemoryDc Dc{nullptr};
};

} // namespace

std::string Ansi(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

std::wstring Wide(std::string_view ansi)
{
    const int length = static_cast<int>(ansi.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, text.data(), static_cast<int>(text.size()));
    return text;
}

Graphics::Graphics(HWND window, HDC dc, HFONT font, COLORREF textColor, COLORREF backColor) :
    window_(window), dc_(dc), saved_(SaveDC(dc))
{
    if (font)
        SelectObject(dc_, font);
    SetTextColor(dc_, textColor);
    SetBkColor(dc_, backColor);
    SetBkMode(dc_, TRANSPARENT);
}

Graphics::~Graphics()
{
    if (saved_ != 0)
        RestoreDC(dc_, saved_);
    if (window_)
        ReleaseDC(window_, dc_);
}

HDC Graphics::CompatibleWith() const
{
    return IsMetafile(dc_) ? nullptr : dc_;
}

HDC MeasuringDc()
{
    return PerThread<Ruler>().Dc.Get();
}

// The background of no text. A brush would have to be made, since a metafile does not record the colour of
// the stock one. On a mirrored device context, which no metafile is, Wine's background is a column too far to
// the left.
void FillSolid(HDC dc, const RECT& rectangle, COLORREF color)
{
    if (IsRectEmpty(&rectangle))
        return;
    if (DrawsMirrored(dc))
    {
        FillRect(dc, &rectangle, GdiObject<HBRUSH>(CreateSolidBrush(color)).Get());
        return;
    }
    const COLORREF backColor = SetBkColor(dc, color);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rectangle, nullptr, 0, nullptr);
    // Not every metafile tells what it was.
    if (backColor != CLR_INVALID)
        SetBkColor(dc, backColor);
}

bool IsMetafile(HDC dc)
{
    const DWORD type = GetObjectType(dc);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

int TextWidthInPixels(std::wstring_view text, HFONT font)
{
    const HDC dc = MeasuringDc();
    const Selection selected(dc, font);
    SIZE extent = {};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &extent);
    return extent.cx;
}

int LineHeightInPixels(HFONT font)
{
    const HDC dc = MeasuringDc();
    const Selection selected(dc, font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc, &metrics);
    return metrics.tmHeight;
}

void DrawEmbossed(HDC dc, const std::string& text, RECT& rectangle, UINT format)
{
    DrawEmbossed(dc, [&](int shift) {
        OffsetRect(&rectangle, shift, shift);
        DrawTextA(dc, text.c_str(), -1, &rectangle, format);
        OffsetRect(&rectangle, -shift, -shift);
    });
}

void DrawEmbossed(HDC dc, const std::function<void(int shift)>& write)
{
    const bool flat = InHighContrast();
    const COLORREF textColor = SetTextColor(dc, GetSysColor(flat ? COLOR_GRAYTEXT : COLOR_BTNHIGHLIGHT));
    if (!flat)
    {
        write(1);
        SetTextColor(dc, GetSysColor(COLOR_BTNSHADOW));
    }
    write(0);
    SetTextColor(dc, textColor);
}

} // namespace kiv
