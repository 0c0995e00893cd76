#pragma once

#include <windows.h>

namespace kiv
{

// The calling thread's hidden window under which controls' windows wait while no container shows them.
// Throws ComError when it cannot be made.
HWND ParkingWindow();

// Whether a window waits there.
bool IsParked(HWND window);

} // namespace kiv
