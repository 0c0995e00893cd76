#include "host/formfile/FormFile.h"

#include "host/files/FileError.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <csignal>
#include <sys/resource.h>

namespace kiv::host
{

namespace
{

// As if the disk had no room left, for as long as it lives.
class FullDisk
{
public:
    FullDisk()
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none = {0, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_ = {};
    void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

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

    static FormDocument Page()
    {
        FormDocument document;
        document.Form.Class = "Form";
        document.Form.Name = "page";
        return document;
    }

    static std::string MessageOfSaving(const std::filesystem::path& path)
    {
        try
        {
            SaveFormFile(path, Page());
            return "saved";
        }
        catch (const FileError& error)
        {
            return error.what();
        }
    }

    static std::string MessageOfLoading(const std::filesystem::path& path)
    {
        try
        {
            LoadFormFile(path);
            return "loaded";
        }
        catch (const std::runtime_error& error)
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
    SaveFormFile(folder_ / "page.form", Page());
    EXPECT_EQ(Read(folder_ / "page.form"), "Begin Form page\nEnd\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(FormFile, LeavesWhatLiesBesideIt)
{
    Write(folder_ / "page.form", "older");
    Write(folder_ / "page.form.new", "somebody's");
    SaveFormFile(folder_ / "page.form", Page());
    EXPECT_EQ(Read(folder_ / "page.form"), "Begin Form page\nEnd\n");
    EXPECT_EQ(Read(folder_ / "page.form.new"), "somebody's");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 2);
}

TEST_F(FormFile, KeepsWhoMayReadIt)
{
    using std::filesystem::perms;
    for (const perms mode : {perms(0600), perms(0644), perms(0755)})
    {
        Write(folder_ / "page.form", "older");
        std::filesystem::permissions(folder_ / "page.form", mode);
        SaveFormFile(folder_ / "page.form", Page());
        EXPECT_EQ(std::filesystem::status(folder_ / "page.form").permissions(), mode);
    }
}

TEST_F(FormFile, RefusesWhatIsMarkedAsReadOnly)
{
    Write(folder_ / "page.form", "older");
    std::filesystem::permissions(folder_ / "page.form", std::filesystem::perms(0444));
    EXPECT_EQ(MessageOfSaving(folder_ / "page.form"),
              (folder_ / "page.form").string() + ": is marked as read-only");
    EXPECT_EQ(Read(folder_ / "page.form"), "older");
}

TEST_F(FormFile, GoesWhereALinkLeads)
{
    std::filesystem::create_directories(folder_ / "other");
    Write(folder_ / "other" / "page.form", "older");
    std::filesystem::create_symlink(folder_ / "other" / "page.form", folder_ / "page.form");
    SaveFormFile(folder_ / "page.form", Page());
    EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "page.form"));
    EXPECT_EQ(Read(folder_ / "other" / "page.form"), "Begin Form page\nEnd\n");
}

TEST_F(FormFile, LeavesTheOldOneWhenTheDiskIsFull)
{
    Write(folder_ / "page.form", "older");
    const FullDisk full;
    EXPECT_EQ(MessageOfSaving(folder_ / "page.form"),
              (folder_ / "page.form").string() + ": cannot be written");
    EXPECT_EQ(Read(folder_ / "page.form"), "older");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(FormFile, DoesNotReplaceADevice)
{
    SaveFormFile("/dev/null", Page());
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(MessageOfSaving("/dev/full"), "/dev/full: cannot be written");
}

TEST_F(FormFile, SaysWhenThereIsNoSuchFolder)
{
    const std::string place = (folder_ / "nowhere" / "page.form").string();
    EXPECT_EQ(MessageOfSaving(place), place + ": cannot be written");
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
