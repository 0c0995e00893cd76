// The widths of plain characters agree with what the system measures of whole lines.

#include "runtime/drawing/CharacterWidths.h"
#include "runtime/drawing/Gdi.h"
#include "runtime/drawing/Graphics.h"

#include <gtest/gtest.h>

#include <string>

namespace kiv::test
{

namespace
{

GdiObject<HFONT> FontOf(const char* face, int weight, BYTE italic)
{
    LOGFONTA description = {};
    description.lfHeight = -13;
    description.lfWeight = weight;
    description.lfItalic = italic;
    lstrcpynA(description.lfFaceName, face, LF_FACESIZE);
    return GdiObject<HFONT>(CreateFontIndirectA(&description));
}

int OverhangOf(HFONT font)
{
    const MemoryDc dc(nullptr);
    const Selection selected(dc.Get(), font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc.Get(), &metrics);
    return metrics.tmOverhang;
}

TEST(CharacterWidthsTest, AgreeWithWhatTheSystemMeasures)
{
    const struct
    {
        const char* Face;
        int Weight;
        BYTE Italic;
    } fonts[] = {{"Tahoma", FW_NORMAL, FALSE},
                 {"Tahoma", FW_BOLD, FALSE},
                 {"MS Sans Serif", FW_BOLD, FALSE},
                 {"MS Sans Serif", FW_NORMAL, TRUE},
                 {"Courier New", FW_NORMAL, FALSE}};
    const std::wstring_view lines[] = {L"A", L"Married filing jointly", L"AVAVATo,.W", L"0123456789 $%()",
                                       L"wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww"};
    for (const auto& each : fonts)
    {
        const GdiObject<HFONT> font = FontOf(each.Face, each.Weight, each.Italic);
        const CharacterWidths widths(font.Get());
        for (const std::wstring_view line : lines)
        {
            SCOPED_TRACE(each.Face);
            const int measured = TextWidthInPixels(line, font.Get());
            EXPECT_FALSE(widths.FitsIn(line, measured - 1));
            // Not every system counts the overhang in.
            EXPECT_TRUE(widths.FitsIn(line, measured + OverhangOf(font.Get())));
        }
    }
}

TEST(CharacterWidthsTest, SayNothingOfOtherCharacters)
{
    const GdiObject<HFONT> font = FontOf("Tahoma", FW_NORMAL, FALSE);
    const CharacterWidths widths(font.Get());
    EXPECT_FALSE(widths.FitsIn(L"Bronx\x00E9", 10000));
    EXPECT_FALSE(widths.FitsIn(L"\x4E2D", 10000));
    EXPECT_TRUE(widths.FitsIn(L"", 0));
}

} // namespace

} // namespace kiv::test
