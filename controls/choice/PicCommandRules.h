#pragma once

#include "runtime/core/Resolution.h"

#include <vector>

namespace kiv
{

// The rules of PicCommand that need no window. All in pixels; picture types and statuses are numbers as the
// control publishes them. scale: of the button's pictures, with which its frame and its gaps grow.

enum class ButtonIcon
{
    None,
    Partial,
    CheckMark,
    Plus,
    Minus,
    Note,
    Graph,
    WebLink
};

// An icon, and the room that it takes: the indent of the caption and the height that is centred.
struct ButtonPicture
{
    ButtonIcon Icon = ButtonIcon::None;
    int PicWidth;
    int PicHeight;

    bool operator==(const ButtonPicture&) const = default;
};

// Any number is taken: one that is no type, or no status, shows no picture.
ButtonPicture ButtonPictureOf(long pictureType, long detailStatus, PictureScale scale = {});

// What the picture says, for those who cannot see it; empty for none.
const wchar_t* MeaningOf(ButtonIcon icon);

// Such a button never shows that it has the focus.
bool IsLinkStyle(ButtonIcon icon);

struct PixelPoint
{
    int X;
    int Y;

    bool operator==(const PixelPoint&) const = default;
};

struct PixelRect
{
    int Left;
    int Top;
    int Right;
    int Bottom;

    bool operator==(const PixelRect&) const = default;
};

enum class FrameColor
{
    Black,
    Face,
    Shadow,
    Highlight
};

// Lines a pixel wide from point to point in one colour; the last point itself is not drawn.
struct FrameStroke
{
    FrameColor Color = FrameColor::Black;
    std::vector<PixelPoint> Points;

    bool operator==(const FrameStroke&) const = default;
};

struct ButtonFrame
{
    std::vector<FrameStroke> Strokes; // in the order of drawing
    PixelRect Inside;                 // what the frame leaves for the face
};

ButtonFrame ButtonFrameOf(PixelRect button, bool pressed, bool framed, PictureScale scale = {});

// Where caption and icon go.
struct ButtonLayout
{
    PixelRect Caption;
    PixelPoint Icon;

    bool operator==(const ButtonLayout&) const = default;
};

// text: the button, a pixel of the first size further right and down while it is pressed. captionWidth is not
// asked for a picture type of 0, whose icon stands at the left edge.
ButtonLayout ButtonLayoutOf(PixelRect text, const ButtonPicture& picture, long pictureType, int captionWidth,
                            PictureScale scale = {});

} // namespace kiv
