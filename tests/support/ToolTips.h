#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kiv::test
{

// Windows of the system's tool tips in the calling thread, shown or not.
std::vector<HWND> ToolTips();

// The text of the one that is shown; empty where none is.
std::wstring ShownToolTip();

} // namespace kiv::test
