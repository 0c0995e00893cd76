#include "tools/pictures/PictureFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <sys/resource.h>

namespace kiv::test
{

using namespace kiv::pictures;
namespace fs = std::filesystem;

namespace
{

// Stands in for a full disk: writing beyond the limit fails.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &oldLimit_);
        const rlimit limit{bytes, oldLimit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &oldLimit_);
        std::signal(SIGXFSZ, oldHandler_);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*oldHandler_)(int);
    rlimit oldLimit_{};
};

// What the action reports; empty when it succeeds.
template<typename Action>
std::string ErrorOf(Action action)
{
    try
    {
        action();
        return "";
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
}

const std::string Dot = "kind bitmap\nsize 1x1\non silver\ncolour r red\nrows\nr\n";

// A folder of the test's own, gone after it.
class PictureFolderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "kiv-pictures-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }

    void TearDown() override { fs::remove_all(folder_); }

    void Put(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder_ / name) << text;
    }

    fs::path folder_;
};

} // namespace

TEST_F(PictureFolderTest, ReadsPicturesInTheOrderOfTheirNames)
{
    Put("two.pix", Dot);
    Put("one.pix", Dot);
    Put("notes.txt", "not a picture");
    const PictureFolder read = ReadPictureFolder(folder_);
    ASSERT_EQ(read.pictures.size(), 2u);
    EXPECT_EQ(read.pictures[0].name, "one");
    EXPECT_EQ(read.pictures[1].name, "two");
    EXPECT_EQ(read.pictures[1].picture.width, 1u);
    EXPECT_TRUE(read.errors.empty());
}

TEST_F(PictureFolderTest, ReportsEachFileThatIsNoPicture)
{
    Put("a.pix", "kind photo\n");
    Put("b.pix", Dot);
    Put("c.pix", Dot + "more\n");
    const PictureFolder read = ReadPictureFolder(folder_);
    ASSERT_EQ(read.errors.size(), 2u);
    const std::string a = (folder_ / "a.pix").string();
    const std::string c = (folder_ / "c.pix").string();
    EXPECT_EQ(read.errors[0], a + ":1: 'photo' is no kind of picture; expected icon, bitmap or toolbox");
    EXPECT_EQ(read.errors[1], c + ":7: the picture has more rows than its size says");
    EXPECT_EQ(read.pictures.size(), 1u);
}

TEST_F(PictureFolderTest, ReadsTheDrawingOfAPicture)
{
    Put("one.pix", Dot);
    Put("two.pix", Dot);
    Put("two.draw", "disc red 0.5,0.5 1\n");
    const PictureFolder read = ReadPictureFolder(folder_);
    ASSERT_EQ(read.pictures.size(), 2u);
    EXPECT_TRUE(read.pictures[0].drawing.empty());
    EXPECT_EQ(read.pictures[1].drawing.size(), 1u);
    EXPECT_TRUE(read.errors.empty());
}

TEST_F(PictureFolderTest, ReportsADrawingThatIsNone)
{
    Put("a.pix", Dot);
    Put("a.draw", "circle red 0.5,0.5 1\n");
    Put("b.draw", "disc red 0.5,0.5 1\n");
    Put("c.pix", "kind photo\n");
    Put("c.draw", "disc\n");
    const PictureFolder read = ReadPictureFolder(folder_);
    ASSERT_EQ(read.errors.size(), 3u);
    EXPECT_EQ(read.errors[1], (folder_ / "a.draw").string() +
                                  ":1: 'circle' is no shape; expected disc, arc, polygon, line or rectangle");
    EXPECT_EQ(read.errors[2], (folder_ / "b.draw").string() + ": there is no .pix file of that name");
}

TEST_F(PictureFolderTest, ReportsAFileThatCannotBeRead)
{
    fs::create_symlink(folder_ / "nowhere", folder_ / "a.pix");
    const PictureFolder read = ReadPictureFolder(folder_);
    ASSERT_EQ(read.errors.size(), 1u);
    EXPECT_EQ(read.errors[0], (folder_ / "a.pix").string() + ": the file cannot be opened");
}

TEST_F(PictureFolderTest, RefusesAMissingOrEmptyFolder)
{
    EXPECT_EQ(ErrorOf([&] { ReadPictureFolder(folder_); }),
              folder_.string() + ": the folder holds no .pix file");
    const fs::path missing = folder_ / "missing";
    EXPECT_EQ(ErrorOf([&] { ReadPictureFolder(missing); }), missing.string() + ": there is no such folder");
}

TEST_F(PictureFolderTest, WritesBytesAsTheyAre)
{
    const Bytes bytes{0, '\r', '\n', 0x1a, 0xff};
    WriteFile(folder_ / "out", bytes);
    std::ifstream in(folder_ / "out", std::ios::binary);
    const std::string read{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(Bytes(read.begin(), read.end()), bytes);
}

TEST_F(PictureFolderTest, SaysWhichFileCannotBeCreated)
{
    const fs::path file = folder_ / "missing" / "out";
    EXPECT_EQ(ErrorOf([&] { WriteFile(file, {}); }), file.string() + ": the file cannot be created");
}

TEST_F(PictureFolderTest, LeavesNoHalfWrittenFile)
{
    const fs::path file = folder_ / "out";
    std::string error;
    {
        const FileSizeLimit limit(16);
        error = ErrorOf([&] { WriteFile(file, Bytes(100, 1)); });
    }
    EXPECT_EQ(error, file.string() + ": the file cannot be written");
    EXPECT_FALSE(fs::exists(file));
}

} // namespace kiv::test
