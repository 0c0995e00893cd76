#include "framework/library/RegistryKey.h"

#include "runtime/com/Errors.h"

#include <utility>

namespace kiv
{

namespace
{

void CheckStatus(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw ComError(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

} // namespace

RegistryKey::RegistryKey(HKEY parent, const std::wstring& path)
{
    CheckStatus(
        RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_, nullptr));
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey::~RegistryKey()
{
    if (key_)
        RegCloseKey(key_);
}

void RegistryKey::Set(const std::wstring& name, const std::wstring& text) const
{
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    CheckStatus(
        RegSetValueExW(key_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size));
}

bool RegistryKey::Remove(HKEY parent, const std::wstring& path)
{
    const LSTATUS status = RegDeleteTreeW(parent, path.c_str());
    if (status == ERROR_FILE_NOT_FOUND)
        return false;
    CheckStatus(status);
    return true;
}

bool RegistryKey::Exists(HKEY parent, const std::wstring& path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

} // namespace kiv
