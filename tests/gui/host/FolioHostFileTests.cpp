// What becomes of the files that the host program is given: they are people's.

#include "tests/gui/host/HostProcess.h"
#include "tests/support/Text.h"

#include <filesystem>
#include <fstream>

namespace kiv::test
{

namespace
{

using FolioHostFiles = HostProcess;

const std::string Question = "Begin Form page\n"
                             "    Caption = \"Page\"\n"
                             "    ClientWidth = 3000\n"
                             "    ClientHeight = 1500\n"
                             "    Begin KivControls.NumberBox nbOne\n"
                             "        Left = 120\n"
                             "        Top = 120\n"
                             "        Width = 1800\n"
                             "        Height = 315\n"
                             "        Tag = \"first\"\n"
                             "    End\n" +
                             OkButton() +
                             "    Begin Button cmdCancel\n"
                             "        Caption = \"Cancel\"\n"
                             "        Cancel = True\n"
                             "        Left = 1500\n"
                             "        Top = 900\n"
                             "        Width = 1170\n"
                             "        Height = 360\n"
                             "    End\n"
                             "End\n";

// The script changes a property that is kept, so that saving can be seen.
constexpr const char* Change = "set nbOne.BackColor = 255\n";

std::string WithChange()
{
    std::string text = Question;
    text.insert(text.find("    End\n"), "        BackColor = 255\n");
    return text;
}

TEST_F(FolioHostFiles, AreSavedByOk)
{
    WriteForm(Question);
    WriteScript(std::string(Change) + "click cmdOK\n");
    const ProcessOutcome outcome = Play(L"--save " + Quoted(FormFile()));
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    EXPECT_NE(outcome.Output.find(R"({"closedBy":"cmdOK"})"), std::string::npos) << outcome.Output;
    EXPECT_EQ(ReadOf(FormFile()), WithChange());
}

TEST_F(FolioHostFiles, AreLeftAloneByCancel)
{
    for (const char* closing : {"click cmdCancel\n", "key Esc\n"})
    {
        WriteForm(Question);
        WriteScript(std::string(Change) + closing);
        const ProcessOutcome outcome = Play(L"--save " + Quoted(FormFile()));
        EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
        EXPECT_NE(outcome.Output.find(R"({"closedBy":"cmdCancel"})"), std::string::npos) << outcome.Output;
        EXPECT_EQ(ReadOf(FormFile()), Question);
    }
    // The close box of a form that can be cancelled does that.
    WriteScript(std::string(Change) + "close\n");
    const ProcessOutcome outcome = Play(L"--save " + Quoted(FormFile()));
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    EXPECT_EQ(outcome.Output.find("closedBy"), std::string::npos) << outcome.Output;
    EXPECT_EQ(ReadOf(FormFile()), Question);
}

TEST_F(FolioHostFiles, AreSavedWhenTheScriptEnds)
{
    WriteForm(Question);
    WriteScript(Change);
    EXPECT_EQ(Play(L"--save " + Quoted(FormFile())).ExitCode, 0U);
    EXPECT_EQ(ReadOf(FormFile()), WithChange());
}

TEST_F(FolioHostFiles, AreLeftAloneByAScriptThatFails)
{
    for (const char* failing :
         {"expect nbOne.BackColor = 1\n", "click cmdOK\nkey x\n", "answers\nnbOne.BackColor = 1\n"})
    {
        WriteForm(Question);
        WriteScript(std::string(Change) + failing);
        EXPECT_EQ(Play(L"--save " + Quoted(FormFile())).ExitCode, 1U) << failing;
        EXPECT_EQ(ReadOf(FormFile()), Question) << failing;
    }
}

// OK asks every answer, and stays at the first that is wrong.
TEST_F(FolioHostFiles, WaitForAnswersThatAreValid)
{
    WriteForm(Question);
    WriteScript("type \"12\"\n"
                "click cmdOK\n"
                "answer messagebox \"" +
                std::string("Please enter all digits in this field.") +
                "\"\n"
                "expect focus nbOne\n"
                "set nbOne.BackColor = 255\n"
                "set nbOne.Value = \"123-45-6789\"\n"
                "key Enter\n");
    const ProcessOutcome outcome = Play(L"--save " + Quoted(FormFile()));
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    EXPECT_NE(ReadOf(FormFile()).find("BackColor = 255"), std::string::npos);
}

TEST_F(FolioHostFiles, ThatAreReadAreNotWrittenOver)
{
    WriteForm(Question);
    WriteScript("");
    const TemporaryFile other(L".png");
    const std::wstring form = Quoted(FormFile());
    const std::wstring script = Quoted(ScriptFile());
    const std::pair<std::wstring, const char*> rows[] = {
        {L"--shot " + form + L" " + form, "FolioHost: --shot would write over the form, "},
        {L"--log " + script + L" --script " + script + L" " + form,
         "FolioHost: --log would write over --script, "},
        {L"--save " + script + L" --script " + script + L" " + form,
         "FolioHost: --save would write over --script, "},
        {L"--log " + form + L" " + form, "FolioHost: --log would write over the form, "},
        {L"--database " + script + L" --log " + script + L" " + form,
         "FolioHost: --log would write over --database, "},
        {L"--log " + Quoted(other.Path()) + L" --shot " + Quoted(other.Path()) + L" " + form,
         "FolioHost: --shot would write over --log, "},
        {L"--shot x.bmp " + form, "FolioHost: --shot takes a file whose name ends with .png, not x.bmp"},
        {L"--shot x " + form, "FolioHost: --shot takes a file whose name ends with .png, not x"},
    };
    for (const auto& [arguments, message] : rows)
    {
        const ProcessOutcome outcome = Run(arguments);
        EXPECT_EQ(outcome.ExitCode, 2U) << Narrow(arguments);
        EXPECT_EQ(outcome.Output.find(message), 0U) << outcome.Output;
        EXPECT_EQ(ReadOf(FormFile()), Question);
        EXPECT_EQ(ReadOf(ScriptFile()), "");
    }
}

TEST_F(FolioHostFiles, ThatAreReadOnlyStay)
{
    const TemporaryFile picture(L".png");
    const TemporaryFile log(L".jsonl");
    WriteForm(Question);
    WriteScript(Change);
    const std::pair<const wchar_t*, std::wstring> rows[] = {
        {L"--save ", FormFile()}, {L"--shot ", picture.Path()}, {L"--log ", log.Path()}};
    for (const auto& [option, file] : rows)
    {
        if (file != FormFile())
            Write(file, "older");
        const std::string before = ReadOf(file);
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
        const ProcessOutcome outcome = Play(option + Quoted(file));
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_EQ(outcome.ExitCode, 2U) << outcome.Output;
        EXPECT_NE(outcome.Output.find(Narrow(file) + ": is marked as read-only"), std::string::npos)
            << outcome.Output;
        EXPECT_EQ(ReadOf(file), before);
    }
}

// Under Wine there is a device that is always full.
TEST_F(FolioHostFiles, ThatCannotBeWrittenAreNamed)
{
    WriteForm(Question);
    WriteScript(Change);
    if (std::ofstream(std::filesystem::path(L"Z:\\dev\\full")))
    {
        const ProcessOutcome outcome = Play(L"--log Z:\\dev\\full");
        EXPECT_EQ(outcome.ExitCode, 2U) << outcome.Output;
        EXPECT_NE(outcome.Output.find("Z:\\dev\\full: cannot be written"), std::string::npos)
            << outcome.Output;
    }
    for (const wchar_t* option : {L"--save ", L"--log ", L"--shot "})
    {
        const std::wstring nowhere = FormFile() + L".folder\\x.png";
        const ProcessOutcome outcome = Play(option + Quoted(nowhere));
        EXPECT_EQ(outcome.ExitCode, 2U) << outcome.Output;
        EXPECT_NE(outcome.Output.find(Narrow(nowhere) + ": cannot be written"), std::string::npos)
            << outcome.Output;
    }
}

TEST_F(FolioHostFiles, DatabasesAreTriedWhenTheyAreGiven)
{
    WriteForm(Question);
    WriteScript("");
    const std::pair<std::wstring, const char*> rows[] = {
        {L"missing.db", "FolioHost: --database: missing.db: there is no such database"},
        {FormFile(), "FolioHost: --database: the table \"Enum Tables\" cannot be read: "},
        {L"Driver=NoSuchDriver", "FolioHost: --database: "},
    };
    for (const auto& [source, message] : rows)
    {
        const ProcessOutcome outcome = Play(L"--database " + Quoted(source));
        EXPECT_EQ(outcome.ExitCode, 2U) << outcome.Output;
        EXPECT_EQ(outcome.Output.find(message), 0U) << outcome.Output;
        EXPECT_EQ(ReadOf(FormFile()), Question);
    }
}

} // namespace

} // namespace kiv::test
