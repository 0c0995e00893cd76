#include "host/container/Frame.h"

#include "host/container/ItemOwner.h"
#include "host/container/Mnemonic.h"
#include "runtime/core/Mnemonic.h"

namespace kiv::host
{

namespace
{

// Pixels between the frame's left edge and its caption, and around the caption.
constexpr int CaptionIndent = 9;
constexpr int CaptionGap = 2;

} // namespace

Frame::Frame(ItemOwner& owner, const FrameOptions& options) :
    FormItem(owner, options.container, options.name, options.bounds, options.tabIndex), options_(options)
{
    enabled_ = options.enabled;
}

bool Frame::HasMnemonic(const MSG& message) const
{
    return CanBeUsed() && HasMnemonicOf(options_.caption, message);
}

void Frame::OnMnemonic(MSG&)
{
    Owner().FocusAfter(*this);
}

AccessibleInfo Frame::Accessible() const
{
    AccessibleInfo info = FormItem::Accessible();
    info.Role = ROLE_SYSTEM_GROUPING;
    info.Name = WithoutMnemonic(options_.caption);
    return info;
}

void Frame::Paint(HDC context)
{
    RECT caption = {bounds_.left + CaptionIndent, bounds_.top, bounds_.right - CaptionIndent, bounds_.bottom};
    DrawTextW(context, options_.caption.c_str(), -1, &caption, DT_SINGLELINE | DT_CALCRECT);

    // The line runs through the middle of the caption and stops short of it on both sides.
    RECT border = bounds_;
    border.top += (caption.bottom - caption.top) / 2;
    const int saved = SaveDC(context);
    if (!options_.caption.empty())
        ExcludeClipRect(context, caption.left - CaptionGap, caption.top, caption.right + CaptionGap,
                        caption.bottom);
    DrawEdge(context, &border, EDGE_ETCHED, BF_RECT);
    RestoreDC(context, saved);
    const COLORREF colour = SetTextColor(context, GetSysColor(CanBeUsed() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextW(context, options_.caption.c_str(), -1, &caption, DT_SINGLELINE);
    SetTextColor(context, colour);
}

} // namespace kiv::host
