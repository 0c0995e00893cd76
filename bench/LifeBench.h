#pragma once

#include <windows.h>

namespace kiv::bench
{

// Creating, activating and destroying a control of each class, against doing that with windows like its own.
void RunLifeRows(HWND parent);

} // namespace kiv::bench
