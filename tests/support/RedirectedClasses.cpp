#include "tests/support/RedirectedClasses.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

constexpr wchar_t RefusingPath[] = L"Software\\KivCtls refusing";

void CheckStatus(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw ComError(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

HKEY Made(HKEY parent, const std::wstring& path, DWORD options)
{
    HKEY key = nullptr;
    CheckStatus(
        RegCreateKeyExW(parent, path.c_str(), 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &key, nullptr));
    return key;
}

} // namespace

RedirectedClasses RedirectedClasses::OfCurrentUser()
{
    return RedirectedClasses(HKEY_CURRENT_USER, L"Software\\Classes");
}

RedirectedClasses RedirectedClasses::OfAllUsers()
{
    return RedirectedClasses(HKEY_LOCAL_MACHINE, L"Software\\Classes");
}

RedirectedClasses::RedirectedClasses(HKEY root, const std::wstring& path) :
    key_(Made(root, path, REG_OPTION_NON_VOLATILE))
{
    const LSTATUS status = RegOverridePredefKey(HKEY_CLASSES_ROOT, key_);
    if (status != ERROR_SUCCESS)
        RegCloseKey(key_);
    CheckStatus(status);
}

RedirectedClasses::~RedirectedClasses()
{
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(key_);
}

RefusingClasses::RefusingClasses(const std::wstring& typeLibrary) :
    RedirectedClasses(HKEY_CURRENT_USER, RefusingPath)
{
    RegDeleteTreeW(Key(), L"CLSID");
    // What does not outlive the session takes nothing below it that does.
    RegCloseKey(Made(Key(), L"CLSID", REG_OPTION_VOLATILE));
    // The system does not take away what it cannot load.
    const wchar_t* const platform = sizeof(void*) == 8 ? L"win64" : L"win32";
    RegCloseKey(Made(Key(), L"TypeLib\\" + typeLibrary + L"\\1.0\\0\\" + platform, REG_OPTION_NON_VOLATILE));
}

RefusingClasses::~RefusingClasses()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, RefusingPath);
}

} // namespace kiv::test
