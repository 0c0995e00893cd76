// What labels show of captions that they have no room for.

#include "tests/module/LabelSheet.h"
#include "tests/support/MeasuredText.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr int PlaceWidth = LabelSheet::Place.right - LabelSheet::Place.left;

// Upright and slanted, with bitmaps, outlines and both, and bold by the system.
const FontFacts Fonts[] = {
    {.Name = L"Tahoma", .Size = {{82500, 0}}},
    {.Name = L"Tahoma", .Size = {{82500, 0}}, .Weight = FW_BOLD},
    {.Name = L"Tahoma", .Size = {{97500, 0}}},
    {.Name = L"Tahoma", .Size = {{82500, 0}}, .Italic = true},
    {.Name = L"Tahoma", .Size = {{120000, 0}}, .Italic = true},
    {.Name = L"MS Sans Serif", .Size = {{82500, 0}}},
    {.Name = L"MS Sans Serif", .Size = {{82500, 0}}, .Weight = FW_BOLD, .Italic = true},
};

class AmountLabel
{
public:
    explicit AmountLabel(const FontFacts& font = Fonts[0])
    {
        Sheet.Font(font);
        for (const wchar_t character : std::wstring_view(L"0123456789-.,#"))
        {
            const Ink ink = InkOf(Sheet.TheSurface.FontHandle(), character);
            Left = std::max(Left, -ink.First);
            Right = std::max(Right, ink.End - Sheet.WidthOf({&character, 1}));
        }
    }

    // What shows all of an amount, at the least.
    int WidthFor(std::wstring_view amount) const { return Left + Sheet.WidthOf(amount) + Right; }
    Pixels Shown(std::wstring_view amount)
    {
        Sheet.TheLabel.Caption(amount);
        return Sheet.Painted();
    }
    Pixels Expected(std::wstring_view text) const
    {
        return LabelPicture(Sheet).Clip().WriteAtRight(text, Right).Content();
    }
    // How many there are to be in a place.
    std::wstring Signs(int width) const
    {
        const int count = (width - Left - Right) / Sheet.WidthOf(L"#");
        return std::wstring(static_cast<std::size_t>(std::max(count, 1)), L'#');
    }

    LabelSheet Sheet{Label::Alignment::Right, Label::Content::Amount};
    // How far the characters reach beyond their widths.
    int Left = 0;
    int Right = 0;
};

// Whether there is ink in a column beside the label.
bool HasInk(const Pixels& pixels, int x)
{
    for (int y = 0; y < LabelSheet::Outer.cy; ++y)
    {
        if (pixels.At(x, y) != LabelSheet::Back)
            return true;
    }
    return false;
}

TEST(AmountLabelTest, LosesNoPixelOfAnyDigit)
{
    for (const FontFacts& font : Fonts)
    {
        SCOPED_TRACE(testing::Message() << font);
        AmountLabel label(font);
        for (const wchar_t digit : std::wstring_view(L"0123456789"))
        {
            for (const std::wstring before : {L"", L"-", L"1,2", L"7,654.0"})
            {
                const std::wstring amount = before + digit;
                label.Sheet.Resize(label.WidthFor(amount), label.Sheet.TheLabel.LineHeight());
                const Pixels shown = label.Shown(amount);
                // The picture is not clipped.
                const Pixels expected = LabelPicture(label.Sheet).WriteAtRight(amount, label.Right).Content();
                EXPECT_EQ(Difference(expected, shown), "") << amount;
                const RECT place = label.Sheet.TheLabel.Place();
                EXPECT_FALSE(HasInk(shown, place.left - 1));
                EXPECT_FALSE(HasInk(shown, place.right));
            }
        }
    }
}

TEST(AmountLabelTest, IsShownWhereItJustFits)
{
    for (const FontFacts& font : Fonts)
    {
        SCOPED_TRACE(testing::Message() << font);
        AmountLabel label(font);
        for (const wchar_t* amount : {L"7", L"-7", L"1,234", L"-1,234.50", L".50", L"100."})
        {
            const int width = label.WidthFor(amount);
            label.Sheet.Resize(width);
            EXPECT_EQ(Difference(label.Expected(amount), label.Shown(amount)), "");
            EXPECT_FALSE(label.Sheet.TheLabel.IsCut());
            label.Sheet.Resize(width - 1);
            EXPECT_EQ(Difference(label.Expected(label.Signs(width - 1)), label.Shown(amount)), "");
            EXPECT_TRUE(label.Sheet.TheLabel.IsCut());
        }
    }
}

