// What a form file can hold that no form can be made of, and what is said of it. The file stays as it is.

#include "host/folio/FormPage.h"
#include "tests/gui/HostedTest.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

#include <filesystem>
#include <fstream>

namespace kiv::test
{

namespace
{

struct Mistake
{
    std::string Form;
    std::string Message; // "@" stands for the file's name
};

std::ostream& operator<<(std::ostream& stream, const Mistake& mistake)
{
    return stream << mistake.Form;
}

// The line is the third one.
std::string InForm(const std::string& lines)
{
    return "Begin Form page\n    ClientWidth = 3000\n" + lines + "\nEnd\n";
}

// The lines begin with the fourth one.
std::string In(const std::string& blockClass, const std::string& lines)
{
    return InForm("Begin " + blockClass + " item\n" + lines + "\nEnd");
}

std::string InYesNo(const std::string& lines)
{
    return In("KivControls.YesNo", lines);
}

std::vector<Mistake> Mistakes()
{
    return {
        // The file as a whole.
        {"", "@: holds no form: \"Begin Form <name>\" is missing"},
        {"\xFF\xFE"
         "B",
         "@: is not a text in UTF-8"},
        {std::string("Begin Form page\n\0\nEnd\n", 22),
         "@:2: holds a character with the code 0, which no text does"},
        {"Begin Form page\n", "@:1: Begin Form page has no End"},
        {"Begin Frame page\nEnd\n", "@:1: a file starts with \"Begin Form <name>\""},
        {"Begin Form\nEnd\n", "@:1: \"Begin <class> <name>\" is expected"},
        {"Begin Form page\nEnd\nBegin Form other\nEnd\n",
         "@:3: only one form can be in a file, and it ends above"},
        {"Begin Form page\nEnd\nCaption = \"x\"\n", "@:3: only comments can stand outside the form"},
        {"End\n", "@:1: End without a block that it could end"},
        // The form.
        {InForm("Caption = Page"),
         "@:3: Caption: \"Page\" is no value: a number, True, False or a text in quotes is expected"},
        {InForm("Caption = \"Page"), "@:3: Caption: the text has no closing quote"},
        {InForm("Caption = \"Page\" x"), "@:3: Caption: unexpected \"x\" behind the text"},
        {InForm("Caption = \"x\" & Chr(200)"), "@:3: Caption: Chr takes a code from 0 to 127 in parentheses"},
        {InForm("Caption = 5"), "@:3: Caption: a text in quotes is expected"},
        {InForm("Caption"), "@:3: \"Caption\" is not understood: \"Key = value\" is expected"},
        {InForm("Cap tion = 1"), "@:3: \"Cap tion\" cannot be a key"},
        {InForm("clientwidth = 5"), "@:3: clientwidth is set twice in Begin Form page"},
        {InForm("ClientHeight = -5"), "@:3: ClientHeight: a whole number from 0 to 1000000 is expected"},
        {InForm("ClientHeight = 99999999999999999999"),
         "@:3: ClientHeight: the number 99999999999999999999 is too large"},
        {InForm("ClientHeight = &HXYZ"), "@:3: ClientHeight: \"&HXYZ\" is not a hexadecimal number"},
        {InForm("GridX = 0"), "@:3: GridX: a whole number from 15 to 1440 is expected"},
        {InForm("EndProperty"), "@:3: Begin Form page in line 1 needs End, not EndProperty"},
        {InForm("End all"), "@:3: unexpected \"all\" behind End"},
        // What stands on it.
        {In("Label", "Left = \"x\""), "@:4: Left: a whole number from -100000 to 1000000 is expected"},
        {In("Label", "Width = -100"), "@:4: Width: a whole number from 0 to 1000000 is expected"},
        {In("Label", "FontBold = 1"), "@:4: FontBold: True or False is expected"},
        {In("Frame", "Enabled = \"no\""), "@:4: Enabled: True or False is expected"},
        {In("Button", "TabIndex = 99999"), "@:4: TabIndex: a whole number from -1 to 32767 is expected"},
        {InForm("Begin Label page\nEnd"), "@:3: the name page is taken already"},
        {InForm("Begin Label a\nEnd\nBegin Label A\nEnd"), "@:5: the name A is taken already"},
        {InForm("Begin Button a\nDefault = True\nEnd\nBegin Button b\nDefault = True\nEnd"),
         "@:7: Default: a is the default button already"},
        {InForm("Begin Button a\nCancel = True\nEnd\nBegin Button b\nCancel = True\nEnd"),
         "@:7: Cancel: a is the cancel button already"},
        {InForm("Begin Label a\nBegin Label b\nEnd\nEnd"),
         "@:4: b cannot stand inside Begin Label a of line 3: only a form or a frame holds others (is an End "
         "missing?)"},
        {InYesNo("Begin Label b\nEnd"), "@:4: b cannot stand inside Begin KivControls.YesNo item of line 3: "
                                        "only a form or a frame holds others (is an End missing?)"},
        {InYesNo("BeginProperty Font\nBegin Label b\nEnd\nEndProperty"),
         "@:5: a control cannot stand inside BeginProperty Font"},
        // Controls.
        {In("No.Such", ""), "@:3: there is no class No.Such: Label, Frame, Button or the ProgID of a "
                            "registered control is expected"},
        {In("Label.", ""), "@:3: there is no class Label.: Label, Frame, Button or the ProgID of a "
                           "registered control is expected"},
        {In("StdFont", ""), "@:3: StdFont item cannot be made: it is no control"},
        {InYesNo("TabStop = 0"), "@:4: TabStop: True or False is expected"},
        {InYesNo("\n\nBackColor = \"red\""),
         "@:6: BackColor: item does not take \"red\": a colour such as &H0000FF (red) is expected"},
        {InYesNo("BackColor = &H123456789"),
         "@:4: BackColor: item does not take &H123456789: a colour such as &H0000FF (red) is expected"},
        {InYesNo("Enabled = \"perhaps\""),
         "@:4: Enabled: item does not take \"perhaps\": True or False is expected"},
        {InYesNo("HelpContextID = \"x\""),
         "@:4: HelpContextID: item does not take \"x\": a whole number is expected"},
        {In("KivControls.DateBox", "MinDate = \"garbage\""),
         "@:4: MinDate: item does not take \"garbage\": a date in quotes is expected"},
        {In("KivControls.PercentBox", "MaxDecimals = \"many\""),
         "@:4: MaxDecimals: item does not take \"many\": a whole number is expected"},
        {In("KivControls.CurrencyBox", "NumIntDigits = 100000"),
         "@:4: NumIntDigits: item does not take 100000: a whole number is expected"},
        {In("KivControls.NumberBox", "MaxLength = -1"),
         "@:4: MaxLength: item does not take -1: a whole number within its range is expected"},
        // Several, in the order of the controls.
        {InForm("Begin No.Such a\nEnd\nBegin KivControls.YesNo b\nEnabled = \"x\"\nBackColor = \"y\"\nEnd"),
         "@:3: there is no class No.Such: Label, Frame, Button or the ProgID of a registered control is "
         "expected\n"
         "@:6: Enabled: b does not take \"x\": True or False is expected\n"
         "@:7: BackColor: b does not take \"y\": a colour such as &H0000FF (red) is expected"},
        // What has parts.
        {InYesNo("BeginProperty Font\nSize = \"big\"\nEndProperty"),
         "@:5: Size: a number from 1 to 2160 is expected"},
        {InYesNo("BeginProperty Font\nSize = 99999999\nEndProperty"),
         "@:5: Size: a number from 1 to 2160 is expected"},
        {InYesNo("BeginProperty Font\nName = 5\nEndProperty"), "@:5: Name: a text in quotes is expected"},
        {InYesNo("BeginProperty Font\nCharset = 256\nEndProperty"),
         "@:5: Charset: a whole number from 0 to 255 is expected"},
        {InYesNo("BeginProperty Font\nItalic = 1\nEndProperty"), "@:5: Italic: True or False is expected"},
        {InYesNo("BeginProperty Font Colour\nEndProperty"),
         "@:4: Colour is no class of nested properties: Font and Picture are"},
        {In("KivControls.PicLite", "BeginProperty Picture\nEndProperty"),
         "@:4: a picture needs Data = \"hexadecimal digits\""},
        {In("KivControls.PicLite", "BeginProperty Picture\nData = \"0g\"\nEndProperty"),
         "@:5: Data: hexadecimal digits in quotes, two for each byte, are expected"},
        {In("KivControls.PicLite", "BeginProperty Picture\nData = \"000\"\nEndProperty"),
         "@:5: Data: hexadecimal digits in quotes, two for each byte, are expected"},
        {In("KivControls.PicLite", "BeginProperty Picture\nData = \"00ff00ff\"\nEndProperty"),
         "@:5: Data: the bytes are no picture that can be read"},
        {In("KivControls.PicLite", "Picture = \"logo.bmp\""),
         "@:4: Picture: item does not take \"logo.bmp\": a picture (BeginProperty Picture) is expected"},
        {InYesNo("Font = \"Tahoma\""),
         "@:4: Font: item does not take \"Tahoma\": a font (BeginProperty Font) is expected"},
    };
}

class FormMistake : public HostedTest, public testing::WithParamInterface<Mistake>
{
};

std::string MistakesIn(const TemporaryFile& file)
{
    try
    {
        const host::FormPage page(file.Path());
        return "it was read";
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

TEST_P(FormMistake, IsToldInWords)
{
    const TemporaryFile file(L".form");
    const std::filesystem::path path(file.Path());
    std::ofstream(path, std::ios::binary) << GetParam().Form;
    std::string expected;
    for (const char letter : GetParam().Message)
        expected += letter == '@' ? path.string() : std::string(1, letter);
    EXPECT_EQ(MistakesIn(file), expected);
    const auto bytes = ReadWholeFile(file.Path());
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), GetParam().Form);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormMistake, testing::ValuesIn(Mistakes()));

} // namespace

} // namespace kiv::test
