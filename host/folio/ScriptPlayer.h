#pragma once

#include "host/container/Form.h"
#include "host/container/MessageBoxWatch.h"
#include "host/folio/Input.h"
#include "host/folio/Journal.h"
#include "host/folio/Thread.h"
#include "host/script/Script.h"

#include <wrl/client.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kiv::host
{

// What a script can use beside the form.
struct ScriptProps
{
    Microsoft::WRL::ComPtr<IDispatch> Database; // or null
    std::filesystem::path Shot;                 // where a picture goes; empty: nowhere
    ULONGLONG PatienceMs = 0;                   // how long an expectation may take to come true
};

// Plays a script against a form the way a person would: keys and mouse go to the system, what comes of them
// is awaited. Runs on a thread of its own, so that it can also answer what the form's thread waits in.
class ScriptPlayer
{
public:
    ScriptPlayer(Form& form, Journal& journal, const MessageBoxWatch& boxes, ScriptProps props,
                 Script script);
    ScriptPlayer(const ScriptPlayer&) = delete;
    ScriptPlayer& operator=(const ScriptPlayer&) = delete;
    ~ScriptPlayer(); // waits for the thread

    void Start();
    // On the form's thread, while it is being closed: holds the answers against the script's last section.
    void CheckAnswers();
    // On the form's thread: whether the script has chosen the moment for the picture.
    bool TookPicture() const { return tookPicture_; }
    // Once the form is gone: waits for the script's end. What went wrong, as "script:line: what"; empty when
    // all that was expected came to pass.
    std::vector<std::string> Finish();

private:
    struct Failure
    {
        std::string What;
    };

    void Play() noexcept;
    // False when the work fails, which is then one of the mistakes.
    bool Try(const ScriptStep& step, const std::function<void()>& work);
    void PlayStep(const ScriptStep& step);
    void CloseWindows();

    void AwaitKeyboard() const;
    void Press(const KeyChord& key) const;
    void Type(wchar_t character) const;
    POINT Reachable(POINT screen) const; // the place itself, or a Failure
    void ClickAt(POINT screen, MouseButton button) const;
    void MoveFocus(const ScriptStep& step);
    void Click(const ScriptStep& step);
    void AnswerMessageBox(const ScriptStep& step);

    // The window that is open in front of the form, as a dialog is; null when there is none. On the form's
    // thread, as all of these.
    HWND WindowInFront() const;
    HWND ListInFront() const; // throws Failure
    POINT PointInFront(const ScriptStep& step) const;
    void ExpectWindow(const ScriptStep& step);
    void ExpectListItem(const ScriptStep& step);
    void TakePicture();
    void CloseDatabase();

    void Set(const ScriptStep& step);
    void Call(const ScriptStep& step);
    void ExpectValue(const ScriptStep& step);
    void ExpectItem(const std::string& name, const char* what, FormItem* (Form::*current)() const);

    // Runs the work on the form's thread; a failure when the form is gone.
    void OnForm(const std::function<void()>& work) const;
    bool Until(const std::function<bool()>& condition) const;
    // Until the form's thread has taken all input.
    void Settle() const;
    ControlSite& Site(const std::string& name) const; // on the form's thread
    POINT PointIn(const ScriptStep& step) const;      // on the form's thread
    std::string Mistake(const ScriptStep& step, const std::string& what) const;
    std::string WhyFailed(const ScriptStep& step, const ComError& error) const;

    Form& form_;
    Journal& journal_;
    const MessageBoxWatch& boxes_;
    ScriptProps props_;
    Script script_;
    std::vector<std::string> mistakes_; // the thread's, and after it ends Finish's
    std::vector<std::string> wrongAnswers_;
    std::string failedCall_; // on the form's thread
    bool calling_ = false;   // on the form's thread
    bool tookPicture_ = false;
    std::optional<Thread> thread_;
};

} // namespace kiv::host