TEST(AmountLabelTest, GivesWayToSignsAndNeverShowsPartOfADigit)
{
    AmountLabel label;
    const std::wstring amount = L"-98,765.43";
    for (int width = 0; width < label.WidthFor(amount); ++width)
    {
        SCOPED_TRACE(width);
        label.Sheet.Resize(width);
        EXPECT_EQ(Difference(label.Expected(label.Signs(width)), label.Shown(amount)), "");
        EXPECT_TRUE(label.Sheet.TheLabel.IsCut());
        EXPECT_EQ(label.Sheet.TheLabel.Caption(), amount);
    }
}

TEST(AmountLabelTest, FillsItsPlaceWithSigns)
{
    AmountLabel label;
    label.Sheet.Resize(PlaceWidth);
    const std::wstring signs = label.Signs(PlaceWidth);
    EXPECT_LE(label.WidthFor(signs), PlaceWidth);
    EXPECT_GT(label.WidthFor(signs + L"#"), PlaceWidth);
    EXPECT_EQ(Difference(label.Expected(signs), label.Shown(L"99,999,999,999,999.99")), "");
}

TEST(AmountLabelTest, ShowsPartOfASignWhereNoneHasRoom)
{
    AmountLabel label;
    label.Sheet.Resize(label.Sheet.WidthOf(L"#") - 3);
    const Pixels shown = label.Shown(L"12");
    EXPECT_EQ(Difference(label.Expected(L"#"), shown), "");
    EXPECT_GT(shown.Count(LabelSheet::LabelFore), 0);
}

TEST(AmountLabelTest, ShowsNothingForNoAmount)
{
    AmountLabel label;
    for (const int width : {PlaceWidth, 1, 0, -3})
    {
        label.Sheet.Resize(width);
        EXPECT_EQ(Difference(LabelPicture(label.Sheet).Content(), label.Shown(L"")), "");
        EXPECT_FALSE(label.Sheet.TheLabel.IsCut());
    }
}

TEST(AmountLabelTest, IsEmbossedWithItsSignsWhileDisabled)
{
    AmountLabel label;
    label.Sheet.TheLabel.Enabled(false);
    for (const wchar_t* amount : {L"98,765.43", L"99,999,999,999,999"})
    {
        const bool fits = label.WidthFor(amount) <= PlaceWidth;
        const std::wstring text = fits ? amount : label.Signs(PlaceWidth);
        const int left = PlaceWidth - label.Sheet.WidthOf(text);
        EXPECT_EQ(Difference(LabelPicture(label.Sheet).Emboss(text, left).Content(), label.Shown(amount)),
                  "");
    }
}

// A font may change while it is in use.
TEST(AmountLabelTest, FollowsItsFont)
{
    AmountLabel label;
    const std::wstring amount = L"1,234.50";
    const int width = label.WidthFor(amount);
    label.Sheet.Resize(width);
    EXPECT_EQ(Difference(label.Expected(amount), label.Shown(amount)), "");
    Microsoft::WRL::ComPtr<IFont> font;
    ASSERT_HRESULT_SUCCEEDED(label.Sheet.TheSurface.Font().As(&font));
    ASSERT_HRESULT_SUCCEEDED(font->put_Bold(TRUE));
    EXPECT_TRUE(label.Sheet.TheLabel.IsCut());
    EXPECT_EQ(Difference(label.Expected(label.Signs(width)), label.Sheet.Painted()), "");
    ASSERT_HRESULT_SUCCEEDED(font->put_Bold(FALSE));
    EXPECT_FALSE(label.Sheet.TheLabel.IsCut());
    EXPECT_EQ(Difference(label.Expected(amount), label.Sheet.Painted()), "");
}

// --- Text ---

class TextLabel
{
public:
    Pixels Shown(std::wstring_view text)
    {
        Sheet.TheLabel.Caption(text);
        return Sheet.Painted();
    }
    Pixels Expected(std::wstring_view text) const
    {
        return LabelPicture(Sheet).Clip().Write(text, 0).Content();
    }

    // What shows all of a text, at the least.
    int WidthFor(const std::wstring& text) const
    {
        const Ink ink = InkOf(Sheet.TheSurface.FontHandle(), text.back());
        const int last = Sheet.WidthOf(text.substr(text.size() - 1));
        return Sheet.WidthOf(text) + std::max(ink.End - last, 0);
    }

