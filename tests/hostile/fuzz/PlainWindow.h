#pragma once

#include <windows.h>

namespace kiv::test
{

// A window of a class of the system's that is nobody's; of "ComboLBox" the list of a combo box.
HWND MakePlainWindow(const char* className, HWND parent);

// One of the same class and kind as a window of a control, with the same in it.
HWND PlainTwinOf(HWND window, HWND parent);

} // namespace kiv::test
