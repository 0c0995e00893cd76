#pragma once

#include <windows.h>

#include <oaidl.h>

namespace kiv
{

// RegisterTypeLib and UnRegisterTypeLib for the current user alone.
HRESULT WINAPI RegisterUserTypeLibrary(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder) noexcept;
HRESULT WINAPI UnregisterUserTypeLibrary(REFGUID library, WORD major, WORD minor, LCID locale,
                                         SYSKIND system) noexcept;

} // namespace kiv
