#include "runtime/drawing/BoxBorder.h"

#include "runtime/drawing/SavedDc.h"
#include "runtime/drawing/WindowResolution.h"

#include <uxtheme.h>
#include <vssym32.h>

namespace kiv
{

namespace
{

// Owner of a theme's data for a window.
class Theme
{
public:
    Theme(HWND window, const wchar_t* classes) : theme_(OpenThemeData(window, classes)) {}
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;
    ~Theme()
    {
        if (theme_)
            CloseThemeData(theme_);
    }

    HTHEME Get() const { return theme_; }

private:
    HTHEME theme_;
};

int StateOf(BoxState state)
{
    switch (state)
    {
    case BoxState::Focused:
        return ETS_FOCUSED;
    case BoxState::Disabled:
        return ETS_DISABLED;
    default:
        return ETS_NORMAL;
    }
}

RECT InsideOf(HWND window, RECT bounds)
{
    const Resolution resolution = ResolutionOf(window);
    InflateRect(&bounds, -SystemMetric(SM_CXEDGE, resolution), -SystemMetric(SM_CYEDGE, resolution));
    return bounds;
}

} // namespace

bool IsThemed(HWND control)
{
    return control && GetWindowTheme(control);
}

// As the system's edit box draws it.
bool DrawThemeBorder(HWND window, HDC dc, const RECT& bounds, BoxState state)
{
    const Theme theme(window, L"Edit");
    if (!theme.Get())
        return false;
    const SavedDc saved(dc);
    RECT whole = bounds;
    const RECT inside = InsideOf(window, bounds);
    ExcludeClipRect(dc, inside.left, inside.top, inside.right, inside.bottom);
    if (IsThemeBackgroundPartiallyTransparent(theme.Get(), EP_EDITTEXT, StateOf(state)))
        DrawThemeParentBackground(window, dc, &whole);
    return SUCCEEDED(DrawThemeBackground(theme.Get(), dc, EP_EDITTEXT, StateOf(state), &whole, nullptr));
}

void DrawBoxBorder(HWND window, HDC dc, RECT& bounds, BoxState state, bool themed)
{
    if (themed && DrawThemeBorder(window, dc, bounds, state))
        bounds = InsideOf(window, bounds);
    else
        DrawEdge(dc, &bounds, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
}

} // namespace kiv
