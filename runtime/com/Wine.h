#pragma once

#include <windows.h>

namespace kiv
{

// For the places that bridge what differs there.
inline bool RunsOnWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace kiv
