#pragma once

#include <windows.h>

namespace kiv
{

// How far a character's picture reaches beyond the width that the system gives the character, in pixels: in a
// slanted font it does so at the right, by several.
struct GlyphReach
{
    int Left = 0;
    int Right = 0;

    bool operator==(const GlyphReach&) const = default;
};

// Found by drawing the character: what fonts say about it leaves out what the system does to them.
GlyphReach ReachOf(HFONT font, wchar_t character);

// The furthest reach of any character that amounts are shown with. A thread's latest fonts are remembered.
GlyphReach ReachOfAmounts(HFONT font);

} // namespace kiv
