#pragma once

#include "runtime/constituents/Label.h"
#include "runtime/control/Surface.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"

namespace kiv::test
{

// A surface that shows one label.
class LabelSheet final : public SurfaceEvents
{
public:
    static constexpr SIZE Outer = {120, 60};
    static constexpr RECT Place = {10, 5, 100, 20};
    static constexpr COLORREF Back = RGB(0, 128, 160);
    static constexpr COLORREF LabelBack = RGB(250, 240, 200);
    static constexpr COLORREF LabelFore = RGB(200, 40, 10);

    explicit LabelSheet(Label::Alignment alignment, Label::Content content = Label::Content::Text,
                        bool bordered = false);

    void Font(const FontFacts& facts)
    {
        TheSurface.Font(MakeFont(facts).Get(), [] {});
    }
    // Of another width, with the edge where it is at which the caption stands; of another height downwards.
    void Resize(int width, int height = Place.bottom - Place.top);
    // How wide the system says that a text is.
    int WidthOf(std::wstring_view text) const;

    Pixels Painted();

    Surface TheSurface;
    Label TheLabel;

private:
    LRESULT SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    void SurfacePaint() override { TheLabel.Draw(); }
    IUnknown* SurfaceOwner() noexcept override { return nullptr; }

    const Label::Alignment alignment_;
};

// What a sheet is to show, by the system's own means: each of the colours where it belongs, and text of which
// every character stands where those before it end, with nothing clipped off.
class LabelPicture
{
public:
    explicit LabelPicture(const LabelSheet& sheet);
    LabelPicture(const LabelPicture&) = delete;
    LabelPicture& operator=(const LabelPicture&) = delete;
    ~LabelPicture();

    // So many pixels to the right of the place's left edge, below its top.
    LabelPicture& Write(std::wstring_view text, int left, int top = 0,
                        COLORREF color = LabelSheet::LabelFore);
    // The last character ends so many pixels before the place's right edge.
    LabelPicture& WriteAtRight(std::wstring_view text, int margin = 0);
    LabelPicture& Emboss(std::wstring_view text, int left);
    // What is drawn from here on stays within the place, or a pixel beside it.
    LabelPicture& Clip();
    Pixels Content() const { return canvas_.Content(); }

private:
    const RECT place_;
    Canvas canvas_{LabelSheet::Outer};
    HGDIOBJ former_;
};

} // namespace kiv::test
