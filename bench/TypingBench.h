#pragma once

#include <windows.h>

namespace kiv::bench
{

// A digit typed into each box that takes text, against one typed into a bare text box.
void RunTypingRows(HWND parent);

} // namespace kiv::bench
