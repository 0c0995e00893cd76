#pragma once

#include <windows.h>

namespace kiv
{

// The frame around a box: sunken, or as the theme has it for text boxes where the system's own controls are
// drawn by a theme.

// How the box looks at the moment, to a theme.
enum class BoxState
{
    Usual,
    Focused,
    Disabled
};

// Whether one of the system's controls is drawn by a theme: the user has chosen one, and the program has
// asked for it.
bool IsThemed(HWND control);

// Draws the theme's frame, bounds' inside left alone. window: the caller's own, not one of the system's
// controls. False, with nothing drawn, when there is no theme.
bool DrawThemeBorder(HWND window, HDC dc, const RECT& bounds, BoxState state);

// Draws the frame that the box has and makes bounds its inside. themed: whether it is a theme's.
void DrawBoxBorder(HWND window, HDC dc, RECT& bounds, BoxState state, bool themed);

} // namespace kiv
