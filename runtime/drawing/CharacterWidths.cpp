#include "runtime/drawing/CharacterWidths.h"

#include "runtime/drawing/Gdi.h"

#include <algorithm>

namespace kiv
{

CharacterWidths::CharacterWidths(HFONT font)
{
    const MemoryDc dc(nullptr);
    const Selection selected(dc.Get(), font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc.Get(), &metrics);
    overhang_ = metrics.tmOverhang;
    // A font whose widths cannot be had has no line that fits.
    if (!GetCharWidth32A(dc.Get(), 0, Plain - 1, widths_.data()))
        widths_.fill(0xFFFF);
}

bool CharacterWidths::FitsIn(std::wstring_view text, int pixels) const
{
    int width = overhang_;
    return std::ranges::all_of(text, [&](wchar_t character) {
        if (character >= Plain)
            return false;
        width += widths_[character];
        return width <= pixels;
    });
}

} // namespace kiv
