#include "tools/typelib/NameTable.h"

#include "tests/native/typelib/TestLibraries.h"

#include <gtest/gtest.h>

namespace kiv::test
{
using namespace typelib;

namespace
{
TypeLibrary Compiled()
{
    return TypeLibrary::Read(CompiledLibrary());
}

// The library with one byte of a segment changed.
TypeLibrary Altered(TypeLibrary::SegmentIndex segment, std::size_t offset, int change)
{
    TypeLibrary library = Compiled();
    Bytes data = library.Segment(segment);
    data.at(offset) = static_cast<std::uint8_t>(data.at(offset) + change);
    library.ReplaceSegment(segment, data);
    return library;
}
} // namespace

// What automation itself makes of these names (LHashValOfNameSys).
TEST(NameHash, IsAutomations)
{
    const struct
    {
        const char* name;
        std::uint16_t hash;
    } rows[] = {
        {"YesNo", 0xF543},
        {"yesno", 0xF543},
        {"Federal ID", 0xEC5A},
        {"Routing #", 0xFDDC},
        {"mm/dd/yy Only Year Required", 0x02F8},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NameHash(row.name), row.hash) << row.name;
}

TEST(NameHash, TakesSomeLettersForTheSame)
{
    EXPECT_EQ(NameHash("View"), NameHash("wieV"));
    EXPECT_EQ(NameHash("yours"), NameHash("Uours"));
    EXPECT_NE(NameHash("mm/dd"), NameHash("mm_dd"));
}

TEST(NameHash, RefusesWhatItCannotBeSureOf)
{
    ExpectRefused([] { NameHash("H\xF6he"); }, "outside ASCII");
}

TEST(NameTable, ReadsNamesAtTheirOffsetsOnly)
{
    const NameTable table(Compiled());
    EXPECT_EQ(table.At(0), "KivControls");
    EXPECT_EQ(table.At(FindByHash(Compiled(), "_YesNo")), "_YesNo");
    for (const std::uint32_t none : {4u, 0x7FFFFFFFu, NoOffset})
        ExpectRefused([&] { table.At(none); }, "a name that is not there");
}

TEST(NameTable, StoresUnchangedWhatItRead)
{
    TypeLibrary library = Compiled();
    NameTable(library).Store(library);
    EXPECT_EQ(library.Write(), CompiledLibrary());
}

TEST(NameTable, RefusesDamage)
{
    const auto names = TypeLibrary::Names;
    const struct
    {
        TypeLibrary library;
        const char* message;
    } rows[] = {
        {Altered(names, 12, 1), "hash of the name 'LivControls'"},
        {Altered(names, 10, 1), "hash of the name 'KivControls'"},
        {Altered(names, 4, 1), "hash chains"},
        {Altered(TypeLibrary::NameHash, 0, 1), "hash chains"},
        {Altered(names, 8, 4), "hash of the name"},
        {Altered(names, 8, -1), "hash of the name 'KivControl'"},
    };
    for (const auto& row : rows)
        ExpectRefused([&] { NameTable{row.library}; }, row.message);
}

TEST(NameTable, RefusesMoreOrFewerNamesThanTheHeaderCounts)
{
    for (const std::size_t field : {0x30, 0x34})
    {
        Bytes file = CompiledLibrary();
        ++file.at(field);
        ExpectRefused([&] { NameTable{TypeLibrary::Read(file)}; }, "as many names as the header says");
    }
}

TEST(NameTable, RefusesATableCutShort)
{
    TypeLibrary library = Compiled();
    Bytes names = library.Segment(TypeLibrary::Names);
    for (const std::size_t cut : {1u, 4u, 8u})
    {
        names.resize(names.size() - cut);
        library.ReplaceSegment(TypeLibrary::Names, names);
        ExpectRefused([&] { NameTable{library}; }, "");
    }
}

TEST(NameTable, RenamesOnlyToAFreeNameOfTheSameLength)
{
    const TypeLibrary library = Compiled();
    NameTable table(library);
    const std::uint32_t ssn = FindByHash(library, "SSN");
    ExpectRefused([&] { table.Rename(ssn, "Social"); }, "'SSN' and 'Social' differ in length");
    ExpectRefused([&] { table.Rename(ssn, "yES"); }, "'yES' is there already");
    table.Rename(ssn, "ssn");
    EXPECT_EQ(table.At(ssn), "ssn");
}
} // namespace kiv::test
