#include "runtime/forms/Label.h"

#include "runtime/forms/Color.h"
#include "runtime/forms/SavedDc.h"

namespace kiv
{

Label::Label(const Surface& surface, Alignment alignment) :
    surface_(surface),
    alignment_(alignment),
    backColor_(SystemColor(COLOR_WINDOW)),
    foreColor_(SystemColor(COLOR_WINDOWTEXT))
{
}

void Label::Move(int left, int top, int width, int height)
{
    place_ = {left, top, left + width, top + height};
}

int Label::LineHeight() const
{
    return LineHeightInPixels(font_ ? font_ : surface_.FontHandle());
}

void Label::Draw() const
{
    const Graphics graphics = surface_.AcquireGraphics();
    const HDC dc = graphics.Dc();
    const Selection font(dc, font_);
    const GdiObject<HBRUSH> background(CreateSolidBrush(ResolvedColor(backColor_)));
    FillRect(dc, &place_, background.Get());

    // The last character of a line may reach a pixel beyond its width.
    const SavedDc saved(dc);
    IntersectClipRect(dc, place_.left - 1, place_.top, place_.right + 1, place_.bottom);
    const UINT format = static_cast<UINT>(alignment_) | DT_NOPREFIX | DT_NOCLIP;
    const std::string ansi = Ansi(caption_);
    RECT place = place_;
    if (enabled_)
    {
        SetTextColor(dc, ResolvedColor(foreColor_));
        DrawTextA(dc, ansi.c_str(), -1, &place, format);
    }
    else
    {
        DrawEmbossed(dc, ansi, place, format);
    }
}

} // namespace kiv
