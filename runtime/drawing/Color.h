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

} // namespace kiv
