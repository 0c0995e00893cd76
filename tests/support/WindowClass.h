#pragma once

#include <windows.h>

#include <string>

namespace kiv::test
{

// The name of a window's class, in the system's spelling.
std::string ClassNameOf(HWND window);
// Whether a window is of a class of the system's or another; class names have no case.
bool IsOfClass(HWND window, const char* className);

} // namespace kiv::test
