#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

#include <span>

namespace kiv::bench
{

struct ControlOfLibrary
{
    const char* Name;
    CLSID ClassId;
};

// The nine controls.
std::span<const ControlOfLibrary> Controls();

// Of the library that is registered on this machine. Throws ComError.
Microsoft::WRL::ComPtr<IClassFactory> FactoryOf(REFCLSID classId);

} // namespace kiv::bench
