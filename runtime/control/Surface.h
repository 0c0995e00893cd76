#pragma once

#include "runtime/constituents/Window.h"
#include "runtime/core/Resolution.h"
#include "runtime/drawing/Canvas.h"
#include "runtime/drawing/FontReference.h"

#include <windows.h>

namespace kiv
{

// What a surface tells its control.
class SurfaceEvents
{
public:
    // A message of the surface's window that the surface does not handle itself. Returns what the window
    // procedure returns.
    virtual LRESULT SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) = 0;
    // Draw the content; the surface is filled with BackColor.
    virtual void SurfacePaint() = 0;
    // Holds the control while a message is handled: a host may release it in an event.
    virtual IUnknown* SurfaceOwner() noexcept = 0;

protected:
    ~SurfaceEvents() = default;
};

// A control's own window and what is drawn on it. The window exists from the beginning, under the parking
// window, and moves under a container's window while the control is active there.
class Surface final : public Window, public Canvas
{
public:
    // size: in pixels, with the sunken border that the surface may have. Throws ComError when the window
    // cannot be made.
    Surface(SurfaceEvents& events, SIZE size, bool bordered);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface();

    // The colours and the enabled state of a new surface.
    void Reset();

    // To a place in the container's window, of which only what lies in clip shows (an empty clip clips
    // nothing). Both in pixels of that window.
    void Place(const RECT& position, const RECT& clip, bool show);
    void Show(bool shown);
    // Back under the parking window, hidden.
    void Park();

    // Turns, with its constituents, to the direction of the window around it; a parked one is never mirrored.
    // Returns whether it has turned: it is to be laid out anew then.
    bool FollowDirection();

    // That of its window, as it was last looked at: what the surface measures and draws is for it. A parked
    // window keeps the one that it had.
    const Resolution& TheResolution() const { return resolution_; }
    // Looks anew; returns whether it has become another one.
    bool RenewResolution();
    bool ContainsFocus() const;
    // A theme's border shows where the focus is.
    void UpdateBorder() const;

    OLE_COLOR BackColor() const { return backColor_; }
    void BackColor(OLE_COLOR color) { backColor_ = color; }
    OLE_COLOR ForeColor() const { return foreColor_; }
    void ForeColor(OLE_COLOR color) { foreColor_ = color; }
    // A disabled surface raises no mouse or key events and takes no focus when it is clicked.
    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);
    const FontObject& Font() const { return font_.Get(); }
    void Font(FontObject font, FontReference::Listener onChange)
    {
        font_.Set(std::move(font), std::move(onChange));
    }

    HFONT FontHandle() const override { return font_.Handle(resolution_); }

    // Inner size and text sizes, in twips.
    double ScaleWidth() const;
    double ScaleHeight() const;
    double TextWidth(std::wstring_view text) const;

    // In pixels: the inner size, and that of the window with its border.
    SIZE PixelSize() const { return InnerSize(); }
    void Resize(SIZE outerSize);

    Graphics AcquireGraphics(HFONT font = nullptr) const override;
    // Paints the whole surface, its origin at (0, 0) of the device context.
    void Paint(HDC dc);
    // The same with the constituents on it, which in a window paint themselves.
    void PaintWithConstituents(HDC dc);
    // The same within the border, which then begins at (0, 0). Leaves the device context's origin moved.
    void PaintWithBorder(HDC dc);

private:
    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void PaintWindow();
    bool HasThemeBorder() const;
    bool PaintThemeBorder() const;
    bool IsSurroundingMirrored() const;

    SurfaceEvents& events_;
    HDC paintDc_ = nullptr;
    const bool bordered_;
    bool clipped_ = false;
    Resolution resolution_;
    OLE_COLOR backColor_ = 0;
    OLE_COLOR foreColor_ = 0;
    bool enabled_ = true;
    FontReference font_;
};

} // namespace kiv
