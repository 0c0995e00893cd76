#include "host/folio/Session.h"

#include "host/container/Automation.h"
#include "host/files/WholeFile.h"
#include "host/folio/CheckScript.h"
#include "host/folio/Picture.h"
#include "host/folio/Text.h"
#include "runtime/com/MakeCom.h"

#include <cstdio>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

std::optional<Script> LoadScript(const std::filesystem::path& file)
{
    if (file.empty())
        return std::nullopt;
    return ParseScript(ReadFile(file), file.string());
}

ComPtr<Database> OpenDatabase(const std::string& source)
{
    if (source.empty())
        return nullptr;
    try
    {
        const auto database = MakeCom<Database>(ConnectionStringOf(Wide(source)));
        // Better told now than at the first list that is opened.
        CallMethod(database.Get(), L"OpenRecordset", {Variant(L"SELECT * FROM [Enum Tables]")});
        return database;
    }
    catch (const DataError& error)
    {
        throw UsageError(std::string("--database: ") + error.what());
    }
    catch (const ComError& error)
    {
        throw UsageError("--database: the table \"Enum Tables\" cannot be read: " + DescribeError(error));
    }
}

} // namespace

Session::Session(const CommandLine& line) :
    line_(line),
    script_(LoadScript(line.Script)),
    database_(line.Design ? nullptr : OpenDatabase(line.Database)),
    page_(line.Form, {.Design = line.Design, .ToBeSaved = !line.Save.empty(), .Points = line.Points}),
    boxes_([this](const ShownMessageBox& box) { journal_->Write(box); })
{
    if (script_)
        CheckScript(*script_, page_.Window(), {.Database = database_ != nullptr, .Shot = !line.Shot.empty()});
    // Last of all that may be refused: it writes.
    journal_ = std::make_shared<Journal>(line.Log, script_.has_value());
    if (!line.Spoken.empty())
        speech_.emplace(line.Spoken);
    for (const std::string& note : page_.Notes())
        std::fprintf(stderr, "%s\n", note.c_str());
    if (database_)
        page_.GiveDatabase(database_.Get());
    for (ControlSite* const site : page_.Sites())
        site->Observe(journal_);
    if (script_)
        player_.emplace(page_.Window(), *journal_, boxes_,
                        ScriptProps{database_, line.Shot, line.PatienceSeconds * 1000ULL},
                        std::move(*script_));
}

std::vector<std::string> Session::Run()
{
    page_.Window().OnClosing = [this] { return MayClose(); };
    page_.Window().Show();
    if (player_)
        player_->Start();
    page_.Window().Run();
    const std::vector<std::string> mistakes = player_ ? player_->Finish() : std::vector<std::string>();
    if (failed_)
        std::rethrow_exception(failed_);
    // What came of a script that failed is not what anybody wanted.
    if (isToBeSaved_ && mistakes.empty())
        page_.Save(line_.Save);
    if (speech_)
        speech_->Finish();
    journal_->Finish();
    return mistakes;
}

// While all still stands: once the form closes, its controls have no answers any more.
bool Session::MayClose()
{
    const Form& form = page_.Window();
    try
    {
        if (!line_.Design && form.ClosedBy() && !form.Cancelled() && !AnswersAreValid())
            return false;
        WriteLastWords();
    }
    catch (...)
    {
        failed_ = std::current_exception();
    }
    return true;
}

// The first answer that is not says so itself, in a message box, and keeps the focus. Of one whose control
// cannot tell, the form says so: nothing is lost by staying open.
bool Session::AnswersAreValid()
{
    for (ControlSite* const site : page_.Sites())
    {
        if (!site->HasMember(L"IsValidInput"))
            continue;
        try
        {
            if (site->Call(L"IsValidInput", {Variant(false)}).Bool())
                continue;
            site->Focus();
            site->Call(L"IsValidInput", {Variant(true)});
        }
        catch (const ComError& error)
        {
            site->Focus();
            const std::wstring text =
                site->Name() + L" cannot tell whether its answer is valid: " + Wide(DescribeError(error));
            MessageBoxW(page_.Window().Window(), text.c_str(), L"FolioHost", MB_ICONEXCLAMATION);
        }
        return false;
    }
    return true;
}

void Session::WriteLastWords()
{
    const Form& form = page_.Window();
    if (form.ClosedBy())
        journal_->WriteClosing(form.ClosedBy()->Name());
    if (!line_.Design)
        for (const ControlSite* const site : page_.Sites())
            journal_->WriteAnswer(*site);
    if (player_)
        player_->CheckAnswers();
    if (!line_.Shot.empty() && !(player_ && player_->TookPicture()))
        SavePicture(form.Window(), line_.Shot);
    isToBeSaved_ = !line_.Save.empty() && (line_.Design || !form.Cancelled());
    if (isToBeSaved_)
        page_.TakeChanges();
}

} // namespace kiv::host
