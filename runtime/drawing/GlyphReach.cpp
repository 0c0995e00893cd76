#include "runtime/drawing/GlyphReach.h"

#include "runtime/com/PerThread.h"
#include "runtime/drawing/FontKey.h"
#include "runtime/drawing/Graphics.h"
#include "runtime/drawing/TextLine.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kiv
{

namespace
{

constexpr std::wstring_view AmountCharacters = L"0123456789-.,#";

// Forms seldom have as many fonts.
constexpr std::size_t Remembered = 16;

struct Reaches
{
    std::vector<std::pair<FontKey, GlyphReach>> Known;
};

// Paper to write one character on.
class Paper
{
public:
    // Without memory for it there is none, and nothing that is written shows.
    explicit Paper(SIZE size) : size_(size)
    {
        BITMAPINFO description = {};
        description.bmiHeader.biSize = sizeof description.bmiHeader;
        description.bmiHeader.biWidth = size.cx;
        description.bmiHeader.biHeight = size.cy;
        description.bmiHeader.biPlanes = 1;
        description.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ =
            GdiObject<HBITMAP>(CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<const DWORD*>(bits);
    }

    void Write(HFONT font, const TextLine& line, int left) const
    {
        const MemoryDc dc(nullptr);
        const Selection paper(dc.Get(), bitmap_.Get());
        const Selection selected(dc.Get(), font);
        PatBlt(dc.Get(), 0, 0, size_.cx, size_.cy, WHITENESS);
        line.Draw(dc.Get(), left, 0);
        GdiFlush();
    }

    bool HasInk(int column) const
    {
        constexpr DWORD white = 0xFFFFFF;
        for (int row = 0; bits_ && row < size_.cy; ++row)
        {
            if ((bits_[row * size_.cx + column] & white) != white)
                return true;
        }
        return false;
    }

private:
    SIZE size_;
    GdiObject<HBITMAP> bitmap_;
    const DWORD* bits_ = nullptr;
};

} // namespace

GlyphReach ReachOf(HFONT font, wchar_t character)
{
    const TextLine line(font, {&character, 1});
    const int height = LineHeightInPixels(font);
    // None reaches as far as it is high.
    const int air = height;
    const Paper paper({air + line.Width() + air, height});
    paper.Write(font, line, air);
    GlyphReach reach;
    for (int distance = 1; distance <= air; ++distance)
    {
        if (paper.HasInk(air - distance))
            reach.Left = distance;
        if (paper.HasInk(air + line.Width() + distance - 1))
            reach.Right = distance;
    }
    return reach;
}

GlyphReach ReachOfAmounts(HFONT font)
{
    auto& known = PerThread<Reaches>().Known;
    const FontKey key(font);
    const auto found = std::ranges::find(known, key, &std::pair<FontKey, GlyphReach>::first);
    if (found != known.end())
        return found->second;
    GlyphReach furthest;
    for (const wchar_t character : AmountCharacters)
    {
        const GlyphReach reach = ReachOf(font, character);
        furthest = {std::max(furthest.Left, reach.Left), std::max(furthest.Right, reach.Right)};
    }
    if (known.size() == Remembered)
        known.erase(known.begin());
    known.emplace_back(key, furthest);
    return furthest;
}

} // namespace kiv
