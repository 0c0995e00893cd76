// Registers the library that lies beside it, or takes its registration away: for all users, or with /user for
// the current one, whatever rights he has. regsvr32 knows no such choice, and a set-up program needs an
// outcome that it can tell.
//
//   KivRegister [/user] [/u]
//
// It ends with 0 when that is done, 1 for arguments that it does not know, 2 for a library that cannot be
// loaded and 3 where the registry refuses.

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace
{

enum ExitStatus
{
    Done = 0,
    Misused = 1,
    NoLibrary = 2,
    Refused = 3,
};

struct Choice
{
    bool ForUser = false;
    bool TakesAway = false;
    bool IsKnown = true;
};

struct Release
{
    void operator()(void* memory) const { LocalFree(memory); }
};

Choice ReadArguments()
{
    int count = 0;
    const std::unique_ptr<wchar_t*, Release> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    Choice choice;
    choice.IsKnown = arguments != nullptr;
    for (int i = 1; i < count; ++i)
    {
        const std::wstring_view argument = arguments.get()[i];
        if (argument == L"/user")
            choice.ForUser = true;
        else if (argument == L"/u")
            choice.TakesAway = true;
        else
            choice.IsKnown = false;
    }
    return choice;
}

std::wstring LibraryPath()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + L"KivCtls.ocx";
}

struct Unload
{
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, Unload>;

template<class Function>
Function* Find(const Module& module, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module.get(), name)));
}

// What this process registers for all users goes to the current one from here on, type libraries included.
bool TurnToCurrentUser()
{
    HKEY classes = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &classes, nullptr) != ERROR_SUCCESS)
        return false;
    const bool turned = RegOverridePredefKey(HKEY_CLASSES_ROOT, classes) == ERROR_SUCCESS;
    RegCloseKey(classes);
    // The library needs it as well, so it stays what it is told here.
    const Module automation(LoadLibraryW(L"oleaut32.dll"));
    if (auto* const enable = Find<void WINAPI()>(automation, "OaEnablePerUserTLibRegistration"))
        enable();
    return turned;
}

ExitStatus Run(const Choice& choice)
{
    const Module library(LoadLibraryExW(LibraryPath().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!library)
        return NoLibrary;
    auto* const change =
        Find<HRESULT WINAPI()>(library, choice.TakesAway ? "DllUnregisterServer" : "DllRegisterServer");
    if (!change)
        return NoLibrary;
    if (choice.ForUser && !TurnToCurrentUser())
        return Refused;
    return SUCCEEDED(change()) ? Done : Refused;
}

} // namespace

int main()
{
    const Choice choice = ReadArguments();
    if (!choice.IsKnown)
        return Misused;
    if (FAILED(OleInitialize(nullptr)))
        return NoLibrary;
    const ExitStatus status = Run(choice);
    OleUninitialize();
    return status;
}
