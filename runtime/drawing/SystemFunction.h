#pragma once

#include <windows.h>

namespace kiv
{

// A function of user32 that the oldest system may not have; null there.
template<class Function>
Function* SystemFunction(const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

} // namespace kiv
