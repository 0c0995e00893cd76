#include "tests/support/MeasuredText.h"

#include "tests/support/Pixels.h"

namespace kiv::test
{

int WidthOf(HDC dc, std::wstring_view text)
{
    SIZE extent = {};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &extent);
    return extent.cx;
}

void WriteMeasured(HDC dc, int left, int top, std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        TextOutW(dc, left + WidthOf(dc, text.substr(0, i)), top, &text[i], 1);
}

Ink InkOf(HFONT font, wchar_t character)
{
    constexpr SIZE room = {300, 100};
    constexpr int origin = 100;
    const Canvas canvas(room);
    RECT whole = {0, 0, room.cx, room.cy};
    FillRect(canvas.Dc(), &whole, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const HGDIOBJ former = SelectObject(canvas.Dc(), font);
    SetBkMode(canvas.Dc(), TRANSPARENT);
    TextOutW(canvas.Dc(), origin, 10, &character, 1);
    SelectObject(canvas.Dc(), former);
    const Pixels pixels = canvas.Content();
    Ink ink = {room.cx, 0};
    for (int x = 0; x < room.cx; ++x)
    {
        for (int y = 0; y < room.cy; ++y)
        {
            if (pixels.At(x, y) == RGB(255, 255, 255))
                continue;
            ink = {ink.First < x ? ink.First : x, x + 1};
            break;
        }
    }
    return {ink.First - origin, ink.End - origin};
}

} // namespace kiv::test
