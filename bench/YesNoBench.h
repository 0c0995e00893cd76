#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// Prints the rows of YesNo. parent: a visible window for controls to be active in.
void RunYesNoRows(IClassFactory* factory, HWND parent);

} // namespace kiv::bench
