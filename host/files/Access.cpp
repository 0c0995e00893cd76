#include "host/files/Access.h"

#include "host/files/FileError.h"

#ifdef _WIN32
#include "host/files/WholeFile.h"
#include "runtime/com/Wine.h"

#include <windows.h>

#include <fstream>
#endif

namespace kiv::host
{

namespace fs = std::filesystem;

namespace
{

void Rename(const fs::path& fresh, const fs::path& file)
{
    std::error_code error;
    fs::rename(fresh, file, error);
    if (error)
        throw FileError(file, "cannot be replaced: " + error.message());
}

#ifdef _WIN32
bool Overwrite(const fs::path& file, const std::string& content)
{
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    return !stream.fail();
}

// Wine's ReplaceFile gives the file the rights of a new one. So it is written over, while the fresh one lies
// beside it, and nothing is cut off before all is written.
void TakePlaceUnderWine(const fs::path& fresh, const fs::path& file)
{
    const std::string before = ReadFile(file);
    const std::string after = ReadFile(fresh);
    std::error_code error;
    if (!Overwrite(file, after))
    {
        Overwrite(file, before);
        fs::resize_file(file, before.size(), error);
        throw FileError(file, "cannot be written");
    }
    fs::resize_file(file, after.size(), error);
    fs::remove(fresh, error);
}
#endif

} // namespace

void RefuseReadOnly(const fs::path& file)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::exists(status) && (status.permissions() & fs::perms::owner_write) == fs::perms::none)
        throw FileError(file, "is marked as read-only");
}

void TakePlace(const fs::path& fresh, const fs::path& file)
{
    std::error_code error;
    const fs::file_status before = fs::status(file, error);
    if (!fs::exists(before))
        return Rename(fresh, file);
#ifdef _WIN32
    if (RunsOnWine())
        return TakePlaceUnderWine(fresh, file);
    if (!ReplaceFileW(file.c_str(), fresh.c_str(), nullptr, 0, nullptr, nullptr))
        throw FileError(file, "cannot be replaced");
#else
    fs::permissions(fresh, before.permissions(), error);
    Rename(fresh, file);
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
