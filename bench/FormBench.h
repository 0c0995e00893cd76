#pragma once

#include <windows.h>

namespace kiv::bench
{

// Many controls of all classes in one window: made, loaded, shown and closed, against windows like theirs.
void RunFormRows(HWND parent);

} // namespace kiv::bench
