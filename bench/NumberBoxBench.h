#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// Prints the rows of NumberBox. parent: a visible window for controls to be active in.
void RunNumberBoxRows(IClassFactory* factory, HWND parent);

} // namespace kiv::bench
