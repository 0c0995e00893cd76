#pragma once

#include <windows.h>

namespace kiv
{

// The OLE_COLOR that names one of the system's colours (COLOR_BTNFACE and so on).
constexpr DWORD SystemColor(int index)
{
    return 0x80000000U | static_cast<DWORD>(index);
}

// The colour that an OLE_COLOR stands for now. A number that names no colour is black.
COLORREF ResolvedColor(DWORD oleColor);

// Whether the user has asked the system for few colours that stand out: what is disabled is then drawn in the
// scheme's colour for that, and nothing embossed.
bool InHighContrast();

} // namespace kiv
