#include "framework/library/Registration.h"

#include "framework/library/RegistryKey.h"
#include "runtime/com/DispatchTable.h"

#include <KivControls.h>
#include <comcat.h>

#include <string>

using Microsoft::WRL::ComPtr;

extern "C"
{
    // The system has them since Windows 7; the compiler's headers do not.
    HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
    HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                            SYSKIND system);
}

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

#ifdef _WIN64
constexpr SYSKIND ThisSystem = SYS_WIN64;
constexpr wchar_t ThisPlatform[] = L"win64";
#else
constexpr SYSKIND ThisSystem = SYS_WIN32;
constexpr wchar_t ThisPlatform[] = L"win32";
#endif

std::wstring LibraryPathOf()
{
    return L"TypeLib\\" + TextOf(LIBID_KivControls) + L"\\" + std::to_wstring(MajorVersion) + L"." +
           std::to_wstring(MinorVersion) + L"\\0\\" + ThisPlatform;
}

// Where classes are registered, and how a type library gets there and away.
struct Audience
{
    HKEY Root;
    const wchar_t* Below; // the root
    HRESULT (*RegisterLibrary)(ITypeLib* library, std::wstring& path);
    void (*UnregisterLibrary)();

    RegistryKey Key(const std::wstring& path) const { return RegistryKey(Root, Below + path); }
    bool Has(const std::wstring& path) const { return RegistryKey::Exists(Root, Below + path); }
    bool Remove(const std::wstring& path) const { return RegistryKey::Remove(Root, Below + path); }
};

constexpr wchar_t UserClasses[] = L"Software\\Classes\\";

HRESULT RegisterLibraryForAll(ITypeLib* library, std::wstring& path)
{
    return RegisterTypeLib(library, path.data(), nullptr);
}

HRESULT RegisterLibraryForUser(ITypeLib* library, std::wstring& path)
{
    return RegisterTypeLibForUser(library, path.data(), nullptr);
}

void UnregisterLibraryForAll()
{
    Check(UnRegisterTypeLib(LIBID_KivControls, MajorVersion, MinorVersion, LOCALE_NEUTRAL, ThisSystem));
}

// The system reads the file for that, which may be gone by now, and Wine looks only among what is for all
// users. Whatever comes of it, hosts are not to be led there any more.
void UnregisterLibraryForUser()
{
    UnRegisterTypeLibForUser(LIBID_KivControls, MajorVersion, MinorVersion, LOCALE_NEUTRAL, ThisSystem);
    RegistryKey::Remove(HKEY_CURRENT_USER, UserClasses + LibraryPathOf());
}

// The root of all classes, not the machine's: a host that redirects it has everything go there.
const Audience AllUsers = {HKEY_CLASSES_ROOT, L"", &RegisterLibraryForAll, &UnregisterLibraryForAll};
const Audience CurrentUser = {HKEY_CURRENT_USER, UserClasses, &RegisterLibraryForUser,
                              &UnregisterLibraryForUser};

void RegisterProgId(const Audience& audience, const std::wstring& progId, const ControlClass& controlClass)
{
    const RegistryKey key = audience.Key(progId);
    key.Set(controlClass.Description);
    key.Subkey(L"CLSID").Set(TextOf(controlClass.Clsid));
}

void RegisterControl(const Audience& audience, const ControlClass& controlClass,
                     const std::wstring& modulePath)
{
    const RegistryKey key = audience.Key(ClassPathOf(controlClass));
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

    RegisterProgId(audience, VersionedProgIdOf(controlClass), controlClass);
    RegisterProgId(audience, ProgIdOf(controlClass), controlClass);
    audience.Key(ProgIdOf(controlClass)).Subkey(L"CurVer").Set(VersionedProgIdOf(controlClass));
}

void RegisterFor(const Audience& audience, std::span<const ControlClass* const> classes, ITypeLib* library,
                 std::wstring modulePath)
{
    // Not by LoadTypeLibEx itself, which may store the path in a form that hosts do not expect.
    Check(audience.RegisterLibrary(library, modulePath));
    for (const ControlClass* controlClass : classes)
        RegisterControl(audience, *controlClass, modulePath);
}

// Answers whether there was any class.
bool UnregisterFor(const Audience& audience, std::span<const ControlClass* const> classes)
{
    bool found = false;
    for (const ControlClass* controlClass : classes)
    {
        for (const std::wstring& path :
             {ClassPathOf(*controlClass), VersionedProgIdOf(*controlClass), ProgIdOf(*controlClass)})
            found = audience.Remove(path) || found;
    }
    if (audience.Has(LibraryPathOf()))
        audience.UnregisterLibrary();
    return found;
}

// Whatever the reason is that it is not: what the user may do is tried next, and fails for itself. Nothing
// stays half done, as far as that may be taken back.
bool IsRegisteredForAll(std::span<const ControlClass* const> classes, ITypeLib* library,
                        const std::wstring& modulePath)
{
    try
    {
        RegisterFor(AllUsers, classes, library, modulePath);
        return true;
    }
    catch (const ComError&)
    {
    }
    try
    {
        UnregisterFor(AllUsers, classes);
    }
    catch (const ComError&)
    {
    }
    return false;
}

} // namespace

void Register(std::span<const ControlClass* const> classes)
{
    const std::wstring modulePath = ModulePath();
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(modulePath.c_str(), REGKIND_NONE, &library));
    // The user's own entries would hide those for all users.
    UnregisterFor(CurrentUser, classes);
    if (!IsRegisteredForAll(classes, library.Get(), modulePath))
        RegisterFor(CurrentUser, classes, library.Get(), modulePath);
}

void Unregister(std::span<const ControlClass* const> classes)
{
    const bool found = UnregisterFor(CurrentUser, classes);
    try
    {
        UnregisterFor(AllUsers, classes);
    }
    catch (const ComError&)
    {
        // The library of all users stays where only an administrator may take it away.
        if (!found)
            throw;
    }
}

} // namespace kiv
