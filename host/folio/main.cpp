#include "host/container/MessageBoxWatch.h"
#include "host/data/Database.h"
#include "host/folio/CommandLine.h"
#include "host/folio/FormPage.h"
#include "host/folio/Journal.h"
#include "host/folio/Picture.h"
#include "host/folio/ScriptPlayer.h"
#include "host/folio/Text.h"
#include "host/folio/Thread.h"
#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

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

Script LoadScript(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw FormError(file.string(), 0, "cannot be opened");
    std::ostringstream text;
    if (stream.peek() != std::ifstream::traits_type::eof())
        text << stream.rdbuf();
    return ParseScript(text.view(), file.string());
}

// Shows the form until it is closed; true when the script, if there is one, went as it expects.
bool Show(const CommandLine& line)
{
    std::optional<Script> script;
    if (!line.Script.empty())
        script = LoadScript(line.Script);
    const auto journal = std::make_shared<Journal>(line.Log, script.has_value());
    ComPtr<Database> database;
    if (!line.Database.empty() && !line.Design)
        database = MakeCom<Database>(ConnectionStringOf(Wide(line.Database)));
    FormPage page(line.Form, line.Design);
    if (database)
        page.GiveDatabase(database.Get());
    for (const std::string& warning : page.Warnings())
        Complain(warning);
    for (ControlSite* site : page.Sites())
        site->Observe(journal);
    const MessageBoxWatch boxes([&](const ShownMessageBox& box) { journal->Write(box); });
    std::optional<ScriptPlayer> player;
    if (script)
        player.emplace(page.Window(), *journal, boxes, ScriptProps{database, line.Shot}, std::move(*script));

    // While all still stands: once the form closes, its controls have no answers any more.
    std::exception_ptr failed;
    page.Window().OnClosing = [&] {
        try
        {
            if (!line.Design)
                for (const ControlSite* site : page.Sites())
                    journal->WriteAnswer(*site);
            if (player)
                player->CheckAnswers();
            if (!line.Shot.empty() && !(player && player->TookPicture()))
                SavePicture(page.Window().Window(), line.Shot);
            if (!line.Save.empty())
                page.Save(line.Save);
        }
        catch (...)
        {
            failed = std::current_exception();
        }
        return true;
    };

    page.Window().Show();
    if (player)
        player->Start();
    page.Window().Run();
    const std::vector<std::string> mistakes = player ? player->Finish() : std::vector<std::string>();
    if (failed)
        std::rethrow_exception(failed);
    for (const std::string& mistake : mistakes)
        Complain(mistake);
    return mistakes.empty();
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
        const OleSession ole;
        return Show(line) ? AsExpected : NotAsExpected;
    }
    catch (const UsageError& error)
    {
        Complain(std::string("FolioHost: ") + error.what());
        Complain("FolioHost --help lists the options.");
    }
    catch (const ComError& error)
    {
        Complain("FolioHost: " + DescribeResult(error.Result()));
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
