#pragma once

#include <windows.h>

namespace kiv
{

// The calling thread's hidden window under which controls' windows wait while no container shows them: one
// for each way in which the thread has seen resolutions. Throws ComError when it cannot be made.
HWND ParkingWindow();
// The one under which a window can come back.
HWND ParkingWindowFor(HWND window);

// Whether a window waits there.
bool IsParked(HWND window);

} // namespace kiv
