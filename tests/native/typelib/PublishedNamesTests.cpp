#include "tools/typelib/PublishedNames.h"

#include "tests/native/typelib/TestLibraries.h"

#include <gtest/gtest.h>

namespace kiv::test
{
using namespace typelib;

TEST(PublishedNames, ReadsRows)
{
    const PublishedNames expected{{"Routing__", "Routing #"}, {"mm_dd", "mm/dd"}, {"a_b", "a=b"}};
    EXPECT_EQ(
        ParsePublishedNames("# said of # and =\n\n  Routing__ =  Routing #  \r\n\tmm_dd=mm/dd\na_b = a=b"),
        expected);
    EXPECT_TRUE(ParsePublishedNames("").empty());
}

TEST(PublishedNames, RefusesMistakesAndNamesTheLine)
{
    const struct
    {
        const char* text;
        const char* message;
    } rows[] = {
        {"mm_dd mm/dd", "line 1: expected: placeholder = published name"},
        {"# mm\n\nmm_dd =", "line 3: the published name is missing"},
        {"mm_d = mm/dd", "line 1: 'mm_d' and 'mm/dd' differ in length"},
        {" = mm/dd", "line 1: '' and 'mm/dd' differ in length"},
        {"mm-dd = mm/dd", "line 1: the placeholder of 'mm/dd' has to be mm_dd"},
        {"MM_dd = mm/dd", "line 1: the placeholder of 'mm/dd' has to be mm_dd"},
        {"mm_dd = mm/dd\nmm_dd = mm dd", "line 2: 'mm_dd' is listed twice"},
    };
    for (const auto& row : rows)
        ExpectRefused([&] { ParsePublishedNames(row.text); }, row.message);
}
} // namespace kiv::test
