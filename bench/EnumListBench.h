#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// Prints the rows of EnumList and its picker. parent: a visible window for controls to be active in.
void RunEnumListRows(IClassFactory* factory, HWND parent);

} // namespace kiv::bench
