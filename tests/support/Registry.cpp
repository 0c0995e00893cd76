#include "tests/support/Registry.h"

namespace kiv::test
{

namespace
{

class Key
{
public:
    explicit Key(const std::wstring& path)
    {
        if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS)
            key_ = nullptr;
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key()
    {
        if (key_)
            RegCloseKey(key_);
    }

    HKEY Get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

} // namespace

std::optional<std::wstring> RegisteredText(const std::wstring& path, const wchar_t* name)
{
    const Key key(path);
    wchar_t text[1024] = {};
    DWORD size = sizeof text - sizeof(wchar_t);
    DWORD type = REG_NONE;
    if (!key.Get() || RegQueryValueExW(key.Get(), name, nullptr, &type, reinterpret_cast<BYTE*>(text),
                                       &size) != ERROR_SUCCESS)
        return std::nullopt;
    return type == REG_SZ ? std::wstring(text) : L"(not a text: type " + std::to_wstring(type) + L")";
}

bool IsRegistered(const std::wstring& path)
{
    return Key(path).Get() != nullptr;
}

std::set<std::wstring> RegisteredKeys(const std::wstring& path)
{
    const Key key(path);
    std::set<std::wstring> names;
    for (DWORD i = 0; key.Get(); ++i)
    {
        wchar_t name[256] = {};
        DWORD length = ARRAYSIZE(name);
        if (RegEnumKeyExW(key.Get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        names.insert(name);
    }
    return names;
}

} // namespace kiv::test
