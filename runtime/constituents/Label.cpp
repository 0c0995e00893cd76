#include "runtime/constituents/Label.h"

#include "runtime/drawing/Color.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr std::wstring_view LineEnds = L"\r\n";

// Takes the first line off a text, with its end.
std::wstring_view TakeLine(std::wstring_view& text)
{
    const std::wstring_view line = text.substr(0, text.find_first_of(LineEnds));
    text.remove_prefix(line.size());
    text.remove_prefix(text.starts_with(LineEnds) ? LineEnds.size() : std::min<std::size_t>(text.size(), 1));
    return line;
}

} // namespace

Label::Label(const Canvas& canvas, Alignment alignment, Content content) :
    canvas_(canvas),
    alignment_(alignment),
    content_(content),
    backColor_(SystemColor(COLOR_WINDOW)),
    foreColor_(SystemColor(COLOR_WINDOWTEXT))
{
}

void Label::Caption(std::wstring_view caption)
{
    caption_ = caption;
    fitted_.clear();
}

void Label::Move(int left, int top, int width, int height)
{
    fitted_.clear();
    place_ = {left, top, left + width, top + height};
}

int Label::LineHeight() const
{
    return LineHeightInPixels(UsedFont());
}

bool Label::IsCut() const
{
    return std::ranges::any_of(Fitted(), &FittedLine::IsCut);
}

const std::vector<FittedLine>& Label::Fitted() const
{
    const HFONT font = UsedFont();
    const FontKey key(font);
    if (fitted_.empty() || key != fittedFont_)
    {
        fitted_ = Fit(font);
        fittedFont_ = key;
    }
    return fitted_;
}

// For the screen, whatever is drawn on: a printed form shows what the user has seen.
std::vector<FittedLine> Label::Fit(HFONT font) const
{
    std::vector<FittedLine> lines;
    if (content_ == Content::Amount)
    {
        lines.push_back(FitAmount(font, caption_, Width()));
        return lines;
    }
    const int room = (place_.bottom - place_.top) / std::max(LineHeightInPixels(font), 1);
    std::wstring_view rest = caption_;
    do
    {
        const std::wstring_view line = TakeLine(rest);
        const bool isLast = static_cast<int>(lines.size()) + 1 >= room;
        const bool isFollowed = isLast && rest.find_first_not_of(LineEnds) != rest.npos;
        lines.push_back(FitText(font, line, Width(), isFollowed));
        if (isLast)
            break;
    } while (!rest.empty());
    return lines;
}

int Label::LeftOf(const FittedLine& line) const
{
    const int free = Width() - line.Line.Width() - line.RightMargin;
    switch (alignment_)
    {
    case Alignment::Centre:
        return place_.left + free / 2;
    case Alignment::Right:
        return place_.left + free;
    default:
        return place_.left;
    }
}

void Label::Draw() const
{
    const Graphics graphics = canvas_.AcquireGraphics(font_);
    const HDC dc = graphics.Dc();
    FillSolid(dc, place_, ResolvedColor(backColor_));
    if (caption_.empty())
        return;

    // An embossed one stands out by a pixel.
    const RECT room = {place_.left - 1, place_.top, place_.right + 1, place_.bottom};
    const std::vector<FittedLine>& lines = Fitted();
    const int lineHeight = lines.size() > 1 ? LineHeight() : 0;
    const auto write = [&](int shift) {
        int top = place_.top + shift;
        for (const FittedLine& line : lines)
        {
            line.Line.Draw(dc, LeftOf(line) + shift, top, &room);
            top += lineHeight;
        }
    };
    if (enabled_)
    {
        SetTextColor(dc, ResolvedColor(foreColor_));
        write(0);
    }
    else
    {
        DrawEmbossed(dc, write);
    }
}

} // namespace kiv
