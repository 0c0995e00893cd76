#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

namespace kiv::host
{

// A control's default source dispinterface; Description is null when the control has none that it describes.
struct EventInterface
{
    IID Id = IID_NULL;
    Microsoft::WRL::ComPtr<ITypeInfo> Description;
};

// Asks IProvideClassInfo first, then looks in the type library of the control's default interface.
EventInterface FindEventInterface(IUnknown* control);

} // namespace kiv::host