    LabelSheet Sheet{Label::Alignment::Left};
};

TEST(TextLabelTest, EndsInAnEllipsisWhereItDoesNotFit)
{
    TextLabel label;
    const std::wstring text = L"Married, i.e. jointly";
    for (int width = label.WidthFor(text); width > 0; --width)
    {
        SCOPED_TRACE(width);
        label.Sheet.Resize(width);
        std::wstring expected = text;
        for (std::size_t kept = text.size(); label.WidthFor(expected) > width; --kept)
        {
            expected = text.substr(0, kept) + L"...";
            if (kept == 0)
                break;
        }
        EXPECT_EQ(Difference(label.Expected(expected), label.Shown(text)), "");
        EXPECT_EQ(label.Sheet.TheLabel.IsCut(), expected != text);
        EXPECT_EQ(label.Sheet.TheLabel.Caption(), text);
    }
}

TEST(TextLabelTest, IsCutWhereLinesAreHidden)
{
    const struct
    {
        const wchar_t* Text;
        const wchar_t* Shown;
    } rows[] = {{L"Head\r\nUnmarried", L"Head..."},
                {L"Head\nUnmarried", L"Head..."},
                {L"Head\rUnmarried", L"Head..."},
                {L"Head\r\n\r\nUnmarried", L"Head..."},
                {L"\r\nUnmarried", L"..."},
                {L"Head\r\n", L"Head"},
                {L"Head\r\n\r\n", L"Head"},
                {L"\r\n", L""},
                {L"", L""}};
    TextLabel label;
    for (const auto& row : rows)
    {
        EXPECT_EQ(Difference(label.Expected(row.Shown), label.Shown(row.Text)), "");
        EXPECT_EQ(label.Sheet.TheLabel.IsCut(), std::wstring_view(row.Shown).ends_with(L"...")) << row.Text;
    }
}

TEST(TextLabelTest, LosesNoPixelOfItsLastLetter)
{
    for (const FontFacts& font : Fonts)
    {
        SCOPED_TRACE(testing::Message() << font);
        TextLabel label;
        label.Sheet.Font(font);
        const int height = label.Sheet.TheLabel.LineHeight();
        for (const std::wstring text : {L"Relief", L"Duty", L"NJ", L"Half..."})
        {
            label.Sheet.Resize(label.WidthFor(text), height);
            // The picture is not clipped.
            const Pixels expected = LabelPicture(label.Sheet).Write(text, 0).Content();
            const Pixels shown = label.Shown(text);
            EXPECT_EQ(Difference(expected, shown), "");
            EXPECT_FALSE(HasInk(shown, label.Sheet.TheLabel.Place().right));
            label.Sheet.Resize(label.WidthFor(text) - 1, height);
            EXPECT_TRUE(label.Sheet.TheLabel.IsCut());
        }
    }
}

// Two units of UTF-16 that are one character stay together.
TEST(TextLabelTest, HalvesNoCharacter)
{
    TextLabel label;
    const std::wstring text = L"i\U0001D11Ei\U0001D11Ei\U0001D11E";
    for (int width = label.Sheet.WidthOf(text) - 1; width > label.Sheet.WidthOf(L"i..."); --width)
    {
        label.Sheet.Resize(width);
        const Pixels shown = label.Shown(text);
        const auto is = [&](std::size_t kept) {
            return shown == label.Expected(text.substr(0, kept) + L"...");
        };
        EXPECT_TRUE(is(1) || is(3) || is(4) || is(6) || is(7)) << width;
    }
}

TEST(TextLabelTest, TakesALineOfAnyLength)
{
    TextLabel label;
    for (const std::size_t length : {1000, 5000, 100000})
    {
        const Pixels shown = label.Shown(std::wstring(length, L'i'));
        EXPECT_EQ(Difference(label.Shown(std::wstring(200, L'i')), shown), "") << length;
    }
}

TEST(TextLabelTest, FollowsItsFont)
{
    TextLabel label;
    const std::wstring text = L"Married";
    label.Sheet.Resize(label.Sheet.WidthOf(text));
    EXPECT_EQ(Difference(label.Expected(text), label.Shown(text)), "");
    label.Sheet.Font({.Size = {{120000, 0}}});
    EXPECT_TRUE(label.Sheet.TheLabel.IsCut());
    label.Sheet.Font(Fonts[0]);
    EXPECT_FALSE(label.Sheet.TheLabel.IsCut());
}

} // namespace

} // namespace kiv::test
