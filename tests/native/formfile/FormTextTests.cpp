#include "host/formfile/FormText.h"

#include <gtest/gtest.h>

#include <random>

namespace kiv::host
{

namespace
{

constexpr const char* Sample = "' A page of the interview.\n"
                               "\n"
                               "Begin Form interview ' the only one\n"
                               "  Caption = \"It's here\"  ' odd spacing stays\n"
                               "    ClientWidth=6000\n"
                               "    Begin Maker.Answer ynFirst\n"
                               "        Left = &H78\n"
                               "        BeginProperty Font\n"
                               "            Name = \"Tahoma\"\n"
                               "            Size = 8.25\n"
                               "        EndProperty\n"
                               "        ' nobody knows this one\n"
                               "        Unknown = \"kept\"\n"
                               "    End\n"
                               "    BeginProperty Icon Picture\n"
                               "        Data = \"00ff\"\n"
                               "    EndProperty\n"
                               "End\n"
                               "' the end\n";

TEST(FormText, ReadsBlocksKeysAndNestedProperties)
{
    const FormDocument document = ParseForm(Sample, "page.form");
    EXPECT_EQ(document.Form.Class, "Form");
    EXPECT_EQ(document.Form.Name, "interview");
    ASSERT_TRUE(document.Form.Find("caption"));
    EXPECT_EQ(*document.Form.Find("caption"), FormValue(std::string("It's here")));
    EXPECT_EQ(*document.Form.Find("ClientWidth"), FormValue(std::int64_t(6000)));

    ASSERT_EQ(document.Form.Entries.size(), 4U);
    const FormBlock& control = document.Form.Entries[2].Block.at(0);
    EXPECT_EQ(control.Class, "Maker.Answer");
    EXPECT_EQ(control.Name, "ynFirst");
    EXPECT_EQ(control.Line, 6);
    EXPECT_EQ(*control.Find("Left"), FormValue(std::int64_t(120)));
    ASSERT_TRUE(control.FindProperty("font"));
    EXPECT_EQ(*control.FindProperty("font")->Find("Size"), FormValue(8.25));
    EXPECT_EQ(control.FindProperty("Font")->Class, "Font");
    EXPECT_EQ(document.Form.FindProperty("Icon")->Class, "Picture");
}

TEST(FormText, WritesBackWhatItReadUnchanged)
{
    EXPECT_EQ(WriteForm(ParseForm(Sample, "page.form")), Sample);

    std::string windows(Sample);
    for (std::size_t at = 0; (at = windows.find('\n', at)) != std::string::npos; at += 2)
        windows.replace(at, 1, "\r\n");
    EXPECT_EQ(WriteForm(ParseForm(windows, "page.form")), windows);
    const std::string marked = std::string(ByteOrderMark) + Sample;
    EXPECT_EQ(WriteForm(ParseForm(marked, "page.form")), marked);
    EXPECT_EQ(WriteForm(ParseForm(windows + "' one\n' other\r\n", "page.form")),
              windows + "' one\n' other\r\n");
    for (const char* end : {"End", "End \t", "End ' here", "End\n\n\n", "End\n\x1A", "End\r\n"})
        EXPECT_EQ(WriteForm(ParseForm("Begin Form a\n" + std::string(end), "page.form")),
                  "Begin Form a\n" + std::string(end));
}

TEST(FormText, ChangesOnlyTheLineOfAChangedValue)
{
    FormDocument document = ParseForm(Sample, "page.form");
    FormBlock& control = document.Form.Entries[2].Block.at(0);
    control.Set("LEFT", std::int64_t(120)); // as it is: the line stays
    EXPECT_EQ(WriteForm(document), Sample);

    control.Set("Left", std::int64_t(240));
    std::string expected(Sample);
    expected.replace(expected.find("Left = &H78"), 11, "Left = 240");
    EXPECT_EQ(WriteForm(document), expected);
}

TEST(FormText, KeepsTheSpacingAndTheCommentOfAChangedValue)
{
    const std::string text = "Begin Form a\r\n"
                             "\tCaption=\"it's 'this'\"  ' said \"so\"\r\n"
                             "  \"odd = key\"\t=  5 ' five\r\n"
                             "  Last = True\r\n"
                             "End";
    FormDocument document = ParseForm(text, "f");
    document.Form.Set("caption", std::string("say \"hi\""));
    document.Form.Set("odd = key", std::int64_t(-1));
    document.Form.Set("odd = key", 7.5);
    document.Form.Set("New", true);
    EXPECT_EQ(WriteForm(document), "Begin Form a\r\n"
                                   "\tCaption=\"say \"\"hi\"\"\"  ' said \"so\"\r\n"
                                   "  \"odd = key\"\t=  7.5 ' five\r\n"
                                   "  Last = True\r\n"
                                   "\tNew = True\r\n"
                                   "End");
}

TEST(FormText, WritesAWholeNumberWhereOneStood)
{
    FormDocument document = ParseForm("Begin Form a\nx = 5\ny = 5.5\nz = 5\nEnd\n", "f");
    document.Form.Set("x", 5.0); // the same: nothing to write
    document.Form.Set("y", 6.0);
    document.Form.Set("z", 1e300);
    EXPECT_EQ(WriteForm(document), "Begin Form a\nx = 5\ny = 6.0\nz = 1e+300\nEnd\n");
    document.Form.Set("x", 6.0);
    EXPECT_EQ(*document.Form.Find("x"), FormValue(std::int64_t(6)));
}

// What stood at the end of the file without a line end gets one when something comes behind it.
TEST(FormText, EndsTheLastLineWhenMoreFollows)
{
    FormDocument document = ParseForm("Begin Form a\nEnd", "f");
    document.LinesBehind.push_back("' more");
    EXPECT_EQ(WriteForm(document), "Begin Form a\nEnd\n' more");
}

TEST(FormText, TellsTheLineOfAKey)
{
    const FormDocument document = ParseForm(Sample, "page.form");
    const FormBlock& control = document.Form.Entries[2].Block.at(0);
    EXPECT_EQ(control.LineOf("left"), 7);
    EXPECT_EQ(control.LineOf("Font"), 8);
    EXPECT_EQ(control.FindProperty("Font")->LineOf("SIZE"), 10);
    EXPECT_EQ(control.LineOf("nothing"), 6);
}

TEST(FormText, NestsInFrames)
{
    const std::string text =
        "Begin Form a\nBegin Frame f\nBegin Frame g\nBegin Maker.Answer yn\nEnd\nEnd\nEnd\nEnd\n";
    const FormDocument document = ParseForm(text, "f");
    const FormBlock& inner = document.Form.Entries.at(0).Block.at(0).Entries.at(0).Block.at(0);
    EXPECT_EQ(inner.Name, "g");
    EXPECT_EQ(inner.Entries.at(0).Block.at(0).Name, "yn");
    EXPECT_EQ(WriteForm(document), text);
}

TEST(FormText, LaysOutNewBlocks)
{
    FormDocument document;
    document.Form.Class = "Form";
    document.Form.Name = "page";
    FormBlock control;
    control.Class = "Maker.Answer";
    control.Name = "yn";
    control.Set("Left", std::int64_t(120));
    control.Set("odd key", true);
    FormBlock font;
    font.IsProperty = true;
    font.Class = font.Name = "Font";
    font.Set("Name", std::string("Tahoma"));
    control.SetProperty(font);
    FormBlock picture;
    picture.IsProperty = true;
    picture.Class = "Picture";
    picture.Name = "Icon";
    control.SetProperty(picture);
    document.Form.Entries.emplace_back().Block.push_back(control);

    const std::string text = WriteForm(document);
    EXPECT_EQ(text, "Begin Form page\n"
                    "    Begin Maker.Answer yn\n"
                    "        Left = 120\n"
                    "        \"odd key\" = True\n"
                    "        BeginProperty Font\n"
                    "            Name = \"Tahoma\"\n"
                    "        EndProperty\n"
                    "        BeginProperty Icon Picture\n"
                    "        EndProperty\n"
                    "    End\n"
                    "End\n");
    EXPECT_EQ(WriteForm(ParseForm(text, "page.form")), text);
}

TEST(FormText, SaysWhereAndWhatIsWrong)
{
    struct Mistake
    {
        const char* Text;
        const char* Message;
    };
    const Mistake mistakes[] = {
        {"", "f: holds no form: \"Begin Form <name>\" is missing"},
        {"' nothing\n", "f: holds no form: \"Begin Form <name>\" is missing"},
        {"\xFF\xFE", "f: is not a text in UTF-8"},
        {"Begin Form\nEnd\n", "f:1: \"Begin <class> <name>\" is expected"},
        {"Begin Form a b\nEnd\n", "f:1: \"Begin <class> <name>\" is expected"},
        {"Begin Form a-b\nEnd\n", "f:1: \"Begin <class> <name>\" is expected"},
        {"Begin Page a\nEnd\n", "f:1: a file starts with \"Begin Form <name>\""},
        {"BeginProperty Font\nEndProperty\n", "f:1: a file starts with \"Begin Form <name>\""},
        {"x = 1\n", "f:1: only comments can stand outside the form"},
        {"End\n", "f:1: End without a block that it could end"},
        {"Begin Form a\n", "f:1: Begin Form a has no End"},
        {"Begin Form a\nBeginProperty Font\nEnd\n",
         "f:3: BeginProperty Font in line 2 needs EndProperty, not End"},
        {"Begin Form a\nEndProperty\n", "f:2: Begin Form a in line 1 needs End, not EndProperty"},
        {"Begin Form a\nEnd all\n", "f:2: unexpected \"all\" behind End"},
        {"Begin Form a\nEnd\nBegin Form b\nEnd\n", "f:3: only one form can be in a file, and it ends above"},
        {"Begin Form a\nCaption\nEnd\n", "f:2: \"Caption\" is not understood: \"Key = value\" is expected"},
        {"Begin Form a\n\"x\nEnd\n", "f:2: \"\"x\" is not understood: \"Key = value\" is expected"},
        {"Begin Form a\nTwo words = 1\nEnd\n", "f:2: \"Two words\" cannot be a key"},
        {"Begin Form a\n = 1\nEnd\n", "f:2: \"\" cannot be a key"},
        {"Begin Form a\n\"\" = 1\nEnd\n", "f:2: \"\"\"\" cannot be a key"},
        {"Begin Form a\nx =\nEnd\n", "f:2: x: there is no value behind \"=\""},
        {"Begin Form a\nx = \"open\nEnd\n", "f:2: x: the text has no closing quote"},
        {"Begin Form a\nx = 1\nX = 2\nEnd\n", "f:3: X is set twice in Begin Form a"},
        {"Begin Form a\nFont = 1\nBeginProperty Font\nEndProperty\nEnd\n",
         "f:3: Font is set twice in Begin Form a"},
        {"Begin Form a\nBeginProperty Font\nEndProperty\nFont = 1\nEnd\n",
         "f:4: Font is set twice in Begin Form a"},
        {"Begin Form a\nBegin Label b\nEnd\nBegin Label B\nEnd\nEnd\n", "f:4: the name B is taken already"},
        {"Begin Form a\nBegin Label A\nEnd\nEnd\n", "f:2: the name A is taken already"},
        {"Begin Form a\nx = \"\1\"\n\n\n\2\nEnd\n",
         "f:5: \"\2\" is not understood: \"Key = value\" is expected"},
        {"Begin Form a\nBegin Label b\nBegin Label c\nEnd\nEnd\nEnd\n",
         "f:3: c cannot stand inside Begin Label b of line 2: only a form or a frame holds others (is an End "
         "missing?)"},
        {"Begin Form a\nBegin Maker.Answer b\nLeft = 1\n\nBegin Button c\nEnd\nEnd\nEnd\n",
         "f:5: c cannot stand inside Begin Maker.Answer b of line 2: only a form or a frame holds others (is "
         "an End missing?)"},
        {"Begin Form a\nBeginProperty Font\nBegin Label b\nEnd\nEndProperty\nEnd\n",
         "f:3: a control cannot stand inside BeginProperty Font"},
    };
    for (const Mistake& mistake : mistakes)
        try
        {
            ParseForm(mistake.Text, "f");
            ADD_FAILURE() << mistake.Text << " was read";
        }
        catch (const FormError& error)
        {
            EXPECT_STREQ(error.what(), mistake.Message) << mistake.Text;
        }
}

TEST(FormText, RefusesACharacterThatNoTextHolds)
{
    try
    {
        ParseForm(std::string_view("Begin Form a\n' \0\nEnd\n", 21), "f");
        ADD_FAILURE() << "was read";
    }
    catch (const FormError& error)
    {
        EXPECT_STREQ(error.what(), "f:2: holds a character with the code 0, which no text does");
    }
}

TEST(FormText, TakesKeywordsAsKeys)
{
    const std::string text = "Begin Form a\n    Begin = 1\n    End = 2\n    EndProperty=3\nEnd\n";
    const FormDocument document = ParseForm(text, "f");
    EXPECT_EQ(*document.Form.Find("Begin"), FormValue(std::int64_t(1)));
    EXPECT_EQ(*document.Form.Find("End"), FormValue(std::int64_t(2)));
    EXPECT_EQ(WriteForm(document), text);
}

TEST(FormText, RefusesBottomlessNesting)
{
    std::string text = "Begin Form a\n";
    for (int depth = 0; depth < 100; ++depth)
        text += "BeginProperty p\n";
    for (int depth = 0; depth < 100; ++depth)
        text += "EndProperty\n";
    try
    {
        ParseForm(text + "End\n", "f");
        ADD_FAILURE() << "was read";
    }
    catch (const FormError& error)
    {
        EXPECT_STREQ(error.what(), "f:65: the blocks are nested too deeply");
    }
}

// Damaged text is either refused or comes out byte for byte.
TEST(FormText, SurvivesDamage)
{
    std::mt19937 random(20020415);
    const std::string pieces[] = {"\"", "'",    "\n", "=", "End", "Begin ", "BeginProperty ",
                                  "&H", "Chr(", "\r", ")"};
    int read = 0;
    for (int round = 0; round < 5000; ++round)
    {
        std::string text(Sample);
        for (auto changes = random() % 4 + 1; changes > 0 && !text.empty(); --changes)
        {
            const std::size_t at = random() % text.size();
            switch (random() % 4)
            {
            case 0:
                text[at] = static_cast<char>(random() % 256);
                break;
            case 1:
                text.erase(at, random() % 8);
                break;
            case 2:
                text.insert(at, pieces[random() % std::size(pieces)]);
                break;
            default:
                text.resize(at + 1);
                break;
            }
        }
        try
        {
            EXPECT_EQ(WriteForm(ParseForm(text, "f")), text);
            ++read;
        }
        catch (const FormError&)
        {
        }
    }
    // Both kinds must have come up for this to mean anything.
    EXPECT_GT(read, 100);
    EXPECT_LT(read, 4900);
}

} // namespace

} // namespace kiv::host
