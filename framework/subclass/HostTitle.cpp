#include "framework/subclass/HostTitle.h"

#include <windows.h>

#include <array>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <vector>

namespace kiv
{

namespace
{

std::wstring ExecutablePath()
{
    std::array<wchar_t, 32768> path = {}; // the longest path that Windows knows
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::wstring(path.data(), length);
}

std::wstring FileNameWithoutExtension(std::wstring_view path)
{
    const std::wstring_view name = path.substr(path.find_last_of(L"\\/") + 1);
    return std::wstring(name.substr(0, name.rfind(L'.')));
}

class VersionResource
{
public:
    explicit VersionResource(const std::wstring& path)
    {
        DWORD unused = 0;
        data_.resize(GetFileVersionInfoSizeW(path.c_str(), &unused));
        if (!data_.empty() &&
            !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data()))
            data_.clear();
    }

    // A text in the first language that the resource lists; empty when it has none.
    std::wstring Text(std::wstring_view name) const
    {
        struct Translation
        {
            WORD Language;
            WORD CodePage;
        };
        const auto* translation = static_cast<const Translation*>(Value(L"\\VarFileInfo\\Translation"));
        if (!translation)
            return {};
        std::wostringstream block;
        block << L"\\StringFileInfo\\" << std::hex << std::setfill(L'0') << std::setw(4)
              << translation->Language << std::setw(4) << translation->CodePage << L'\\' << name;
        const auto* text = static_cast<const wchar_t*>(Value(block.str()));
        return text ? text : L"";
    }

private:
    const void* Value(const std::wstring& block) const
    {
        void* value = nullptr;
        UINT size = 0;
        const bool found = !data_.empty() && VerQueryValueW(data_.data(), block.c_str(), &value, &size);
        return found && size != 0 ? value : nullptr;
    }

    std::vector<std::byte> data_;
};

} // namespace

std::wstring HostTitle()
{
    const std::wstring path = ExecutablePath();
    const VersionResource version(path);
    for (const std::wstring_view name : {L"FileDescription", L"ProductName"})
    {
        if (std::wstring title = version.Text(name); !title.empty())
            return title;
    }
    return FileNameWithoutExtension(path);
}

} // namespace kiv
