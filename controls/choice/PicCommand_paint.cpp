// How a PicCommand paints its button.

#include "controls/choice/PicCommand.h"

#include "framework/subclass/ModuleData.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/MirroredDc.h"
#include "runtime/drawing/TwoColors.h"

namespace kiv
{

namespace
{

constexpr UINT CaptionFormat = DT_SINGLELINE | DT_VCENTER | DT_CENTER;
constexpr int FocusInset = 4;

HICON SharedIcon(ButtonIcon icon, PictureScale scale)
{
    const auto shared = [scale](Picture SharedPictures::*picture) {
        return IconOf(PictureIn(scale, picture));
    };
    switch (icon)
    {
    case ButtonIcon::Partial:
        return shared(&SharedPictures::partial);
    case ButtonIcon::CheckMark:
        return shared(&SharedPictures::checkmark);
    case ButtonIcon::Plus:
        return shared(&SharedPictures::plus);
    case ButtonIcon::Minus:
        return shared(&SharedPictures::minus);
    case ButtonIcon::Note:
        return shared(&SharedPictures::note);
    case ButtonIcon::Graph:
        return shared(&SharedPictures::graph);
    case ButtonIcon::WebLink:
        return shared(&SharedPictures::weblink);
    default:
        return nullptr;
    }
}

PixelRect ToPixelRect(const RECT& rectangle)
{
    return {static_cast<int>(rectangle.left), static_cast<int>(rectangle.top),
            static_cast<int>(rectangle.right), static_cast<int>(rectangle.bottom)};
}

RECT ToRect(const PixelRect& rectangle)
{
    return {rectangle.Left, rectangle.Top, rectangle.Right, rectangle.Bottom};
}

COLORREF ColorOf(FrameColor color)
{
    switch (color)
    {
    case FrameColor::Face:
        return GetSysColor(COLOR_BTNFACE);
    case FrameColor::Shadow:
        return GetSysColor(COLOR_BTNSHADOW);
    case FrameColor::Highlight:
        return GetSysColor(COLOR_BTNHIGHLIGHT);
    default:
        return InHighContrast() ? GetSysColor(COLOR_WINDOWFRAME) : RGB(0, 0, 0);
    }
}

void DrawFrame(HDC dc, const ButtonFrame& frame)
{
    for (const FrameStroke& stroke : frame.Strokes)
    {
        const GdiObject<HPEN> pen(CreatePen(PS_SOLID, 1, ColorOf(stroke.Color)));
        const Selection selected(dc, pen.Get());
        MoveToEx(dc, stroke.Points.front().X, stroke.Points.front().Y, nullptr);
        for (std::size_t at = 1; at < stroke.Points.size(); ++at)
            LineTo(dc, stroke.Points[at].X, stroke.Points[at].Y);
    }
}

} // namespace

void PicCommand::RepaintButton()
{
    UserControl::Refresh();
    cmd.Redraw();
}

// WM_PAINT of the button, or WM_ENABLE, which shows the new state at once.
void PicCommand::PaintButton(HWND button, UINT msg)
{
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = GetFocus() == button ? UINT{ODS_FOCUS} : 0U;
    item.hwndItem = button;
    GetClientRect(button, &item.rcItem);
    if (msg == WM_PAINT)
    {
        PAINTSTRUCT paint = {};
        item.hDC = BeginPaint(button, &paint);
        Boundary([&] { DrawButton(item); });
        EndPaint(button, &paint);
    }
    else
    {
        item.hDC = Window(button).BorrowDc();
        Boundary([&] { DrawButton(item); });
        ReleaseDC(button, item.hDC);
    }
}

void PicCommand::DrawButton(const DRAWITEMSTRUCT& item)
{
    const PictureScale scale = Scale();
    ButtonPicture picture = ButtonPictureOf(PictureType, DetailStatus, scale);
    const HICON icon = SharedIcon(picture.Icon, scale);
    // An icon that could not be loaded is left out.
    if (!icon)
        picture = {};
    // Links have never shown the focus; who needs high contrast is to see it all the same.
    const bool showsFocus = !IsLinkStyle(picture.Icon) || InHighContrast();
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const bool framed = (item.itemState & ODS_FOCUS) != 0 && showsFocus;

    const ButtonFrame frame = ButtonFrameOf(ToPixelRect(item.rcItem), pressed, framed, scale);
    DrawFrame(item.hDC, frame);
    switch (item.itemAction)
    {
    case ODA_DRAWENTIRE:
    case ODA_SELECT:
        DrawFace(item, frame.Inside, picture, icon);
        break;
    case ODA_FOCUS:
        break;
    default:
        return;
    }
    if (showsFocus)
        DrawFocusIfFocused(item, static_cast<short>(-scale.Of(FocusInset)));
}

void PicCommand::DrawFace(const DRAWITEMSTRUCT& item, const PixelRect& inside, const ButtonPicture& picture,
                          HICON icon)
{
    const HDC dc = item.hDC;
    FillSolid(dc, ToRect(inside), GetSysColor(COLOR_BTNFACE));

    RECT text = item.rcItem;
    if ((item.itemState & ODS_SELECTED) != 0)
        OffsetRect(&text, Scale().Of(1), Scale().Of(1));
    const HFONT font = TheSurface().FontHandle();
    // Measured as it stands, "&" included: hosts have always seen the icon so far to the left. It is drawn in
    // the code page.
    const int captionWidth = icon && PictureType != 0 ? TextWidthInPixels(Wide(Ansi(Caption)), font) : 0;
    const ButtonLayout layout =
        ButtonLayoutOf(ToPixelRect(text), picture, PictureType, captionWidth, Scale());
    {
        const Graphics graphics(nullptr, dc, font, GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE));
        RECT caption = ToRect(layout.Caption);
        DrawCaption(dc, Caption, caption, CaptionFormat, cmd.Enabled());
    }
    const UprightPictures upright(dc);
    if (icon)
        DrawSign(
            dc, {upright.LeftOf(layout.Icon.X, picture.PicWidth, Scale().Of(SharedIconSize)), layout.Icon.Y},
            icon, {GetSysColor(cmd.Enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT), GetSysColor(COLOR_BTNFACE)});
}

} // namespace kiv
