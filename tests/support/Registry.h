#pragma once

#include <windows.h>

#include <optional>
#include <set>
#include <string>

namespace kiv::test
{

// A text value under HKEY_CLASSES_ROOT (name null: the key's default); nothing when it is not there.
std::optional<std::wstring> RegisteredText(const std::wstring& key, const wchar_t* name = nullptr);

bool IsRegistered(const std::wstring& key);

// Names of a key's subkeys under HKEY_CLASSES_ROOT; those of the root itself for an empty key.
std::set<std::wstring> RegisteredKeys(const std::wstring& key);

} // namespace kiv::test
