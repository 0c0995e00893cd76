#include "runtime/drawing/FittedLine.h"

#include "runtime/drawing/GlyphReach.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr wchar_t NumberSign[] = L"#";
constexpr wchar_t Ellipsis[] = L"...";

// No place is as wide as so many characters, and the system measures not many more at once.
constexpr std::size_t LongestMeasured = 4096;

// How far a line's picture reaches beyond its width.
int ReachBehind(HFONT font, std::wstring_view line)
{
    return line.empty() ? 0 : ReachOf(font, line.back()).Right;
}

} // namespace

FittedLine FitAmount(HFONT font, std::wstring_view amount, int width)
{
    const GlyphReach reach = ReachOfAmounts(font);
    const int room = width - reach.Left - reach.Right;
    FittedLine fitted = {TextLine(font, amount.substr(0, LongestMeasured)), reach.Right};
    if (fitted.Line.Width() <= room || amount.empty())
        return fitted;
    const int sign = std::max(TextLine(font, NumberSign).Width(), 1);
    const auto signs = static_cast<std::size_t>(std::max(room / sign, 1));
    return {TextLine(font, std::wstring(signs, NumberSign[0])), reach.Right, true};
}

FittedLine FitText(HFONT font, std::wstring_view line, int width, bool isFollowed)
{
    const std::wstring_view measured = line.substr(0, LongestMeasured);
    TextLine whole(font, measured);
    const bool fits = measured.size() == line.size() && whole.Width() + ReachBehind(font, line) <= width;
    if (fits && !isFollowed)
        return {std::move(whole)};
    const int room = width - TextLine(font, Ellipsis).Width() - ReachBehind(font, Ellipsis);
    std::size_t kept = whole.CountWithin(room);
    // No half of a character that takes two units.
    if (kept > 0 && kept < measured.size() && IS_HIGH_SURROGATE(measured[kept - 1]))
        --kept;
    return {TextLine(font, std::wstring(measured.substr(0, kept)) + Ellipsis), 0, true};
}

} // namespace kiv
