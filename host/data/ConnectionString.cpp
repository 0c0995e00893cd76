#include "host/data/Database.h"

#include <filesystem>
#include <memory>

namespace kiv::host
{

namespace
{

// Under Wine, ODBC is that of the system around it, whose driver has another name and knows files by their
// names there. Empty on Windows, and for a file that has no name there.
std::wstring NameAroundWine(const std::wstring& path)
{
    using GetName = char*(CDECL*)(LPCWSTR);
    const auto getName = reinterpret_cast<GetName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (!getName)
        return {};
    const auto release = [](char* name) { HeapFree(GetProcessHeap(), 0, name); };
    const std::unique_ptr<char, decltype(release)> name(getName(path.c_str()));
    if (!name)
        return {};
    const std::string_view bytes = name.get();
    return std::filesystem::path(std::u8string(bytes.begin(), bytes.end())).wstring();
}

} // namespace

std::wstring ConnectionStringOf(const std::wstring& source)
{
    if (source.find(L'=') != std::wstring::npos)
        return source;
    std::error_code error;
    const std::filesystem::path file = std::filesystem::absolute(source, error);
    if (error || !std::filesystem::is_regular_file(file, error))
        throw DataError(OdbcConnectionFailed, source + L": there is no such database");
    const std::wstring around = NameAroundWine(file.wstring());
    // Otherwise the driver would make a new database where it cannot find one.
    // While the database is locked, the host waits itself.
    const std::wstring options = L";NoCreat=1;Timeout=1";
    if (around.empty())
        return L"Driver={SQLite3 ODBC Driver};Database=" + file.wstring() + options;
    return L"Driver=SQLite3;Database=" + around + options;
}

} // namespace kiv::host
