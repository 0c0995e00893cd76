#include "host/script/Script.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

namespace kiv::host
{

namespace
{

ScriptStep OnlyStep(const std::string& line)
{
    const Script script = ParseScript(line, "s");
    EXPECT_EQ(script.Steps.size(), 1U) << line;
    return script.Steps.empty() ? ScriptStep() : script.Steps.front();
}

std::string MistakeIn(const std::string& text)
{
    try
    {
        ParseScript(text, "s");
        return "none";
    }
    catch (const FormError& error)
    {
        return error.what();
    }
}

std::string ReadFile(const char* path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

TEST(ParseScript, ReadsStepsWithANameAndAMember)
{
    struct Row
    {
        const char* Line;
        ScriptVerb Verb;
        const char* Item;
        const char* Member;
    };
    const Row rows[] = {
        {"focus yn", ScriptVerb::Focus, "yn", ""},
        {"  FOCUS  yn  ' why", ScriptVerb::Focus, "yn", ""},
        {"expect focus yn", ScriptVerb::ExpectFocus, "yn", ""},
        {"expect selected yn", ScriptVerb::ExpectSelected, "yn", ""},
        {"expect event yn Click", ScriptVerb::ExpectEvent, "yn", "Click"},
        {"expect no event yn", ScriptVerb::ExpectNoEvent, "yn", ""},
        {"expect no event yn Click", ScriptVerb::ExpectNoEvent, "yn", "Click"},
        {"veto yn Click", ScriptVerb::Veto, "yn", "Click"},
        {"call yn.ShowAboutBox", ScriptVerb::Call, "yn", "ShowAboutBox"},
        {"expect no window", ScriptVerb::ExpectNoWindow, "", ""},
        {"expect no item", ScriptVerb::ExpectNoListItem, "", ""},
        {"shot ' now", ScriptVerb::Shot, "", ""},
        {"close database", ScriptVerb::CloseDatabase, "", ""},
        {"close", ScriptVerb::Close, "", ""},
    };
    for (const Row& row : rows)
    {
        const ScriptStep step = OnlyStep(row.Line);
        EXPECT_EQ(step.Verb, row.Verb) << row.Line;
        EXPECT_EQ(step.Item, row.Item) << row.Line;
        EXPECT_EQ(step.Member, row.Member) << row.Line;
    }
}

TEST(ParseScript, ReadsValues)
{
    const std::pair<const char*, const char*> rows[] = {
        {"expect yn.Value = 1", "1"},
        {"expect yn.Value=-1", "-1"},
        {"expect yn.Text = Null", "Null"},
        {"expect yn.Text = \"it's 'so'\" ' a comment", "\"it's 'so'\""},
        {"expect yn.Text = \"a\" & Chr(10) & \"b\"", "\"a\" & Chr(10) & \"b\""},
        {"expect yn.Enabled = False", "False"},
        {"expect yn.BackColor = &H8000000F", "&H8000000F"},
    };
    for (const auto& [line, value] : rows)
    {
        const ScriptStep step = OnlyStep(line);
        EXPECT_EQ(step.Verb, ScriptVerb::ExpectValue) << line;
        ASSERT_EQ(step.Values.size(), 1U) << line;
        EXPECT_EQ(FormatScriptValue(step.Values.front()), value) << line;
    }
    EXPECT_EQ(OnlyStep("set yn.YesText = \"Ja\"").Verb, ScriptVerb::Set);
}

TEST(ParseScript, ReadsAnIndex)
{
    const ScriptStep step = OnlyStep("set cbo.List(2) = \"two\"");
    EXPECT_EQ(step.Item, "cbo");
    EXPECT_EQ(step.Member, "List");
    EXPECT_EQ(FormatScriptValue(step.Index), "2");
    EXPECT_EQ(FormatScriptValue(step.Values.front()), "\"two\"");
    EXPECT_EQ(FormatScriptValue(OnlyStep("expect cbo.List( -1 )= 3").Index), "-1");
    EXPECT_FALSE(OnlyStep("expect cbo.ListIndex = 3").Index);
    for (const char* line : {"set cbo.List(2 = 3", "set cbo.List() = 3", "expect cbo.List(2)"})
        EXPECT_THROW(ParseScript(line, "test"), FormError) << line;
}

TEST(ParseScript, ReadsArguments)
{
    const ScriptStep step = OnlyStep("call yn.Method 1, \"two, three\", Null ' done");
    ASSERT_EQ(step.Values.size(), 3U);
    EXPECT_EQ(FormatScriptValue(step.Values[0]), "1");
    EXPECT_EQ(FormatScriptValue(step.Values[1]), "\"two, three\"");
    EXPECT_EQ(FormatScriptValue(step.Values[2]), "Null");
}

TEST(ParseScript, ReadsKeysTextAndMessageBoxes)
{
    const ScriptStep keys = OnlyStep("keys y Shift+Tab Space");
    ASSERT_EQ(keys.Keys.size(), 3U);
    EXPECT_EQ(keys.Keys[0].Character, 'y');
    EXPECT_TRUE(keys.Keys[1].Shift);
    EXPECT_EQ(OnlyStep("key y").Verb, ScriptVerb::Keys);
    EXPECT_EQ(OnlyStep("type \"a \"\"b\"\"\" ' c").Text, "a \"b\"");
    EXPECT_EQ(OnlyStep("clipboard \"123-45\"").Verb, ScriptVerb::Clipboard);
    EXPECT_EQ(OnlyStep("clipboard \"123-45\"").Text, "123-45");

    const ScriptStep box = OnlyStep("answer messagebox \"Sure?\" Yes");
    EXPECT_EQ(box.Verb, ScriptVerb::AnswerMessageBox);
    EXPECT_EQ(box.Text, "Sure?");
    EXPECT_EQ(box.Member, "Yes");
    EXPECT_EQ(OnlyStep("answer messagebox \"Sure?\"").Member, "");
    EXPECT_EQ(OnlyStep("answer messagebox \"a\" & Chr(10) & \"b\" No").Text, "a\nb");
}

TEST(ParseScript, ReadsWhereToClick)
{
    EXPECT_EQ(OnlyStep("click yn").Spot.Where, ScriptSpot::Place::Middle);
    EXPECT_EQ(OnlyStep("click yn left").Spot.Where, ScriptSpot::Place::Left);
    EXPECT_EQ(OnlyStep("rightclick yn right").Spot.Where, ScriptSpot::Place::Right);
    const ScriptStep point = OnlyStep("doubleclick yn 3,-4");
    EXPECT_EQ(point.Verb, ScriptVerb::DoubleClick);
    EXPECT_EQ(point.Spot.Where, ScriptSpot::Place::Point);
    EXPECT_EQ(point.Spot.X, 3);
    EXPECT_EQ(point.Spot.Y, -4);
    const ScriptStep press = OnlyStep("press cmd right");
    EXPECT_EQ(press.Verb, ScriptVerb::Press);
    EXPECT_EQ(press.Item, "cmd");
    EXPECT_EQ(press.Spot.Where, ScriptSpot::Place::Right);
    EXPECT_EQ(OnlyStep("release").Verb, ScriptVerb::Release);
}

TEST(ParseScript, ReadsWhatIsInFrontOfTheForm)
{
    const ScriptStep item = OnlyStep("doubleclick item \"7\" & Chr(9) & \"C\" ' why");
    EXPECT_EQ(item.Verb, ScriptVerb::DoubleClick);
    EXPECT_EQ(item.Part, ScriptPart::ListItem);
    EXPECT_EQ(item.Text, "7\tC");
    EXPECT_EQ(OnlyStep("click button \"OK\"").Part, ScriptPart::Button);
    // Something on the form can have that name as well.
    EXPECT_EQ(OnlyStep("click item left").Part, ScriptPart::FormItem);
    EXPECT_EQ(OnlyStep("click item left").Item, "item");
    EXPECT_EQ(OnlyStep("expect window \"County\"").Verb, ScriptVerb::ExpectWindow);
    EXPECT_EQ(OnlyStep("expect window \"County\"").Text, "County");
    EXPECT_EQ(OnlyStep("expect item \"7\"").Verb, ScriptVerb::ExpectListItem);
    EXPECT_EQ(OnlyStep("expect item \"7\"").Text, "7");
}

TEST(ParseScript, KeepsTheAnswersApart)
{
    const Script script = ParseScript("key y\n\nanswers\n\n  yn.Value = 1\n  yn.Text = Null ' none\n", "s");
    EXPECT_EQ(script.File, "s");
    ASSERT_EQ(script.Steps.size(), 1U);
    ASSERT_EQ(script.Answers.size(), 2U);
    EXPECT_EQ(script.Answers[0].Line, 5);
    EXPECT_EQ(script.Answers[0].Item, "yn");
    EXPECT_EQ(FormatScriptValue(script.Answers[1].Values.front()), "Null");
}

TEST(ParseScript, SaysWhereAndWhatIsWrong)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"clack yn", "s:1: \"clack\" is no step"},
        {"' fine\n\nfocus", "s:3: a name is expected"},
        {"focus yn now", "s:1: unexpected \"now\""},
        {"key", "s:1: a key is expected"},
        {"key Sapce", "s:1: \"Sapce\" is no key"},
        {"type yes", "s:1: a text in quotes is expected"},
        {"clipboard", "s:1: a text in quotes is expected"},
        {"type \"yes", "s:1: the text has no closing quote"},
        {"click yn 3", "s:1: left, middle, right or <x>,<y> is expected"},
        {"click yn 3,4,5", "s:1: left, middle, right or <x>,<y> is expected"},
        {"expect yn", "s:1: <name>.<member> is expected"},
        {"expect yn. = 1", "s:1: <name>.<member> is expected"},
        {"expect yn.Value", "s:1: \"= value\" is expected"},
        {"expect yn.Value =", "s:1: there is no value behind \"=\""},
        {"expect yn.Value = one",
         "s:1: \"one\" is no value: a number, True, False or a text in quotes is expected"},
        {"expect yn.Text = \"a\" b", "s:1: unexpected \"b\""},
        {"expect no focus", "s:1: \"no event\", \"no window\" or \"no item\" is expected"},
        {"expect window County", "s:1: the window's caption in quotes is expected"},
        {"expect item 7", "s:1: a text in quotes is expected"},
        {"click button \"OK\" left", "s:1: unexpected \"left\""},
        {"close window", "s:1: unexpected \"window\""},
        {"expect event yn", "s:1: an event is expected"},
        {"answer box", "s:1: \"messagebox\" is expected"},
        {"answer messagebox OK", "s:1: the message's text in quotes is expected"},
        {"call yn.Method 1,, 2", "s:1: there is no value behind \"=\""},
        {"call yn.Method 1,", "s:1: an argument is expected"},
        {"answers now", "s:1: unexpected \"now\""},
        {"answers\nclose", "s:2: <name>.<member> is expected"},
    };
    for (const auto& [text, message] : mistakes)
        EXPECT_EQ(MistakeIn(text), message) << text;
}

TEST(ParseScript, SurvivesDamage)
{
    const std::string sample = ReadFile(KIV_EXAMPLES_DIR "/interview.script");
    ASSERT_EQ(MistakeIn(sample), "none");
    std::mt19937 random(20020415);
    int refused = 0;
    for (int round = 0; round < 3000; ++round)
    {
        std::string text(sample);
        for (int change = 0; change < 3 && !text.empty(); ++change)
        {
            const std::size_t at = random() % text.size();
            if (random() % 2)
                text[at] = static_cast<char>(random() % 256);
            else
                text.erase(at, random() % 16);
        }
        refused += MistakeIn(text) != "none";
    }
    // Both kinds must have come up for this to mean anything.
    EXPECT_GT(refused, 100);
    EXPECT_LT(refused, 2900);
}

} // namespace

} // namespace kiv::host
