#include "tests/module/LabelSheet.h"

#include "tests/support/MeasuredText.h"

namespace kiv::test
{

namespace
{

void Fill(HDC dc, const RECT& rectangle, COLORREF color)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    FillRect(dc, &rectangle, brush.Get());
}

} // namespace

LabelSheet::LabelSheet(Label::Alignment alignment, Label::Content content, bool bordered) :
    TheSurface(*this, Outer, bordered), TheLabel(TheSurface, alignment, content), alignment_(alignment)
{
    TheSurface.Font(CreateDefaultFont(), [] {});
    TheSurface.BackColor(Back);
    TheLabel.Move(Place.left, Place.top, Place.right - Place.left, Place.bottom - Place.top);
    TheLabel.BackColor(LabelBack);
    TheLabel.ForeColor(LabelFore);
}

void LabelSheet::Resize(int width, int height)
{
    const bool right = alignment_ == Label::Alignment::Right;
    TheLabel.Move(right ? Place.right - width : Place.left, Place.top, width, height);
}

int LabelSheet::WidthOf(std::wstring_view text) const
{
    const MemoryDc dc(nullptr);
    const Selection font(dc.Get(), TheSurface.FontHandle());
    return test::WidthOf(dc.Get(), text);
}

Pixels LabelSheet::Painted()
{
    const Canvas canvas(Outer);
    TheSurface.PaintWithBorder(canvas.Dc());
    return canvas.Content();
}

LabelPicture::LabelPicture(const LabelSheet& sheet) : place_(sheet.TheLabel.Place())
{
    former_ = SelectObject(canvas_.Dc(), sheet.TheSurface.FontHandle());
    SetBkMode(canvas_.Dc(), TRANSPARENT);
    Fill(canvas_.Dc(), {0, 0, LabelSheet::Outer.cx, LabelSheet::Outer.cy}, LabelSheet::Back);
    // A place that is less than nothing, where a control is narrower than its margins, stays as it is.
    if (!IsRectEmpty(&place_))
        Fill(canvas_.Dc(), place_, LabelSheet::LabelBack);
}

LabelPicture::~LabelPicture()
{
    SelectObject(canvas_.Dc(), former_);
}

LabelPicture& LabelPicture::Write(std::wstring_view text, int left, int top, COLORREF color)
{
    SetTextColor(canvas_.Dc(), color);
    WriteMeasured(canvas_.Dc(), place_.left + left, place_.top + top, text);
    return *this;
}

LabelPicture& LabelPicture::WriteAtRight(std::wstring_view text, int margin)
{
    return Write(text, place_.right - place_.left - margin - WidthOf(canvas_.Dc(), text));
}

LabelPicture& LabelPicture::Emboss(std::wstring_view text, int left)
{
    Write(text, left + 1, 1, GetSysColor(COLOR_BTNHIGHLIGHT));
    return Write(text, left, 0, GetSysColor(COLOR_BTNSHADOW));
}

LabelPicture& LabelPicture::Clip()
{
    IntersectClipRect(canvas_.Dc(), place_.left - 1, place_.top, place_.right + 1, place_.bottom);
    return *this;
}

} // namespace kiv::test
