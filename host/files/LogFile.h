#pragma once

#include "host/files/FileError.h"

#include <fstream>
#include <string_view>

namespace kiv::host
{

// A file that is written line by line, each readable at once. A copy of the older one is kept beside it until
// all is written, and comes back when that fails.
class LogFile
{
public:
    // Throws FileError, also for a file that is marked as read-only.
    explicit LogFile(const std::filesystem::path& file);
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    ~LogFile(); // as Finish, but silent

    // Does not throw: a full disk is told by Finish.
    void WriteLine(std::string_view line);
    // Throws FileError when not all lines could be written.
    void Finish();

private:
    bool Close();

    std::filesystem::path file_;
    std::filesystem::path older_; // empty: there was none
    std::ofstream stream_;
    bool failed_ = false;
};

} // namespace kiv::host
