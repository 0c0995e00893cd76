#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// Adding items and painting one.
void RunChkComboRows(IClassFactory* factory, HWND parent);

} // namespace kiv::bench
