#pragma once

#include "runtime/drawing/Canvas.h"
#include "runtime/drawing/FittedLine.h"
#include "runtime/drawing/FontKey.h"

#include <ocidl.h>
#include <olectl.h>

#include <string>
#include <string_view>
#include <vector>

namespace kiv
{

// Text on a control's surface: drawn with the surface, in its font or one of its own, and no
// window. Whoever changes a label has the surface painted again (UserControl::Refresh).
class Label
{
public:
    enum class Alignment
    {
        Left,
        Centre,
        Right
    };
    // What shows that a caption does not fit: lines of text end in an ellipsis, the last one also where more
    // follow that have no room. An amount, one line, gives way to number signs.
    enum class Content
    {
        Text,
        Amount
    };

    Label(const Canvas& canvas, Alignment alignment, Content content = Content::Text);

    const std::wstring& Caption() const { return caption_; }
    void Caption(std::wstring_view caption);
    OLE_COLOR BackColor() const { return backColor_; }
    void BackColor(OLE_COLOR color) { backColor_ = color; }
    OLE_COLOR ForeColor() const { return foreColor_; }
    void ForeColor(OLE_COLOR color) { foreColor_ = color; }
    // A disabled label's caption is embossed.
    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled) { enabled_ = enabled; }

    // Owned by somebody else; null for the surface's.
    void Font(HFONT font) { font_ = font; }

    // Pixels of the surface.
    void Move(int left, int top, int width, int height);
    const RECT& Place() const { return place_; }
    // What one line needs, in pixels.
    int LineHeight() const;
    // Whether there is more to the caption than is shown.
    bool IsCut() const;

    // On the surface that is being painted: call it in UserControl_Paint.
    void Draw() const;

private:
    HFONT UsedFont() const { return font_ ? font_ : canvas_.FontHandle(); }
    int Width() const { return place_.right - place_.left; }
    const std::vector<FittedLine>& Fitted() const;
    std::vector<FittedLine> Fit(HFONT font) const;
    int LeftOf(const FittedLine& line) const;

    const Canvas& canvas_;
    const Alignment alignment_;
    const Content content_;
    std::wstring caption_;
    OLE_COLOR backColor_;
    OLE_COLOR foreColor_;
    bool enabled_ = true;
    HFONT font_ = nullptr;
    RECT place_ = {};
    // The caption as it is shown, kept from one drawing to the next. Empty until it is asked for.
    mutable std::vector<FittedLine> fitted_;
    mutable FontKey fittedFont_;
};

} // namespace kiv
