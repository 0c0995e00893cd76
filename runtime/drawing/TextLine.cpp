#include "runtime/drawing/TextLine.h"

#include "runtime/drawing/Graphics.h"

#include <algorithm>
#include <numeric>

namespace kiv
{

TextLine::TextLine(HFONT font, std::wstring_view text) : text_(text), widths_(text.size())
{
    if (text.empty())
        return;
    const HDC dc = MeasuringDc();
    const Selection selected(dc, font);
    SIZE extent = {};
    if (!GetTextExtentExPointW(dc, text_.c_str(), static_cast<int>(text_.size()), 0, nullptr, widths_.data(),
                               &extent))
        widths_.clear();
    width_ = extent.cx;
    // From where each character ends to how wide it is.
    std::adjacent_difference(widths_.begin(), widths_.end(), widths_.begin());
}

std::size_t TextLine::CountWithin(int pixels) const
{
    const auto beyond = std::ranges::find_if(widths_, [&](int width) { return (pixels -= width) < 0; });
    return static_cast<std::size_t>(beyond - widths_.begin());
}

void TextLine::Draw(HDC dc, int left, int top, const RECT* clip) const
{
    ExtTextOutW(dc, left, top, clip ? UINT{ETO_CLIPPED} : 0U, clip, text_.c_str(),
                static_cast<UINT>(text_.size()), widths_.empty() ? nullptr : widths_.data());
}

} // namespace kiv
