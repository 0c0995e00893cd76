#include "host/files/WholeFile.h"

#include "host/files/Access.h"

#include <fstream>
#include <sstream>

namespace kiv::host
{

namespace fs = std::filesystem;

namespace
{

bool Write(const fs::path& file, std::string_view content)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    return !stream.fail();
}

// A device or a pipe is written as it is.
bool IsReplaceable(const fs::path& file)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return !fs::exists(status) || fs::is_regular_file(status);
}

} // namespace

std::string ReadFile(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw FileError(file, "cannot be opened");
    std::ostringstream text;
    // An empty file leaves the stream failed without anything being wrong.
    if (stream.peek() != std::ifstream::traits_type::eof())
        text << stream.rdbuf();
    if (stream.bad() || text.bad())
        throw FileError(file, "cannot be read");
    return text.str();
}

void WriteFile(const fs::path& file, std::string_view content)
{
    RefuseReadOnly(file);
    if (!IsReplaceable(file))
    {
        if (!Write(file, content))
            throw FileError(file, "cannot be written");
        return;
    }
    std::error_code error;
    // Where a link leads, so that the link stays.
    const fs::path target = fs::weakly_canonical(file, error);
    const fs::path& place = error ? file : target;
    const fs::path fresh = FreeNameBeside(place, ".new");
    try
    {
        if (!Write(fresh, content))
            throw FileError(file, "cannot be written");
        TakePlace(fresh, place);
    }
    catch (const FileError&)
    {
        fs::remove(fresh, error);
        throw;
    }
}

} // namespace kiv::host
