#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace kiv::host
{

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct CommandLine
{
    std::filesystem::path Form;
    std::filesystem::path Script;
    std::filesystem::path Log;
    std::filesystem::path Shot;
    std::filesystem::path Save;
    std::filesystem::path Spoken;
    std::string Database;         // a file or a connection string; empty: none
    unsigned TimeoutSeconds = 0;  // 0: none
    unsigned PatienceSeconds = 5; // how long what a script expects may take to come true
    bool Design = false;
    bool Themed = false;
    double Points = 0; // size of the form's font; 0: the system's
    bool Help = false;
};

// Arguments in UTF-8, without the program's name. Throws UsageError.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

extern const char* const UsageText;

} // namespace kiv::host
