// The host program as its user runs it: exit status, messages, log, picture, saved form.

#include "host/container/Form.h"
#include "tests/gui/host/HostProcess.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

using FolioHost = HostProcess;

TEST_F(FolioHost, PlaysTheSampleInterview)
{
    const TemporaryFile log(L".jsonl");
    const TemporaryFile shot(L".png");
    const ProcessOutcome outcome =
        Run(L"--script " + Example(L"interview.script") + L" --log " + Quoted(log.Path()) + L" --shot " +
            Quoted(shot.Path()) + L" --database " + Quoted(RequiredVariable(L"KIV_CODES")) + L" " +
            Example(L"interview.form"));
    ASSERT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    const std::string written = Read(log);
    EXPECT_EQ(Lines(outcome.Output), written);
    EXPECT_NE(written.find(R"({"control":"ynForeign","event":"Click","args":{"Cancel":false},"value":1,)"
                           R"("returned":{"Cancel":true}})"),
              std::string::npos);
    EXPECT_NE(written.find(R"({"messageBox":{"caption":"Form Folio","text":"Yes/No custom control that)"),
              std::string::npos);
    EXPECT_NE(written.find(R"({"control":"ynResident","property":"Text","value":"Y"})"), std::string::npos);
    EXPECT_NE(written.find(R"({"control":"ynBlind","property":"Text","value":null})"), std::string::npos);
    const std::string picture = Read(shot);
    EXPECT_EQ(picture.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_GT(picture.size(), 3000U) << "an empty window takes less";
}

TEST_F(FolioHost, SaysWhatIsNotAsExpected)
{
    struct Row
    {
        const char* Script;
        const char* Mistake;
    };
    const Row rows[] = {
        {"expect focus cmdOK\n", ":1: expected the focus on cmdOK, got ynOne\n"},
        {"key y\nexpect ynOne.Value = 1\nkey Space\nanswers\nynOne.Value = 1\n",
         ":5: expected ynOne.Value = 1, got 0\n"},
        {"key y\nexpect event ynOne Click\nexpect no event ynOne Change\n",
         ":3: expected no event Change of ynOne, got one\n"},
        {"set ynOne.YesText = \"x\"\nset ynOne.Value = \"maybe\"\n",
         ":2: ynOne.Value: one of 1 (Yes), 2 (No), 0 (Neither) is expected\n"},
        {"call ynOne.ShowAboutBox\nanswer messagebox \"Other\"\n",
         ":2: expected the message \"Other\", got \"Yes/No"},
        {"call ynOne.ShowAboutBox\n", ":1: the message box \"Yes/No custom control"},
        {"key Enter\nkey y\n", ":2: the form is closed already\n"},
        {"expect window \"Other\"\n", ":1: expected the window \"Other\", got none\n"},
        {"expect item \"Other\"\n", ":1: no window with a list is open in front of the form\n"},
        {"click button \"OK\"\n", ":1: there is no button \"OK\" in front of the form\n"},
    };
    WriteForm(OnePage);
    for (const Row& row : rows)
    {
        WriteScript(row.Script);
        const ProcessOutcome outcome = Play(L"--patience 1");
        EXPECT_EQ(outcome.ExitCode, 1U) << row.Script;
        EXPECT_NE(Lines(outcome.Output).find(ScriptPath() + row.Mistake), std::string::npos)
            << row.Script << outcome.Output;
    }
}

TEST_F(FolioHost, RefusesWhatItCannotUse)
{
    WriteScript("");
    WriteForm("Begin Form page\n    Caption = Page\nEnd\n");
    ProcessOutcome outcome = Play();
    EXPECT_EQ(outcome.ExitCode, 2U);
    EXPECT_NE(outcome.Output.find(FormPath() + ":2: Caption: \"Page\" is no value"), std::string::npos)
        << outcome.Output;
    WriteForm(OnePage);
    WriteScript("dance\n");
    outcome = Play();
    EXPECT_EQ(outcome.ExitCode, 2U);
    EXPECT_NE(outcome.Output.find(ScriptPath() + ":1: \"dance\" is no step"), std::string::npos)
        << outcome.Output;
    WriteScript("expect no event ynOne Clik\n");
    outcome = Play();
    EXPECT_EQ(outcome.ExitCode, 2U);
    EXPECT_NE(outcome.Output.find(ScriptPath() + ":1: ynOne has no event Clik"), std::string::npos)
        << outcome.Output;
    for (const wchar_t* arguments :
         {L"", L"--dance x.form", L"missing.form", L"--timeout soon x.form", L"--patience 0 x.form", L"--log",
          L"--database", L"--points 5 x.form", L"--points large x.form", L"--points 12 --save y.form x.form"})
        EXPECT_EQ(Run(arguments).ExitCode, 2U) << Narrow(arguments);
    for (const wchar_t* arguments : {L"--help", L"-h", L"/?", L"x.form --help"})
    {
        outcome = Run(arguments);
        EXPECT_EQ(outcome.ExitCode, 0U) << Narrow(arguments);
        EXPECT_NE(outcome.Output.find("FolioHost [options] FORM"), std::string::npos) << outcome.Output;
    }
}

// As the file of a picture says.
SIZE SizeIn(const std::string& png)
{
    const auto number = [&](std::size_t at) {
        LONG value = 0;
        for (std::size_t each = at; each < at + 4; ++each)
            value = value * 256 + static_cast<unsigned char>(png.at(each));
        return value;
    };
    return {number(16), number(20)};
}

// Text twice as large takes a form twice as large; what is around it stays.
TEST_F(FolioHost, ShowsAFormInTheSizeOfTextThatIsWanted)
{
    WriteForm(OnePage);
    WriteScript("");
    const TemporaryFile shot(L".png");
    const auto size = [&](const std::wstring& options) {
        EXPECT_EQ(Play(options + L" --shot " + Quoted(shot.Path())).ExitCode, 0U);
        return SizeIn(Read(shot));
    };
    const SIZE usual = size({});
    const SIZE large = size(L"--points " + std::to_wstring(2 * host::Form::UsualFontSize()));
    EXPECT_EQ(large.cx - usual.cx, 3000 / 15);
    EXPECT_EQ(large.cy - usual.cy, 1500 / 15);
}

TEST_F(FolioHost, ShowsAFormInTheUsersThemeWhenItIsToldTo)
{
    WriteForm(OnePage);
    WriteScript("");
    const TemporaryFile shot(L".png");
    const auto picture = [&](const std::wstring& options) {
        EXPECT_EQ(Play(options + L" --shot " + Quoted(shot.Path())).ExitCode, 0U);
        return Read(shot);
    };
    const std::string usual = picture({});
    EXPECT_EQ(picture({}), usual);
    EXPECT_NE(picture(L"--themed"), usual);
}

constexpr const char* OneList = "Begin Form page\n"
                                "    Caption = \"Page\"\n"
                                "    ClientWidth = 9000\n"
                                "    ClientHeight = 9000\n"
                                "    Begin KivControls.EnumList elOne\n"
                                "        Left = 120\n"
                                "        Top = 120\n"
                                "        Width = 1800\n"
                                "        Height = 300\n"
                                "        StateCode = \"MD\"\n"
                                "        TableName = \"County\"\n"
                                "        EnumListTitle = \"Counties\"\n"
                                "        DisplayStyle = 1\n"
                                "        SortListBy = 1\n"
                                "    End\n"
                                "End\n";

TEST_F(FolioHost, DrivesWhatOpensInFrontOfTheForm)
{
    const TemporaryFile shot(L".png");
    const std::wstring options =
        L"--database " + Quoted(RequiredVariable(L"KIV_CODES")) + L" --shot " + Quoted(shot.Path());
    WriteForm(OneList);
    WriteScript("set elOne.DisplayStyle = 0\n"
                "click elOne right\n"
                "expect window \"Counties\"\n"
                "expect no item\n"
                "shot\n"
                "doubleclick item \"7\"\n"
                "expect no window\n"
                "expect event elOne SelectionChanged\n"
                "set elOne.DisplayStyle = 1\n"
                "expect elOne.EnumText = \"Carroll\"\n");
    const ProcessOutcome outcome = Play(options);
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    EXPECT_NE(outcome.Output.find(R"({"control":"elOne","property":"EnumCode","value":"7"})"),
              std::string::npos)
        << outcome.Output;
    // Of the dialog, which is smaller than the form: width and height stand at a fixed place.
    const std::string picture = Read(shot);
    ASSERT_GT(picture.size(), 24U);
    EXPECT_EQ(picture.substr(16, 2), std::string(2, '\0'));
    const auto size = [&](std::size_t at) {
        return static_cast<unsigned char>(picture[at]) * 256 + static_cast<unsigned char>(picture[at + 1]);
    };
    EXPECT_LT(size(18), 600);
    EXPECT_LT(size(22), 600);
    EXPECT_GT(size(18), 200);
}

TEST_F(FolioHost, SaysWhatIsNotAsExpectedInFrontOfTheForm)
{
    const std::pair<const char*, const char*> rows[] = {
        {"key Space\nexpect no window\n",
         ":2: expected no window in front of the form, got the window \"Counties\"\n"},
        {"key Space\nexpect window \"Counties\"\nexpect item \"x\"\n",
         ":3: expected the item \"x\" to be selected, got none\n"},
        {"key Space\nexpect window \"Counties\"\nclick item \"x\"\n", ":3: the list shows no item \"x\"\n"},
        {"key Space\nexpect window \"Counties\"\nclick button \"x\"\n",
         ":3: there is no button \"x\" in front of the form\n"},
        {"key Space\nexpect window \"Counties\"\n", ":2: a window in front of the form is still open\n"},
    };
    WriteForm(OneList);
    for (const auto& [script, mistake] : rows)
    {
        WriteScript(script);
        const ProcessOutcome outcome =
            Play(L"--patience 1 --database " + Quoted(RequiredVariable(L"KIV_CODES")));
        EXPECT_EQ(outcome.ExitCode, 1U) << script;
        EXPECT_NE(Lines(outcome.Output).find(ScriptPath() + mistake), std::string::npos)
            << script << outcome.Output;
    }
}

TEST_F(FolioHost, ClosesTheDatabaseMeanwhile)
{
    WriteForm(OneList);
    WriteScript("set elOne.EnumCode = \"7\"\n"
                "expect elOne.EnumText = \"Carroll\"\n"
                "close database\n"
                "key Space\n"
                "answer messagebox \"Could not read enum table from database.\"\n"
                "expect window \"Counties\"\n"
                "key Esc\n"
                "expect no window\n"
                "expect elOne.EnumCode = \"7\"\n"
                "close database\n");
    const ProcessOutcome outcome = Play(L"--database " + Quoted(RequiredVariable(L"KIV_CODES")));
    EXPECT_EQ(outcome.ExitCode, 1U);
    EXPECT_NE(outcome.Output.find(ScriptPath() + ":10: The database is closed."), std::string::npos)
        << outcome.Output;
}

TEST_F(FolioHost, NotesWhatAControlDoesNotHave)
{
    WriteForm(OnePage);
    WriteScript("");
    const ProcessOutcome outcome = Play();
    EXPECT_EQ(outcome.ExitCode, 0U);
    EXPECT_NE(
        Lines(outcome.Output).find(FormPath() + ":11: ynOne has no property Stranger; the line is kept\n"),
        std::string::npos)
        << outcome.Output;
}

TEST_F(FolioHost, GivesUpInTime)
{
    WriteForm(OnePage);
    WriteScript("expect event ynOne Click\n");
    const ProcessOutcome outcome = Play(L"--timeout 1");
    EXPECT_EQ(outcome.ExitCode, 1U);
    EXPECT_NE(outcome.Output.find("not done after 1 seconds"), std::string::npos) << outcome.Output;
}

TEST_F(FolioHost, SavesAsItLoaded)
{
    const TemporaryFile saved(L".form");
    const std::wstring options = L"--design --save " + Quoted(saved.Path());
    WriteForm(OnePage);
    WriteScript("");
    EXPECT_EQ(Play(options).ExitCode, 0U);
    EXPECT_EQ(Read(saved), OnePage);
}

TEST_F(FolioHost, SavesWhatWasDesigned)
{
    const TemporaryFile saved(L".form");
    WriteForm(OnePage);
    WriteScript("click ynOne\n"
                "expect selected ynOne\n"
                "set ynOne.YesText = \"Ja\" & Chr(10)\n"
                "set ynOne.BackColor = &H80000005\n"
                "expect no event ynOne\n");
    const ProcessOutcome outcome = Play(L"--design --save " + Quoted(saved.Path()));
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    const std::string first = Read(saved);
    for (const char* line :
         {"        YesText = \"Ja\" & Chr(10)\n", "        BackColor = &H80000005\n",
          "        Left   = 120 ' a little to the right\n", "        Stranger = \"kept\"\n"})
        EXPECT_NE(first.find(line), std::string::npos) << line << first;

    // What was saved loads, and is saved the same.
    WriteForm(first);
    WriteScript("expect ynOne.YesText = \"Ja\" & Chr(10)\n");
    EXPECT_EQ(Play(L"--design --save " + Quoted(saved.Path())).ExitCode, 0U);
    EXPECT_EQ(Read(saved), first);
}

// The picture's own stream, in the file and out of it again.
TEST_F(FolioHost, KeepsAPicture)
{
    // Two pixels, magenta and white, of 24 bits.
    const std::string picture =
        "        BeginProperty Picture\n"
        "            Data = \"6c7400003e000000424d3e000000000000003600000028000000020000000100"
        "000001001800000000000800000000000000000000000000000000000000ff00ffffffff0000\"\n"
        "        EndProperty\n";
    const std::string form = "Begin Form page\n"
                             "    ClientWidth = 3000\n"
                             "    ClientHeight = 1500\n"
                             "    Begin KivControls.PicLite picLogo\n"
                             "        Left = 120\n"
                             "        Top = 120\n"
                             "        Width = 600\n"
                             "        Height = 300\n" +
                             picture +
                             "    End\n"
                             "End\n";
    const TemporaryFile saved(L".form");
    WriteForm(form);
    WriteScript("set picLogo.MaskColor = 16711935\n");
    const ProcessOutcome outcome = Play(L"--design --save " + Quoted(saved.Path()));
    EXPECT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    const std::string kept = Read(saved);
    EXPECT_NE(kept.find(picture), std::string::npos) << kept;
    EXPECT_NE(kept.find("        MaskColor = 16711935\n"), std::string::npos) << kept;
}

TEST_F(FolioHost, KeepsAFontThatIsTheControlsOwn)
{
    const TemporaryFile saved(L".form");
    const std::string font = "        BeginProperty Font\n"
                             "            Name = \"Tahoma\"\n"
                             "            Size = 14.25\n"
                             "            Weight = 700\n"
                             "            Charset = 0\n"
                             "            Italic = True\n"
                             "            Underline = False\n"
                             "            Strikethrough = False\n"
                             "        EndProperty\n";
    std::string form(OnePage);
    form.insert(form.find("        Stranger"), font);
    WriteForm(form);
    WriteScript("");
    EXPECT_EQ(Play(L"--design --save " + Quoted(saved.Path())).ExitCode, 0U);
    EXPECT_EQ(Read(saved), form);
}

} // namespace

} // namespace kiv::test
