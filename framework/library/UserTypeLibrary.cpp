#include "framework/library/UserTypeLibrary.h"

#include "runtime/com/Wine.h"

extern "C"
{
    // The system has them since Windows 7; the compiler's headers do not.
    HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
    HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                            SYSKIND system);
}

HRESULT WINAPI kiv::RegisterUserTypeLibrary(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder) noexcept
{
    return RegisterTypeLibForUser(library, path, helpFolder);
}

HRESULT WINAPI kiv::UnregisterUserTypeLibrary(REFGUID library, WORD major, WORD minor, LCID locale,
                                              SYSKIND system) noexcept
{
    const HRESULT result = UnRegisterTypeLibForUser(library, major, minor, locale, system);
    // Wine looks for it among those for all users only, where it need not be.
    return RunsOnWine() ? S_OK : result;
}
