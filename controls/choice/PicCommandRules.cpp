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

ButtonPicture ButtonPictureOf(long pictureType, long detailStatus)
{
    switch (pictureType)
    {
    case CheckMarkType:
        if (detailStatus == PartialStatus)
            return {ButtonIcon::Partial, 15, 10};
        if (detailStatus == CompleteStatus)
            return {ButtonIcon::CheckMark, 15, 10};
        return NoPicture;
    case 1:
        return {ButtonIcon::Plus, 18, 18};
    case 2:
        return {ButtonIcon::Minus, 18, 18};
    case 3:
        return {ButtonIcon::Note, 23, 23};
    case 4:
        return {ButtonIcon::Graph, 23, 23};
    case 5:
        return {ButtonIcon::WebLink, 23, 23};
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

ButtonFrame ButtonFrameOf(PixelRect button, bool pressed, bool framed)
{
    std::vector<FrameStroke> strokes;
    PixelRect r = button;
    if (framed)
    {
        strokes.push_back({FrameColor::Black,
                           {{r.Left, r.Bottom - 2},
                            {r.Left, r.Top},
                            {r.Right - 1, r.Top},
                            {r.Right - 1, r.Bottom - 1},
                            {r.Left - 1, r.Bottom - 1}}});
        r = Shrunk(r, 1);
    }
    // The one pixel of the frame that the lines below leave out, since none draws its last point: without
    // this it would keep what another state has drawn there.
    strokes.push_back({FrameColor::Face, {{r.Left, r.Bottom - 1}, {r.Left + 1, r.Bottom - 1}}});
    // One line through all four: each begins where the one before it ended.
    const BevelColors colors = ColorsOf(pressed, framed);
    strokes.push_back({colors.InnerTopLeft,
                       {{r.Left + 1, r.Bottom - 3}, {r.Left + 1, r.Top + 1}, {r.Right - 2, r.Top + 1}}});
    strokes.push_back({colors.InnerBottomRight,
                       {{r.Right - 2, r.Top + 1}, {r.Right - 2, r.Bottom - 2}, {r.Left, r.Bottom - 2}}});
    strokes.push_back({colors.OuterTopLeft, {{r.Left, r.Bottom - 2}, {r.Left, r.Top}, {r.Right - 1, r.Top}}});
    strokes.push_back({colors.OuterBottomRight,
                       {{r.Right - 1, r.Top}, {r.Right - 1, r.Bottom - 1}, {r.Left, r.Bottom - 1}}});
    return {std::move(strokes), Shrunk(r, 2)};
}

ButtonLayout ButtonLayoutOf(PixelRect text, const ButtonPicture& picture, long pictureType, int captionWidth)
{
    if (picture.Icon == ButtonIcon::None)
        return {text, {}};
    const int width = text.Right - text.Left;
    const int gap =
        pictureType == CheckMarkType ? 1 : std::max((width - captionWidth - picture.PicWidth) / 3, 0);
    ButtonLayout layout = {text, {text.Left + gap + 2, (text.Top + text.Bottom - picture.PicHeight) / 2}};
    layout.Caption.Left += picture.PicWidth + gap;
    return layout;
}

} // namespace kiv
