#pragma once

#include "tests/support/Files.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

#include <string>

namespace kiv::test
{

// The file of the host program.
std::wstring HostProgram();

// The host program as its user runs it, on a form and a script that the test writes.
class HostProcess : public testing::Test
{
protected:
    void WriteForm(const std::string& text) { Write(form_.Path(), text); }
    void WriteScript(const std::string& text) { Write(script_.Path(), text); }

    // Runs the host on the form with the script, and whatever else is said.
    ProcessOutcome Play(const std::wstring& options = {});
    static ProcessOutcome Run(const std::wstring& arguments);

    static std::string Read(const TemporaryFile& file) { return ReadOf(file.Path()); }
    static std::string ReadOf(const std::wstring& path);
    static void Write(const std::wstring& path, const std::string& text);

    const std::wstring& FormFile() const { return form_.Path(); }
    const std::wstring& ScriptFile() const { return script_.Path(); }
    std::string FormPath() const;
    std::string ScriptPath() const;

    static std::wstring Example(const wchar_t* name);

private:
    const TemporaryFile form_{L".form"};
    const TemporaryFile script_{L".script"};
};

// Text that a process wrote, with the line ends of a terminal.
std::string Lines(std::string text);

// In a form file, the button that closes the form.
std::string OkButton();
// A form with one question and that button.
extern const std::string OnePage;

} // namespace kiv::test
