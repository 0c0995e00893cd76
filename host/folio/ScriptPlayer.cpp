#include "host/folio/ScriptPlayer.h"

#include "host/folio/Input.h"
#include "host/folio/Members.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "runtime/com/Errors.h"

#include <exception>

namespace kiv::host
{

namespace
{

// How often what is expected is looked at.
constexpr DWORD LookAgainMs = 5;

} // namespace

ScriptPlayer::ScriptPlayer(Form& form, Journal& journal, const MessageBoxWatch& boxes, ScriptProps props,
                           Script script) :
    form_(form), journal_(journal), boxes_(boxes), props_(std::move(props)), script_(std::move(script))
{
}

ScriptPlayer::~ScriptPlayer()
{
    Finish();
}

void ScriptPlayer::Start()
{
    thread_.emplace([this] { Play(); });
}

std::vector<std::string> ScriptPlayer::Finish()
{
    thread_.reset();
    std::vector<std::string> all = mistakes_;
    all.insert(all.end(), wrongAnswers_.begin(), wrongAnswers_.end());
    return all;
}

std::string ScriptPlayer::Mistake(const ScriptStep& step, const std::string& what) const
{
    return script_.File + ":" + std::to_string(step.Line) + ": " + what;
}

// In words; on the thread that the control lives on, if it is to say what it expects.
std::string ScriptPlayer::WhyFailed(const ScriptStep& step, const ComError& error) const
{
    std::string why = DescribeError(error);
    form_.Invoke([&] {
        if (const ControlSite* const site = form_.FindSite(Wide(step.Item)))
            why = WhyRefused(site->Control(), Wide(step.Member), error);
    });
    return step.Member.empty() ? why : step.Item + "." + step.Member + ": " + why;
}

// What a step rests on has to hold, so the first mistake ends the play.
void ScriptPlayer::Play() noexcept
{
    for (const ScriptStep& step : script_.Steps)
        if (!Try(step, [&] { PlayStep(step); }))
            break;
    if (!script_.Steps.empty())
        Try(script_.Steps.back(), [this] { CloseWindows(); });
    // A script that leaves the form open is done with it.
    form_.Post([this] { form_.Close(); });
}

bool ScriptPlayer::Try(const ScriptStep& step, const std::function<void()>& work)
{
    try
    {
        work();
        return true;
    }
    catch (const Failure& failure)
    {
        mistakes_.push_back(Mistake(step, failure.What));
    }
    catch (const ComError& error)
    {
        mistakes_.push_back(Mistake(step, WhyFailed(step, error)));
    }
    catch (const std::exception& error)
    {
        mistakes_.push_back(Mistake(step, error.what()));
    }
    return false;
}

// A form is not to be closed under a window that waits for the user. One that nobody answered is a mistake,
// if it is the first.
void ScriptPlayer::CloseWindows()
{
    std::string unanswered;
    const auto open = [&] {
        bool isOpen = false;
        form_.Invoke([&] {
            if (const ShownMessageBox* const current = boxes_.Current())
                unanswered = "the message box " + QuoteFormText(Utf8(current->Text)) + " is not answered";
            else if (!IsWindowEnabled(form_.Window()))
                unanswered = "a window in front of the form is still open";
            else
                return;
            isOpen = true;
        });
        return isOpen;
    };
    const ULONGLONG end = GetTickCount64() + props_.PatienceMs;
    KeyChord escape;
    escape.VirtualKey = VK_ESCAPE;
    while (open() && GetTickCount64() < end)
    {
        SendKey(escape);
        Settle();
    }
    if (!unanswered.empty() && mistakes_.empty())
        throw Failure{unanswered};
}

void ScriptPlayer::OnForm(const std::function<void()>& work) const
{
    if (!form_.Invoke(work))
        throw Failure{"the form is closed already"};
}

bool ScriptPlayer::Until(const std::function<bool()>& condition) const
{
    const ULONGLONG end = GetTickCount64() + props_.PatienceMs;
    for (;;)
    {
        bool holds = false;
        OnForm([&] { holds = condition(); });
        if (holds)
            return true;
        if (GetTickCount64() >= end)
            return false;
        Sleep(LookAgainMs);
    }
}

void ScriptPlayer::Settle() const
{
    // A form that closes on the input takes no more of it.
    const ULONGLONG end = GetTickCount64() + props_.PatienceMs;
    bool waiting = true;
    while (form_.Invoke([&] { waiting = HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE)) != 0; }) &&
           waiting && GetTickCount64() < end)
        Sleep(LookAgainMs);
}

void ScriptPlayer::CheckAnswers()
{
    wrongAnswers_.clear();
    for (const ScriptStep& step : script_.Answers)
    {
        try
        {
            const Variant value = Site(step.Item).Get(Wide(step.Member));
            if (!Matches(value, step.Values.front()))
                wrongAnswers_.push_back(Mistake(step, "expected " + step.Item + "." + step.Member + " = " +
                                                          FormatScriptValue(step.Values.front()) + ", got " +
                                                          Describe(value)));
        }
        catch (const Failure& failure)
        {
            wrongAnswers_.push_back(Mistake(step, failure.What));
        }
        catch (const ComError& error)
        {
            wrongAnswers_.push_back(Mistake(step, WhyFailed(step, error)));
        }
    }
}

} // namespace kiv::host
