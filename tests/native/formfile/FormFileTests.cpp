#include "host/formfile/FormFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace kiv::host
{

namespace
{

class FormFile : public testing::Test
{
protected:
    FormFile() { std::filesystem::create_directories(folder_); }
    ~FormFile() override { std::filesystem::remove_all(folder_); }

    static void Write(const std::filesystem::path& path, const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
    }

    static std::string Read(const std::filesystem::path& path)
    {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    static std::string MessageOfLoading(const std::filesystem::path& path)
    {
        try
        {
            LoadFormFile(path);
            return "loaded";
        }
        catch (const FormError& error)
        {
            return error.what();
        }
    }

    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        ("kiv-formfile-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(FormFile, LoadsAndSavesTheSameBytes)
{
    const std::string text = "Begin Form page\n    Caption = \"Page\"\nEnd\n";
    Write(folder_ / "page.form", text);
    SaveFormFile(folder_ / "copy.form", LoadFormFile(folder_ / "page.form"));
    EXPECT_EQ(Read(folder_ / "copy.form"), text);
}

TEST_F(FormFile, ReplacesAnOlderFileAndLeavesNothingElse)
{
    Write(folder_ / "page.form", "older");
    FormDocument document;
    document.Form.Class = "Form";
    document.Form.Name = "page";
    SaveFormFile(folder_ / "page.form", document);
    EXPECT_EQ(Read(folder_ / "page.form"), "Begin Form page\nEnd\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(FormFile, LeavesTheOldOneWhenItCannotWrite)
{
    // A folder in the way of the fresh file, whoever runs the test.
    std::filesystem::create_directories(folder_ / "page.form.new" / "inside");
    Write(folder_ / "page.form", "older");
    FormDocument document;
    try
    {
        SaveFormFile(folder_ / "page.form", document);
        ADD_FAILURE() << "was written";
    }
    catch (const FormError& error)
    {
        EXPECT_EQ(error.what(), (folder_ / "page.form").string() + ": cannot be written");
    }
    EXPECT_EQ(Read(folder_ / "page.form"), "older");
}

TEST_F(FormFile, NamesTheFileInItsMessages)
{
    const std::string missing = (folder_ / "missing.form").string();
    EXPECT_EQ(MessageOfLoading(missing), missing + ": cannot be opened");
    const std::string empty = (folder_ / "empty.form").string();
    Write(empty, "");
    EXPECT_EQ(MessageOfLoading(empty), empty + ": holds no form: \"Begin Form <name>\" is missing");
    const std::string wrong = (folder_ / "wrong.form").string();
    Write(wrong, "Begin Form page\n    Caption = Page\nEnd\n");
    EXPECT_EQ(MessageOfLoading(wrong),
              wrong +
                  ":2: Caption: \"Page\" is no value: a number, True, False or a text in quotes is expected");
}

TEST(Examples, KeepEveryByteWhenWrittenBack)
{
    int seen = 0;
    for (const auto& file : std::filesystem::directory_iterator(KIV_EXAMPLES_DIR))
        if (file.path().extension() == ".form")
        {
            std::ostringstream text;
            text << std::ifstream(file.path(), std::ios::binary).rdbuf();
            EXPECT_EQ(WriteForm(LoadFormFile(file.path())), text.str()) << file.path();
            ++seen;
        }
    EXPECT_GT(seen, 0);
}

} // namespace

} // namespace kiv::host
