// What a script names that is not there is told at its line, before anything is played.

#include "host/folio/CheckScript.h"
#include "tests/gui/HostedTest.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

class CheckScript : public HostedTest
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        host::SiteOptions options = Placed();
        options.name = L"ynOne";
        TheForm().Add(CreateYesNo().Get(), options);
        options = Placed({20, 60, 140, 80});
        options.name = L"nbOne";
        TheForm().Add(L"KivControls.NumberBox", options);
        host::ButtonOptions button;
        button.name = L"cmdOK";
        button.bounds = {20, 100, 100, 124};
        TheForm().AddButton(button);
    }

    std::string MistakeIn(const std::string& text, const host::ScriptMeans& means = {})
    {
        try
        {
            host::CheckScript(host::ParseScript(text, "s"), TheForm(), means);
            return {};
        }
        catch (const host::FormError& error)
        {
            return error.what();
        }
    }
};

TEST_F(CheckScript, TakesWhatCanBePlayed)
{
    EXPECT_EQ(
        MistakeIn(
            "focus ynOne\nfocus CMDOK\nkey y\ntype \"x\"\nclipboard \"x\"\n"
            "click ynOne left\nrightclick cmdOK\ndoubleclick nbOne\nclick item \"x\"\nclick button \"x\"\n"
            "press ynOne\nrelease\npress item \"x\"\nrelease\n"
            "expect ynOne.Value = 1\nexpect focus cmdOK\nexpect selected cmdOK\n"
            "expect event ynOne click\nexpect no event ynOne\nexpect no event ynOne Click\n"
            "veto ynOne Click\nset ynOne.YesText = \"x\"\ncall ynOne.ShowAboutBox\n"
            "expect window \"x\"\nexpect no window\nexpect item \"x\"\nexpect no item\n"
            "answer messagebox \"x\"\nclose\nanswers\nynOne.Value = 1\n"),
        "");
    EXPECT_EQ(MistakeIn("shot\nclose database\n", {.Database = true, .Shot = true}), "");
}

TEST_F(CheckScript, SaysWhatIsNotThere)
{
    const std::pair<const char*, const char*> rows[] = {
        {"focus nobody\n", "s:1: there is no nobody on the form"},
        {"\n' here\nclick nobody\n", "s:3: there is no nobody on the form"},
        {"rightclick nobody\n", "s:1: there is no nobody on the form"},
        {"doubleclick nobody\n", "s:1: there is no nobody on the form"},
        {"press nobody\n", "s:1: there is no nobody on the form"},
        {"expect focus nobody\n", "s:1: there is no nobody on the form"},
        {"expect selected nobody\n", "s:1: there is no nobody on the form"},
        {"expect cmdOK.Value = 1\n", "s:1: there is no control cmdOK on the form"},
        {"expect ynOne.Valu = 1\n", "s:1: ynOne has no property Valu"},
        {"set nobody.Value = 1\n", "s:1: there is no control nobody on the form"},
        {"set ynOne.Nothing = 1\n", "s:1: ynOne has no property Nothing"},
        {"call ynOne.Dance\n", "s:1: ynOne has no method Dance"},
        {"expect event ynOne Clik\n", "s:1: ynOne has no event Clik"},
        {"expect no event ynOne Clik\n", "s:1: ynOne has no event Clik"},
        {"expect no event nobody\n", "s:1: there is no control nobody on the form"},
        {"veto ynOne Clik\n", "s:1: ynOne has no event Clik"},
        {"veto nobody Click\n", "s:1: there is no control nobody on the form"},
        {"veto nbOne Change\n", "s:1: the event Change of nbOne has no argument that could refuse it"},
        {"shot\n", "s:1: \"shot\" needs --shot, which says where the picture goes"},
        {"close database\n", "s:1: there is no database to be closed: --database gives one"},
        {"release\n", "s:1: \"release\" without a \"press\" before it"},
        {"press ynOne\nrelease\nrelease\n", "s:3: \"release\" without a \"press\" before it"},
        {"answers\nynOne.Value = 1\nnobody.Value = 1\n", "s:3: there is no control nobody on the form"},
        {"answers\nynOne.Valu = 1\n", "s:2: ynOne has no property Valu"},
    };
    for (const auto& [script, message] : rows)
        EXPECT_EQ(MistakeIn(script), message) << script;
}

} // namespace

} // namespace kiv::test
