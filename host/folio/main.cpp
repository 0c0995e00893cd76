#include "host/folio/CommandLine.h"
#include "host/folio/Session.h"
#include "host/folio/Text.h"
#include "host/folio/Thread.h"
#include "host/folio/VisualStyles.h"
#include "runtime/com/Errors.h"

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <optional>

namespace kiv::host
{

namespace
{

enum ExitStatus
{
    AsExpected = 0,
    NotAsExpected = 1,
    Unusable = 2,
};

void Complain(const std::string& what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
}

// COM for the length of a program.
class OleSession
{
public:
    OleSession() { Check(OleInitialize(nullptr)); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession() { OleUninitialize(); }
};

// Ends the program when it takes too long, even if the form's thread hangs.
class Watchdog
{
public:
    explicit Watchdog(unsigned seconds) : seconds_(seconds)
    {
        if (seconds_ != 0)
            thread_.emplace([this] { Wait(); });
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog()
    {
        SetEvent(done_);
        thread_.reset();
        CloseHandle(done_);
    }

private:
    void Wait() const noexcept
    {
        if (WaitForSingleObject(done_, seconds_ * 1000) != WAIT_TIMEOUT)
            return;
        std::fprintf(stderr, "FolioHost: not done after %u seconds\n", seconds_);
        std::fflush(stderr);
        TerminateProcess(GetCurrentProcess(), NotAsExpected);
    }

    unsigned seconds_;
    HANDLE done_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::optional<Thread> thread_;
};

std::wstring ProgramFile()
{
    std::wstring name(MAX_PATH, L'\0');
    while (GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())) == name.size())
        name.resize(2 * name.size());
    return name.c_str();
}

int Main(const std::vector<std::string>& arguments)
{
    try
    {
        const CommandLine line = ReadCommandLine(arguments);
        if (line.Help)
        {
            std::fputs(UsageText, stdout);
            return AsExpected;
        }
        const Watchdog watchdog(line.TimeoutSeconds);
        std::optional<VisualStyles> styles;
        if (line.Themed)
            styles.emplace(ProgramFile());
        const OleSession ole;
        const std::vector<std::string> mistakes = Session(line).Run();
        for (const std::string& mistake : mistakes)
            Complain(mistake);
        return mistakes.empty() ? AsExpected : NotAsExpected;
    }
    catch (const UsageError& error)
    {
        Complain(std::string("FolioHost: ") + error.what());
        Complain("FolioHost --help lists the options.");
    }
    catch (const ComError& error)
    {
        Complain("FolioHost: " + DescribeError(error));
    }
    catch (const std::exception& error)
    {
        Complain(error.what());
    }
    return Unusable;
}

} // namespace

} // namespace kiv::host

int main()
{
    // Line by line, instead of a call of the system for every character where the output is no terminal.
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    // The C arguments are in the code page of the system; Windows' own are not.
    std::vector<std::string> arguments;
    int count = 0;
    if (LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count))
    {
        for (int each = 1; each < count; ++each)
            arguments.push_back(kiv::host::Utf8(wide[each]));
        LocalFree(wide);
    }
    return kiv::host::Main(arguments);
}
