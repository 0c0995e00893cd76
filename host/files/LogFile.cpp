#include "host/files/LogFile.h"

#include "host/files/Access.h"

namespace kiv::host
{

namespace fs = std::filesystem;

LogFile::LogFile(const fs::path& file) : file_(file)
{
    RefuseReadOnly(file);
    std::error_code error;
    // A device or a pipe is no older log.
    if (fs::is_regular_file(fs::status(file, error)))
    {
        older_ = FreeNameBeside(file, ".old");
        fs::copy_file(file, older_, error);
        if (error)
        {
            const std::string why = error.message();
            fs::remove(older_, error);
            throw FileError(file, "cannot be written: the older one cannot be kept beside it: " + why);
        }
    }
    stream_.open(file, std::ios::binary | std::ios::trunc);
    failed_ = !stream_;
    if (failed_)
    {
        Close();
        throw FileError(file, "cannot be written");
    }
}

LogFile::~LogFile()
{
    Close();
}

void LogFile::WriteLine(std::string_view line)
{
    stream_ << line << "\n" << std::flush;
    failed_ = failed_ || !stream_;
}

void LogFile::Finish()
{
    if (!Close())
        throw FileError(file_, "cannot be written");
}

bool LogFile::Close()
{
    std::error_code error;
    if (stream_.is_open())
    {
        stream_.close();
        failed_ = failed_ || !stream_;
    }
    if (!older_.empty())
    {
        if (failed_)
            fs::rename(older_, file_, error);
        else
            fs::remove(older_, error);
        older_.clear();
    }
    return !failed_;
}

} // namespace kiv::host
