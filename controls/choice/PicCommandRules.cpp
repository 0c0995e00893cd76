#include "controls/choice/PicCommandRules.h"

#include <algorithm>
#include <utility>

namespace kiv
{

namespace
{

constexpr long CheckMarkType = 0;
constexpr long PartialStatus = 1;
constexpr long CompleteStatus = 2;

constexpr ButtonPicture NoPicture = {};

PixelRect Shrunk(PixelRect rectangle, int by)
{
    return {rectangle.Left + by, rectangle.Top + by, rectangle.Right - by, rectangle.Bottom - by};
}

struct BevelColors
{
    FrameColor InnerTopLeft;
    FrameColor InnerBottomRight;
    FrameColor OuterTopLeft;
    FrameColor OuterBottomRight;
};

BevelColors ColorsOf(bool pressed, bool framed)
{
    using enum FrameColor;
    if (!pressed)
        return {Face, Shadow, Highlight, Black};
    if (framed)
        return {Face, Face, Shadow, Shadow};
    return {Black, Face, Shadow, Highlight};
}

} // namespace

ButtonPicture ButtonPictureOf(long pictureType, long detailStatus, PictureScale scale)
{
    const auto grown = [scale](ButtonIcon icon, int width, int height) {
        return ButtonPicture{icon, scale.Of(width), scale.Of(height)};
    };
    switch (pictureType)
    {
    case CheckMarkType:
        if (detailStatus == PartialStatus)
            return grown(ButtonIcon::Partial, 15, 10);
        if (detailStatus == CompleteStatus)
            return grown(ButtonIcon::CheckMark, 15, 10);
        return NoPicture;
    case 1:
        return grown(ButtonIcon::Plus, 18, 18);
    case 2:
        return grown(ButtonIcon::Minus, 18, 18);
    case 3:
        return grown(ButtonIcon::Note, 23, 23);
    case 4:
        return grown(ButtonIcon::Graph, 23, 23);
    case 5:
        return grown(ButtonIcon::WebLink, 23, 23);
    default:
        return NoPicture;
    }
}

const wchar_t* MeaningOf(ButtonIcon icon)
{
    switch (icon)
    {
    case ButtonIcon::Partial:
        return L"partial";
    case ButtonIcon::CheckMark:
        return L"complete";
    case ButtonIcon::Plus:
        return L"plus";
    case ButtonIcon::Minus:
        return L"minus";
    case ButtonIcon::Note:
        return L"note";
    case ButtonIcon::Graph:
        return L"graph";
    case ButtonIcon::WebLink:
        return L"web link";
    default:
        return L"";
    }
}

bool IsLinkStyle(ButtonIcon icon)
{
    return icon == ButtonIcon::Note || icon == ButtonIcon::Graph || icon == ButtonIcon::WebLink;
}

// A line that is more than a pixel wide is as many lines, one inside the other.
ButtonFrame ButtonFrameOf(PixelRect button, bool pressed, bool framed, PictureScale scale)
{
    std::vector<FrameStroke> strokes;
    const int width = scale.Of(1);
    const auto stroke = [&](FrameColor color, PixelRect outermost, auto&& points) {
        for (int line = 0; line < width; ++line)
            strokes.push_back({color, points(Shrunk(outermost, line))});
    };
    using Points = std::vector<PixelPoint>;
    PixelRect outer = button;
    if (framed)
    {
        stroke(FrameColor::Black, outer, [](PixelRect r) {
            return Points{{r.Left, r.Bottom - 2},
                          {r.Left, r.Top},
                          {r.Right - 1, r.Top},
                          {r.Right - 1, r.Bottom - 1},
                          {r.Left - 1, r.Bottom - 1}};
        });
        outer = Shrunk(outer, width);
    }
    // The one pixel of the frame that the lines below leave out, since none draws its last point: without
    // this it would keep what another state has drawn there.
    stroke(FrameColor::Face, outer, [](PixelRect r) {
        return Points{{r.Left, r.Bottom - 1}, {r.Left + 1, r.Bottom - 1}};
    });
    // One line through all four: each begins where the one before it ended.
    const BevelColors colors = ColorsOf(pressed, framed);
    const PixelRect inner = Shrunk(outer, width);
    stroke(colors.InnerTopLeft, inner, [](PixelRect r) {
        return Points{{r.Left, r.Bottom - 2}, {r.Left, r.Top}, {r.Right - 1, r.Top}};
    });
    stroke(colors.InnerBottomRight, inner, [](PixelRect r) {
        return Points{{r.Right - 1, r.Top}, {r.Right - 1, r.Bottom - 1}, {r.Left - 1, r.Bottom - 1}};
    });
    stroke(colors.OuterTopLeft, outer, [](PixelRect r) {
        return Points{{r.Left, r.Bottom - 2}, {r.Left, r.Top}, {r.Right - 1, r.Top}};
    });
    stroke(colors.OuterBottomRight, outer, [](PixelRect r) {
        return Points{{r.Right - 1, r.Top}, {r.Right - 1, r.Bottom - 1}, {r.Left, r.Bottom - 1}};
    });
    return {std::move(strokes), Shrunk(inner, width)};
}

ButtonLayout ButtonLayoutOf(PixelRect text, const ButtonPicture& picture, long pictureType, int captionWidth,
                            PictureScale scale)
{
    if (picture.Icon == ButtonIcon::None)
        return {text, {}};
    const int width = text.Right - text.Left;
    const int gap = pictureType == CheckMarkType ? scale.Of(1)
                                                 : std::max((width - captionWidth - picture.PicWidth) / 3, 0);
    ButtonLayout layout = {text,
                           {text.Left + gap + scale.Of(2), (text.Top + text.Bottom - picture.PicHeight) / 2}};
    layout.Caption.Left += picture.PicWidth + gap;
    return layout;
}

} // namespace kiv
