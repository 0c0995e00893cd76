#include "host/files/Access.h"

#include "host/files/FileError.h"

#ifdef _WIN32
#include <windows.h>

#include <vector>
#endif

namespace kiv::host
{

namespace fs = std::filesystem;

void RefuseReadOnly(const fs::path& file)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::exists(status) && (status.permissions() & fs::perms::owner_write) == fs::perms::none)
        throw FileError(file, "is marked as read-only");
}

void CopyAccess(const fs::path& from, const fs::path& to)
{
#ifdef _WIN32
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<unsigned char> rights(size);
    if (size != 0 && GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights.data());
#else
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (fs::exists(status))
        fs::permissions(to, status.permissions(), error);
#endif
}

fs::path FreeNameBeside(const fs::path& file, const char* extension)
{
    std::error_code error;
    for (int number = 0;; ++number)
    {
        fs::path name = file;
        name += extension;
        if (number > 0)
            name += std::to_string(number);
        if (!fs::exists(fs::symlink_status(name, error)))
            return name;
    }
}

} // namespace kiv::host
