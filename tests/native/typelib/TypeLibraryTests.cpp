#include "tools/typelib/TypeLibrary.h"

#include "tests/native/typelib/TestLibraries.h"
#include "tools/typelib/Publish.h"

#include <gtest/gtest.h>
#include <random>

namespace kiv::test
{
using namespace typelib;

namespace
{
Bytes With32(Bytes file, std::size_t offset, std::uint32_t value)
{
    Write32(file, offset, value);
    return file;
}

// The file without one of its segments: everything behind it moves up.
Bytes WithoutSegment(Bytes file, std::size_t segment)
{
    const std::uint32_t start = Read32(file, DirectoryEntry(file, segment));
    const std::uint32_t length = Read32(file, DirectoryEntry(file, segment) + 4);
    const auto moveUp = [&](std::size_t field) {
        const std::uint32_t offset = Read32(file, field);
        if (offset != NoOffset && offset > start)
            Write32(file, field, offset - length);
    };
    for (std::size_t i = 0; i < Read32(file, 0x20); ++i)
        moveUp(SegmentOffset(file, TypeLibrary::TypeHeaders) + 100 * i + 4);
    for (std::size_t i = 0; i < TypeLibrary::SegmentCount; ++i)
        moveUp(DirectoryEntry(file, i));
    Write32(file, DirectoryEntry(file, segment), NoOffset);
    Write32(file, DirectoryEntry(file, segment) + 4, 0);
    const auto first = file.begin() + static_cast<std::ptrdiff_t>(start);
    file.erase(first, first + static_cast<std::ptrdiff_t>(length));
    return file;
}

void CheckUnchanged(const Bytes& file)
{
    EXPECT_EQ(TypeLibrary::Read(file).Write(), file);
    TypeLibrary library = TypeLibrary::Read(file);
    typelib::Publish(library, {});
    const Bytes published = library.Write();
    EXPECT_EQ(TypeLibrary::Read(published).Write(), published);
}
} // namespace

TEST(TypeLibrary, WritesWhatItReadByteForByte)
{
    for (const char* arch : {"x86", "x64"})
    {
        SCOPED_TRACE(arch);
        CheckUnchanged(CompiledLibrary(arch));
    }
}

TEST(TypeLibrary, WritesInstalledLibrariesByteForByte)
{
    const auto paths = InstalledLibraries();
    if (paths.empty())
        GTEST_SKIP() << "Wine, whose type libraries this test reads, is not installed";
    for (const auto& path : paths)
    {
        SCOPED_TRACE(path);
        CheckUnchanged(LibraryInModule(path));
    }
}

TEST(TypeLibrary, ReadsALibraryWithoutStringsButCannotGiveItHelp)
{
    const Bytes file = WithoutSegment(CompiledLibrary(), TypeLibrary::Strings);
    TypeLibrary library = TypeLibrary::Read(file);
    EXPECT_EQ(library.Write(), file);
    ExpectRefused([&] { typelib::Publish(library, {}); }, "no string table");
}

TEST(TypeLibrary, AddsStringsBehindTheOthers)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    const std::size_t end = library.Segment(TypeLibrary::Strings).size();
    EXPECT_EQ(library.AddString(""), end);
    EXPECT_EQ(library.AddString("yy"), end + 8);
    EXPECT_EQ(library.AddString("mm/dd"), end + 16);
    EXPECT_EQ(library.AddString("Custom"), end + 24);
    EXPECT_EQ(library.Segment(TypeLibrary::Strings).size(), end + 32);
    EXPECT_EQ(StringAt(library, static_cast<std::uint32_t>(end + 16)), "mm/dd");
    ExpectRefused([&] { library.AddString(std::string(0x10000, 'x')); }, "longer than the format can hold");
}

TEST(TypeLibrary, RefusesFilesOfAnotherKind)
{
    ExpectUnreadable({}, "cut short");
    ExpectUnreadable(With32(CompiledLibrary(), 0, 0x00905A4D), "does not begin with MSFT");
    ExpectUnreadable(With32(CompiledLibrary(), 4, 0x00010003), "unknown version");
}

TEST(TypeLibrary, RefusesAFileCutShortAnywhere)
{
    const Bytes& whole = CompiledLibrary();
    for (std::size_t length = 0; length < whole.size(); ++length)
    {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_THROW(TypeLibrary::Read(part), TypeLibraryError) << length;
    }
}

TEST(TypeLibrary, RefusesMoreThanALibrary)
{
    Bytes file = CompiledLibrary();
    file.push_back(0);
    ExpectUnreadable(file, "bytes after the last type's members");
}

