#pragma once

#include <windows.h>

namespace kiv::host
{

// A class of the program's windows, with the arrow for a cursor; known already when this is not the first
// call. background null: the window paints its own, or none. Throws ComError.
void RegisterWindowClass(const wchar_t* name, WNDPROC procedure, HBRUSH background);

} // namespace kiv::host
