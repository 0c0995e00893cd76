#pragma once

#include <windows.h>

#include <string>

namespace kiv
{

// An open registry key.
class RegistryKey
{
public:
    // Opened for writing, made when it is not there. Throws ComError.
    RegistryKey(HKEY parent, const std::wstring& path);
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    RegistryKey Subkey(const std::wstring& path) const { return RegistryKey(key_, path); }
    // A text value; the empty name is the key's default value.
    void Set(const std::wstring& name, const std::wstring& text) const;
    void Set(const std::wstring& text) const { Set(L"", text); }

    // Removes a key with all below it, and answers whether there was one. Throws ComError.
    static bool Remove(HKEY parent, const std::wstring& path);
    static bool Exists(HKEY parent, const std::wstring& path);

private:
    HKEY key_ = nullptr;
};

} // namespace kiv
