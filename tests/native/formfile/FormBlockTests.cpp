#include "host/formfile/FormBlock.h"

#include <gtest/gtest.h>

namespace kiv::host
{

namespace
{

FormBlock Property(const char* name)
{
    FormBlock block;
    block.IsProperty = true;
    block.Name = block.Class = name;
    return block;
}

TEST(FormBlock, PutsNewKeysBehindTheOthersAndInFrontOfControls)
{
    FormBlock form;
    form.Set("First", std::int64_t(1));
    form.Entries.emplace_back().Block.emplace_back().Name = "control";
    form.Set("Second", std::int64_t(2));
    form.SetProperty(Property("Font"));
    ASSERT_EQ(form.Entries.size(), 4U);
    EXPECT_EQ(form.Entries[0].Key, "First");
    EXPECT_EQ(form.Entries[1].Key, "Second");
    EXPECT_EQ(form.Entries[2].Block.at(0).Name, "Font");
    EXPECT_EQ(form.Entries[3].Block.at(0).Name, "control");
}

TEST(FormBlock, ReplacesANestedProperty)
{
    FormBlock form;
    form.SetProperty(Property("Font"));
    FormBlock changed = Property("FONT");
    changed.Set("Size", 9.75);
    form.SetProperty(changed);
    ASSERT_EQ(form.Entries.size(), 1U);
    EXPECT_EQ(*form.FindProperty("font")->Find("Size"), FormValue(9.75));
}

TEST(FormBlock, RemovesKeysAndPropertiesButNoControls)
{
    FormBlock form;
    form.Set("Tag", true);
    form.SetProperty(Property("Font"));
    form.Entries.emplace_back().Block.emplace_back().Name = "Other";
    form.Remove("TAG");
    form.Remove("font");
    form.Remove("Other");
    ASSERT_EQ(form.Entries.size(), 1U);
    EXPECT_EQ(form.Entries[0].Block.at(0).Name, "Other");
    EXPECT_EQ(form.Find("Tag"), nullptr);
    EXPECT_EQ(form.FindProperty("Font"), nullptr);
}

TEST(FormBlock, ComparesNamesWithoutCase)
{
    EXPECT_TRUE(SameFormName("ynResident", "YNRESIDENT"));
    EXPECT_FALSE(SameFormName("yn", "ynResident"));
    EXPECT_FALSE(SameFormName("ynResident", "yn"));
}

} // namespace

} // namespace kiv::host
