// A form file on the screen and back: what nobody changed stays as it was, byte for byte.

#include "host/container/Automation.h"
#include "host/folio/FormPage.h"
#include "tests/gui/HostedTest.h"
#include "tests/support/Files.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace kiv::test
{

namespace
{

std::string ReadText(const std::filesystem::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

class FormPage : public HostedTest
{
protected:
    const TemporaryFile& Written(const std::string& text)
    {
        std::ofstream(std::filesystem::path(file_.Path()), std::ios::binary) << text;
        return file_;
    }

    // Of the form as it is now.
    std::string Saved(host::FormPage& page)
    {
        page.TakeChanges();
        page.Save(saved_.Path());
        return ReadText(saved_.Path());
    }

    std::string SavedUnchanged(const std::filesystem::path& file, bool design)
    {
        host::FormPage page(file, {.Design = design});
        page.Window().Show();
        Settle();
        return Saved(page);
    }

private:
    const TemporaryFile file_{L".form"};
    const TemporaryFile saved_{L".form"};
};

TEST_F(FormPage, KeepsEverySampleAsItIs)
{
    int seen = 0;
    for (const wchar_t* folder : {L"\\examples", L"\\docs\\pictures"})
        for (const auto& file : std::filesystem::directory_iterator(RequiredVariable(L"KIV_SOURCE") + folder))
            if (file.path().extension() == L".form")
            {
                const std::string text = ReadText(file.path());
                EXPECT_EQ(SavedUnchanged(file.path(), false), text) << file.path();
                EXPECT_EQ(SavedUnchanged(file.path(), true), text) << file.path();
                ++seen;
            }
    EXPECT_GE(seen, 14);
}

// Forms as people and programs write them, in any layout.
class FormWriter
{
public:
    explicit FormWriter(unsigned seed) : random_(seed) {}

    std::string Form()
    {
        lineEnd_ = Chance(4) ? "\r\n" : "\n";
        text_ = Chance(8) ? "\xEF\xBB\xBF" : "";
        if (Chance(3))
            Line("' a form that was made by chance");
        Line("Begin Form page" + Comment());
        Key("Caption", Quoted());
        Key("ClientWidth", Number(3000, 9000));
        Key("ClientHeight", Number(2000, 6000));
        Items(1);
        text_ += "End";
        if (!Chance(4))
            text_ += lineEnd_;
        if (Chance(6))
            text_ += lineEnd_ + "' behind it";
        return text_;
    }

private:
    bool Chance(unsigned in) { return random_() % in == 0; }
    std::string Number(unsigned least, unsigned most)
    {
        const unsigned number = least + random_() % (most - least);
        std::ostringstream text;
        if (Chance(5))
            text << "&H" << std::hex << std::uppercase << number;
        else
            text << number;
        return text.str();
    }
    std::string Quoted()
    {
        static const char* const texts[] = {"\"\"",
                                            "\"plain\"",
                                            "\"say \"\"hi\"\"\"",
                                            "\"it's\"",
                                            "\"one\" & Chr(10) & \"two\"",
                                            "\"\xC3\xA4\xE2\x82\xAC\""};
        return texts[random_() % std::size(texts)];
    }
    std::string Comment() { return Chance(5) ? "  ' why \"not\"" : ""; }
    void Line(const std::string& line) { text_ += line + lineEnd_; }
    void Key(const std::string& key, const std::string& value)
    {
        const char* const gaps[] = {" = ", "=", "   =  ", "\t= "};
        Line(std::string(random_() % 9, ' ') + key + gaps[random_() % 4] + value + Comment());
        if (Chance(12))
            Line(Chance(2) ? "" : "   ' between");
    }

    void Items(int depth)
    {
        const int count = depth == 1 && Chance(3) ? 2 : 1;
        for (int item = 0; item < count; ++item)
        {
            const std::string name = "item" + std::to_string(++items_);
            if (depth < 3 && Chance(4))
            {
                Line("  Begin Frame " + name + Comment());
                Place();
                Items(depth + 1);
            }
            else
            {
                Control(name);
            }
            Line("  End" + Comment());
        }
    }

    void Place()
    {
        Key("Left", Number(0, 3000));
        Key("Top", Number(0, 2000));
        Key("Width", Number(300, 3000));
        Key("Height", Number(150, 900));
        if (Chance(4))
            Key("TabIndex", Number(0, 20));
        if (Chance(6))
            Key("Visible", Chance(2) ? "True" : "false");
    }

    void Control(const std::string& name)
    {
        const char* const classes[] = {"YesNo",      "NumberBox", "DateBox",  "CurrencyBox",
                                       "PercentBox", "ChkCombo",  "EnumList", "PicCommand",
                                       "PicLite",    "Label",     "Button"};
        const std::string which = classes[random_() % std::size(classes)];
        const bool isControl = which != "Label" && which != "Button";
        Line("  Begin " + (isControl ? "KivControls." + which : which) + " " + name + Comment());
        Place();
        if (!isControl)
            Key("Caption", Quoted());
        if (isControl && Chance(3))
            Key("Tag", Quoted());
        if (isControl && Chance(3))
            Key("BackColor", Chance(2) ? "&H8000000F" : Number(0, 0xFFFFFF));
        if (isControl && Chance(3))
            Key("Enabled", Chance(2) ? "True" : "False");
        if (isControl && Chance(4))
            Key("Unknown", Quoted());
        if (isControl && which != "PicLite" && Chance(3))
        {
            Line("   BeginProperty Font" + Comment());
            if (Chance(2))
                Key("Name", "\"Tahoma\"");
            Key("Size", Chance(2) ? "10" : "8.25");
            Line("   EndProperty");
        }
    }

    std::mt19937 random_;
    std::string text_;
    std::string lineEnd_;
    int items_ = 0;
};

TEST_F(FormPage, KeepsAThousandFormsAsTheyAre)
{
    for (unsigned seed = 1; seed <= 1000 && !HasFailure(); ++seed)
    {
        const std::string text = FormWriter(seed).Form();
        host::FormPage page(Written(text).Path(), {.Design = seed % 2 == 0});
        EXPECT_EQ(Saved(page), text) << "form " << seed;
    }
}

constexpr const char* OneOfEach = "Begin Form page\n"
                                  "    ClientWidth = 6000\n"
                                  "    ClientHeight = 4000\n"
                                  "    Begin Frame fra\n"
                                  "        Left = 300 ' of the form\n"
                                  "        Top = 300\n"
                                  "        Width = 4500\n"
                                  "        Height = 2700\n"
                                  "        Begin KivControls.CurrencyBox curOne\n"
                                  "            Left = 310\n"
                                  "            Top = 600\n"
                                  "            Width = 1800\n"
                                  "            Height = 315\n"
                                  "            MaxValue = 5000\n"
                                  "            MinValue = -5000.5\n"
                                  "            BeginProperty Font\n"
                                  "                Size = 10 ' and no more\n"
                                  "            EndProperty\n"
                                  "        End\n"
                                  "    End\n"
                                  "End\n";

TEST_F(FormPage, RewritesWhatWasChangedAndNothingElse)
{
    struct Row
    {
        const char* Property;
        Variant Value;
        const char* Was; // empty: there was no such line
        const char* Is;
    };
    const Row rows[] = {
        {"MaxValue", Variant(6000L), "MaxValue = 5000\n", "MaxValue = 6000\n"},
        {"MinValue", Variant(-7.25), "MinValue = -5000.5\n", "MinValue = -7.25\n"},
        {"Left", Variant(600L), "Left = 310\n", "Left = 600\n"},
        {"Width", Variant(2400L), "Width = 1800\n", "Width = 2400\n"},
        {"TabIndex", Variant(7L), "", "            TabIndex = 7\n"},
        {"Tag", Variant(L"note"), "", "            Tag = \"note\"\n"},
        {"Enabled", Variant(false), "", "            Enabled = False\n"},
    };
    for (const Row& row : rows)
    {
        host::FormPage page(Written(OneOfEach).Path(), {.Design = true});
        const std::wstring name(row.Property, row.Property + strlen(row.Property));
        host::PutProperty(page.Window().FindSite(L"curOne")->ExtendedControl(), name, row.Value);
        std::string expected = OneOfEach;
        if (*row.Was)
            expected.replace(expected.find(row.Was), strlen(row.Was), row.Is);
        else
            expected.insert(expected.find("        End\n    End\n"), row.Is);
        EXPECT_EQ(Saved(page), expected) << row.Property;
    }
}

TEST_F(FormPage, RewritesOneLineOfAFont)
{
    host::FormPage page(Written(OneOfEach).Path(), {.Design = true});
    const Variant font = page.Window().FindSite(L"curOne")->Get(L"Font");
    Microsoft::WRL::ComPtr<IDispatch> object;
    ASSERT_EQ(font.Object()->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
    host::PutProperty(object.Get(), L"Size", Variant(14L));
    std::string expected = OneOfEach;
    expected.replace(expected.find("Size = 10 '"), 9, "Size = 14");
    const std::string saved = Saved(page);
    EXPECT_NE(saved.find("' and no more"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("Charset"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("Size = 10"), std::string::npos) << saved;
}

TEST_F(FormPage, KeepsPlacesInAFrameWhenTheFrameMoves)
{
    host::FormPage page(Written(OneOfEach).Path(), {.Design = true});
    host::FormItem& frame = *page.Window().Find(L"fra");
    RECT bounds = frame.Bounds();
    OffsetRect(&bounds, 10, 0);
    frame.Move(bounds);
    std::string expected = OneOfEach;
    expected.replace(expected.find("Left = 300 '"), 10, "Left = 450");
    EXPECT_EQ(Saved(page), expected);
}

TEST_F(FormPage, PutsWhatIsNestedIntoItsFrame)
{
    const host::FormPage page(Written(OneOfEach).Path());
    host::Form& form = const_cast<host::FormPage&>(page).Window();
    const host::FormItem* const frame = form.Find(L"fra");
    const host::ControlSite* const site = form.FindSite(L"curOne");
    ASSERT_TRUE(site);
    EXPECT_EQ(site->Container(), frame);
    EXPECT_EQ(site->Bounds().left, 300 / 15 + 21);
    EXPECT_EQ(site->Bounds().top, (300 + 600) / 15);
}

TEST_F(FormPage, NotesLinesThatNobodyReads)
{
    std::string text = OneOfEach;
    text.insert(text.find("            MinValue"),
                "            MaxVaule = 5\n            _Version = 65536\n");
    const TemporaryFile& file = Written(text);
    host::FormPage page(file.Path());
    ASSERT_EQ(page.Notes().size(), 1U);
    EXPECT_EQ(page.Notes().front(), std::filesystem::path(file.Path()).string() +
                                        ":15: curOne has no property MaxVaule; the line is kept");
    EXPECT_EQ(Saved(page), text);
}

} // namespace

} // namespace kiv::test
