#pragma once

#include "runtime/forms/Surface.h"

#include <string>
#include <string_view>

namespace kiv
{

// Text on a control's surface: drawn with the surface, in its font or one of its own, and no
// window. Whoever changes a label has the surface painted again (UserControl::Refresh).
class Label
{
public:
    enum class Alignment : UINT
    {
        Left = DT_LEFT,
        Centre = DT_CENTER,
        Right = DT_RIGHT
    };

    Label(const Surface& surface, Alignment alignment);

    const std::wstring& Caption() const { return caption_; }
    // Of several lines those are shown that have room.
    void Caption(std::wstring_view caption) { caption_ = caption; }
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

    // On the surface that is being painted: call it in UserControl_Paint.
    void Draw() const;

private:
    const Surface& surface_;
    Alignment alignment_;
    std::wstring caption_;
    OLE_COLOR backColor_;
    OLE_COLOR foreColor_;
    bool enabled_ = true;
    HFONT font_ = nullptr;
    RECT place_ = {};
};

} // namespace kiv