TEST(TypeLibrary, RefusesADamagedDirectory)
{
    const Bytes& file = CompiledLibrary();
    const std::size_t names = DirectoryEntry(file, TypeLibrary::Names);
    const std::size_t absent = DirectoryEntry(file, 13);
    ASSERT_EQ(Read32(file, absent), NoOffset);
    const struct
    {
        std::size_t field;
        std::uint32_t value;
        const char* message;
    } rows[] = {
        {0x20, 0xFFFFFFFF, "cut short"},
        {0x20, 0, "directory entry of segment 0 is damaged"},
        {0x54, 100, "headers of the types do not follow each other"},
        {names, Read32(file, names) + 4, "segment 7 does not begin where another ends"},
        {names, Read32(file, names) - 4, "segment 7 does not begin where another ends"},
        {names, 0xFFFFFFF0, "cut short"},
        {names, NoOffset, "segment 7 has a length but no place"},
        {names + 4, Read32(file, names + 4) + 4, "does not begin where another ends"},
        {names + 4, 0xFFFFFFFF, "cut short"},
        {names + 8, 0, "directory entry of segment 7 is damaged"},
        {names + 12, 0, "directory entry of segment 7 is damaged"},
        {absent + 4, 4, "segment 13 has a length but no place"},
        {absent, 0, "segment 13 does not begin where another ends"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::to_string(row.field) + " = " + std::to_string(row.value));
        ExpectUnreadable(With32(file, row.field, row.value), row.message);
    }
}

TEST(TypeLibrary, RefusesDamagedTypes)
{
    const Bytes& file = CompiledLibrary();
    const std::size_t header = SegmentOffset(file, TypeLibrary::TypeHeaders);
    const std::size_t members = Read32(file, header + 4); // AnswerEnums: three records of 20 bytes
    ASSERT_EQ(Read32(file, members), 60u);
    const struct
    {
        std::size_t field;
        std::uint32_t value;
        const char* message;
    } rows[] = {
        {header + 4, static_cast<std::uint32_t>(members + 4), "do not begin where those before them end"},
        {header + 24, 0xFFFFFFFF, "cut short"},
        {header + 24, 0x00020000, "do not follow each other"},
        {header + 24, 0, "do not begin where those before them end"},
        {members, 0xFFFFFFFF, "cut short"},
        {members, 56, "do not follow each other"},
        {members, 64, "do not follow each other"},
        {members + 4, 0x00000000, "do not follow each other"},
        {members + 4, 0x00000018, "do not follow each other"},
        {members + 44, 0x00000010, "do not fill their block"},
        {members + 44, 0x00000018, "cut short"},
        {members + 64 + 24, 4, "do not follow each other"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::to_string(row.field) + " = " + std::to_string(row.value));
        ExpectUnreadable(With32(file, row.field, row.value), row.message);
    }
}

TEST(TypeLibrary, RefusesTypeHeadersThatDoNotFitTheirNumber)
{
    TypeLibrary library = TypeLibrary::Read(CompiledLibrary());
    Bytes headers = library.Segment(TypeLibrary::TypeHeaders);
    headers.resize(headers.size() + 100);
    library.ReplaceSegment(TypeLibrary::TypeHeaders, headers);
    ExpectUnreadable(library.Write(), "does not fit the number of types");
}

// Whatever is done to a file: it is refused, or what is written is what was read. Sanitizers watch the rest.
TEST(TypeLibrary, SurvivesRandomDamage)
{
    std::mt19937 random(20011);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 5000; ++round)
    {
        Bytes file = CompiledLibrary(round % 2 == 0 ? "x86" : "x64");
        for (std::size_t change = 0, changes = 1 + below(4); change < changes; ++change)
        {
            constexpr std::uint8_t tellingValues[] = {0, 1, 4, 0x7F, 0x80, 0xFF};
            // Every other change hits the header and the directory, where most goes wrong.
            std::uint8_t& byte = file[below(round % 4 < 2 ? 0x16C : file.size())];
            byte = below(2) == 0 ? tellingValues[below(std::size(tellingValues))]
                                 : static_cast<std::uint8_t>(below(256));
        }
        if (below(8) == 0)
            file.resize(below(file.size() + 1));
        SCOPED_TRACE(round);
        try
        {
            TypeLibrary library = TypeLibrary::Read(file);
            ASSERT_EQ(library.Write(), file);
            typelib::Publish(library, ContractNames());
            library.Write();
            ++accepted;
        }
        catch (const TypeLibraryError&)
        {
            ++refused;
        }
    }
    // Neither outcome may be the only one, or this would try nothing.
    EXPECT_GT(accepted, 500);
    EXPECT_GT(refused, 500);
}
} // namespace kiv::test
