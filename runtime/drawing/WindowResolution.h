#pragma once

#include "runtime/core/Resolution.h"

#include <windows.h>

namespace kiv
{

// The screen's resolution as the calling thread sees it: that of the whole system, or 96 for one that leaves
// it to the system to enlarge its windows. Font objects make their fonts for it.
Resolution ScreenResolution();

// The resolution of the part of the screen that a window is on, or that it is meant to be on: on systems that
// tell windows apart (Windows 10 and later); else the screen's.
Resolution ResolutionOf(HWND window);

// What such systems tell a window: a top-level one, and one in it.
constexpr UINT DpiChanged = 0x02E0;
constexpr UINT DpiChangedAfterParent = 0x02E3;

// GetSystemMetrics as it is at a resolution.
int SystemMetric(int index, const Resolution& resolution);

} // namespace kiv
