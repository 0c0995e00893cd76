#include "tools/typelib/NameTable.h"

#include "tests/native/typelib/TestLibraries.h"

#include <gtest/gtest.h>

namespace kiv::test
{
using namespace typelib;

namespace
{
TypeLibrary compiled()
{
    return TypeLibrary::read(compiledLibrary());
}

// The library with one byte of a segment changed.
TypeLibrary altered(TypeLibrary::SegmentIndex segment, std::size_t offset, int change)
{
    TypeLibrary library = compiled();
    Bytes data = library.segment(segment);
    data.at(offset) = static_cast<std::uint8_t>(data.at(offset) + change);
    library.replaceSegment(segment, data);
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
        EXPECT_EQ(nameHash(row.name), row.hash) << row.name;
}

TEST(NameHash, TakesSomeLettersForTheSame)
{
    EXPECT_EQ(nameHash("View"), nameHash("wieV"));
    EXPECT_EQ(nameHash("yours"), nameHash("Uours"));
    EXPECT_NE(nameHash("mm/dd"), nameHash("mm_dd"));
}

TEST(NameHash, RefusesWhatItCannotBeSureOf)
{
    expectRefused([] { nameHash("H\xF6he"); }, "outside ASCII");
}

TEST(NameTable, ReadsNamesAtTheirOffsetsOnly)
{
    const NameTable table(compiled());
    EXPECT_EQ(table.at(0), "KivControls");
    EXPECT_EQ(table.at(findByHash(compiled(), "_YesNo")), "_YesNo");
    for (const std::uint32_t none : {4u, 0x7FFFFFFFu, noOffset})
        expectRefused([&] { table.at(none); }, "a name that is not there");
}

TEST(NameTable, StoresUnchangedWhatItRead)
{
    TypeLibrary library = compiled();
    NameTable(library).store(library);
    EXPECT_EQ(library.write(), compiledLibrary());
}

TEST(NameTable, RefusesDamage)
{
    const auto names = TypeLibrary::Names;
    const struct
    {
        TypeLibrary library;
        const char* message;
    } rows[] = {
        {altered(names, 12, 1), "hash of the name 'LivControls'"},
        {altered(names, 10, 1), "hash of the name 'KivControls'"},
        {altered(names, 4, 1), "hash chains"},
        {altered(TypeLibrary::NameHash, 0, 1), "hash chains"},
        {altered(names, 8, 4), "hash of the name"},
        {altered(names, 8, -1), "hash of the name 'KivControl'"},
    };
    for (const auto& row : rows)
        expectRefused([&] { NameTable{row.library}; }, row.message);
}

TEST(NameTable, RefusesMoreOrFewerNamesThanTheHeaderCounts)
{
    for (const std::size_t field : {0x30, 0x34})
    {
        Bytes file = compiledLibrary();
        ++file.at(field);
        expectRefused([&] { NameTable{TypeLibrary::read(file)}; }, "as many names as the header says");
    }
}

TEST(NameTable, RefusesATableCutShort)
{
    TypeLibrary library = compiled();
    Bytes names = library.segment(TypeLibrary::Names);
    for (const std::size_t cut : {1u, 4u, 8u})
    {
        names.resize(names.size() - cut);
        library.replaceSegment(TypeLibrary::Names, names);
        expectRefused([&] { NameTable{library}; }, "");
    }
}

TEST(NameTable, RenamesOnlyToAFreeNameOfTheSameLength)
{
    const TypeLibrary library = compiled();
    NameTable table(library);
    const std::uint32_t ssn = findByHash(library, "SSN");
    expectRefused([&] { table.rename(ssn, "Social"); }, "'SSN' and 'Social' differ in length");
    expectRefused([&] { table.rename(ssn, "yES"); }, "'yES' is there already");
    table.rename(ssn, "ssn");
    EXPECT_EQ(table.at(ssn), "ssn");
}
} // namespace kiv::test
