#pragma once

#include <windows.h>

#include <array>
#include <string_view>

namespace kiv
{

// How wide the plain characters of a font are, to tell of many lines that they are no wider than another one
// without having each of them measured, which takes the system several times as long as adding the line to a
// list.
class CharacterWidths
{
public:
    explicit CharacterWidths(HFONT font);

    // Whether the text is certainly no wider than so many pixels. False says nothing: the text may have
    // characters that are not plain.
    bool FitsIn(std::wstring_view text, int pixels) const;

private:
    static constexpr std::size_t Plain = 128;

    int overhang_ = 0; // what an emboldened or slanted line has once
    std::array<int, Plain> widths_ = {};
};

} // namespace kiv
