#include "framework/library/Registration.h"

#include "framework/library/RegistryKey.h"
#include "runtime/com/DispatchTable.h"

#include <KivControls.h>
#include <comcat.h>

#include <string>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

constexpr WORD MajorVersion = 1;
constexpr WORD MinorVersion = 0;
constexpr wchar_t LibraryName[] = L"KivControls";

std::wstring TextOf(REFGUID guid)
{
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, ARRAYSIZE(text));
    return text;
}

std::wstring ProgIdOf(const ControlClass& controlClass)
{
    return std::wstring(LibraryName) + L"." + controlClass.Name;
}

std::wstring VersionedProgIdOf(const ControlClass& controlClass)
{
    return ProgIdOf(controlClass) + L"." + std::to_wstring(MajorVersion);
}

std::wstring ClassPathOf(const ControlClass& controlClass)
{
    return L"CLSID\\" + TextOf(controlClass.Clsid);
}

void RegisterProgId(const std::wstring& progId, const ControlClass& controlClass)
{
    const RegistryKey key(HKEY_CLASSES_ROOT, progId);
    key.Set(controlClass.Description);
    key.Subkey(L"CLSID").Set(TextOf(controlClass.Clsid));
}

void RegisterControl(const ControlClass& controlClass, const std::wstring& modulePath)
{
    const RegistryKey key(HKEY_CLASSES_ROOT, ClassPathOf(controlClass));
    key.Set(controlClass.Description);
    const RegistryKey server = key.Subkey(L"InprocServer32");
    server.Set(modulePath);
    server.Set(L"ThreadingModel", L"Apartment");
    key.Subkey(L"ProgID").Set(VersionedProgIdOf(controlClass));
    key.Subkey(L"VersionIndependentProgID").Set(ProgIdOf(controlClass));
    key.Subkey(L"Control");
    const RegistryKey miscStatus = key.Subkey(L"MiscStatus");
    miscStatus.Set(L"0");
    miscStatus.Subkey(std::to_wstring(DVASPECT_CONTENT)).Set(std::to_wstring(ControlMiscStatus));
    key.Subkey(L"ToolboxBitmap32").Set(modulePath + L", " + std::to_wstring(controlClass.ToolboxBitmap));
    key.Subkey(L"TypeLib").Set(TextOf(LIBID_KivControls));
    key.Subkey(L"Version").Set(std::to_wstring(MajorVersion) + L"." + std::to_wstring(MinorVersion));
    key.Subkey(L"Implemented Categories\\" + TextOf(CATID_Control));

    RegisterProgId(VersionedProgIdOf(controlClass), controlClass);
    RegisterProgId(ProgIdOf(controlClass), controlClass);
    RegistryKey(HKEY_CLASSES_ROOT, ProgIdOf(controlClass))
        .Subkey(L"CurVer")
        .Set(VersionedProgIdOf(controlClass));
}

#ifdef _WIN64
constexpr SYSKIND ThisSystem = SYS_WIN64;
#else
constexpr SYSKIND ThisSystem = SYS_WIN32;
#endif

} // namespace

void Register(std::span<const ControlClass* const> classes)
{
    std::wstring modulePath = ModulePath();
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(modulePath.c_str(), REGKIND_NONE, &library));
    // Not by LoadTypeLibEx itself, which may store the path in a form that hosts do not expect.
    Check(RegisterTypeLib(library.Get(), modulePath.data(), nullptr));
    for (const ControlClass* controlClass : classes)
        RegisterControl(*controlClass, modulePath);
}

void Unregister(std::span<const ControlClass* const> classes)
{
    for (const ControlClass* controlClass : classes)
    {
        RegistryKey::Remove(HKEY_CLASSES_ROOT, ClassPathOf(*controlClass));
        RegistryKey::Remove(HKEY_CLASSES_ROOT, VersionedProgIdOf(*controlClass));
        RegistryKey::Remove(HKEY_CLASSES_ROOT, ProgIdOf(*controlClass));
    }
    if (Bstr path; SUCCEEDED(QueryPathOfRegTypeLib(LIBID_KivControls, MajorVersion, MinorVersion,
                                                   LOCALE_NEUTRAL, path.Receive())))
        Check(UnRegisterTypeLib(LIBID_KivControls, MajorVersion, MinorVersion, LOCALE_NEUTRAL, ThisSystem));
}

} // namespace kiv
