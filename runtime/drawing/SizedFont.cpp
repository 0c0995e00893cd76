#include "runtime/drawing/SizedFont.h"

#include "runtime/com/PerThread.h"
#include "runtime/drawing/FontKey.h"

#include <algorithm>
#include <vector>

namespace kiv
{

namespace
{

struct KnownFont
{
    FontKey Like;
    LONG Height = 0;
    std::weak_ptr<const GdiObject<HFONT>> Font;
};

struct KnownFonts
{
    std::vector<KnownFont> All;
};

SizedFont Make(HFONT like, LONG height)
{
    LOGFONTW attributes = {};
    if (GetObjectW(like, sizeof attributes, &attributes) == 0)
        return nullptr;
    // 0 is a font's usual width.
    if (attributes.lfHeight != 0)
        attributes.lfWidth = MulDiv(attributes.lfWidth, height, attributes.lfHeight);
    attributes.lfHeight = height;
    GdiObject<HFONT> font(CreateFontIndirectW(&attributes));
    return font ? std::make_shared<const GdiObject<HFONT>>(std::move(font)) : nullptr;
}

} // namespace

SizedFont FontOfHeight(HFONT like, LONG height)
{
    auto& known = PerThread<KnownFonts>().All;
    std::erase_if(known, [](const KnownFont& each) { return each.Font.expired(); });
    const FontKey key(like);
    const auto found = std::ranges::find_if(
        known, [&](const KnownFont& each) { return each.Height == height && each.Like == key; });
    if (found != known.end())
        return found->Font.lock();
    SizedFont made = Make(like, height);
    if (made)
        known.push_back({key, height, made});
    return made;
}

} // namespace kiv
