#include "controls/lists/ChkComboRules.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <random>
#include <vector>

namespace kiv
{

std::ostream& operator<<(std::ostream& out, const SelectionRange& range)
{
    return out << range.Min << " to " << range.Max;
}

std::ostream& operator<<(std::ostream& out, const ItemColor& color)
{
    return out << (color.IsSystem ? "system colour " : "colour ") << color.Value;
}

namespace
{

ChkComboList ListOf(short count)
{
    ChkComboList list;
    for (short index = 0; index < count; ++index)
        list.Inserted(index);
    return list;
}

TEST(ChkComboList, IsEmptyAtFirst)
{
    const ChkComboList list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.NewIndex(), -1);
    EXPECT_EQ(list.PreviousIndex(), -1);
}

// Another program may have put items into the combo box, of which the list hears only afterwards.
TEST(ChkComboList, FollowsAComboBoxThatSomebodyElseHasFilledOrEmptied)
{
    ChkComboList list;
    for (short item = 0; item < 3; ++item)
        list.Inserted(item);
    list.Status(1, 2);
    list.PreviousIndex(2);
    list.Follow(5);
    EXPECT_EQ(list.Count(), 5);
    EXPECT_EQ(list.Status(1), 2);
    EXPECT_EQ(list.Status(4), 0);
    EXPECT_EQ(list.NewIndex(), 2);
    list.Follow(2);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Status(1), 2);
    EXPECT_EQ(list.NewIndex(), -1) << "gone";
    EXPECT_EQ(list.PreviousIndex(), -1) << "gone";
}

TEST(ChkComboList, TakesAnItemBehindItemsThatItDoesNotKnow)
{
    ChkComboList list = ListOf(1);
    list.Status(0, 2);
    list.Inserted(3);
    list.Status(3, 1);
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.NewIndex(), 3);
    EXPECT_EQ(list.Status(0), 2);
    EXPECT_EQ(list.Status(1), 0);
    EXPECT_EQ(list.Status(3), 1);
}

// It may have been selected before the list heard of it.
TEST(ChkComboList, MovesAPreviousIndexThatItDoesNotKnow)
{
    ChkComboList list = ListOf(2);
    list.PreviousIndex(4);
    list.Inserted(2);
    EXPECT_EQ(list.PreviousIndex(), 5);
}

struct BoundsRow
{
    short Count;
    int Index;
    bool Holds;
    bool CanInsert;
    bool CanSelect;
};

const BoundsRow BoundsRows[] = {
    {0, -2, false, false, false}, {0, -1, false, true, true},       {0, 0, false, true, false},
    {0, 1, false, false, false},  {3, -32768, false, false, false}, {3, -2, false, false, false},
    {3, -1, false, true, true},   {3, 0, true, true, true},         {3, 2, true, true, true},
    {3, 3, false, true, false},   {3, 4, false, false, false},      {3, 32767, false, false, false},
};

TEST(ChkComboList, KnowsItsBounds)
{
    for (const BoundsRow& row : BoundsRows)
    {
        const ChkComboList list = ListOf(row.Count);
        EXPECT_EQ(list.Holds(row.Index), row.Holds) << row.Index << " of " << row.Count;
        EXPECT_EQ(list.CanInsert(row.Index), row.CanInsert) << row.Index << " of " << row.Count;
        EXPECT_EQ(list.CanSelect(row.Index), row.CanSelect) << row.Index << " of " << row.Count;
    }
}

TEST(ChkComboList, IsFullWhenItsIndexesEnd)
{
    ChkComboList list = ListOf(ChkComboList::MostItems - 1);
    EXPECT_FALSE(list.IsFull());
    list.Inserted(32766);
    EXPECT_TRUE(list.IsFull());
    EXPECT_EQ(list.NewIndex(), 32766);
    EXPECT_TRUE(list.Holds(32766));
    EXPECT_FALSE(list.Holds(32767));
}

TEST(ChkComboList, MovesStatusesWithTheirItems)
{
    ChkComboList list = ListOf(3);
    for (int index = 0; index < 3; ++index)
        list.Status(index, index + 10);
    list.Inserted(1);
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.Status(0), 10);
    EXPECT_EQ(list.Status(1), 0) << "a new item is blank";
    EXPECT_EQ(list.Status(2), 11);
    EXPECT_EQ(list.Status(3), 12);
    list.Removed(0);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Status(0), 0);
    EXPECT_EQ(list.Status(2), 12);
}

TEST(ChkComboList, ForgetsEverythingWhenCleared)
{
    ChkComboList list = ListOf(3);
    list.PreviousIndex(2);
    list.Cleared();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.NewIndex(), -1);
    EXPECT_EQ(list.PreviousIndex(), -1);
}

struct ShiftRow
{
    short Index;
    short At;
    short Expected;
};

TEST(ChkComboIndexes, FollowAnInsertion)
{
    for (const ShiftRow& row : {ShiftRow{-1, 0, -1}, {0, 0, 1}, {0, 1, 0}, {2, 1, 3}, {2, 2, 3}, {2, 3, 2}})
        EXPECT_EQ(AfterInsertion(row.Index, row.At), row.Expected) << row.Index << " at " << row.At;
}

TEST(ChkComboIndexes, FollowARemoval)
{
    for (const ShiftRow& row :
         {ShiftRow{-1, 0, -1}, {0, 0, -1}, {0, 1, 0}, {2, 1, 1}, {2, 2, -1}, {2, 3, 2}, {1, 0, 0}})
        EXPECT_EQ(AfterRemoval(row.Index, row.At), row.Expected) << row.Index << " at " << row.At;
}

// Against a list in which each item knows itself what it is.
TEST(ChkComboIndexes, PointToTheSameItemsAsInAPlainList)
{
    struct Item
    {
        int Identity;
        std::int32_t Status;
    };
    constexpr unsigned Seed = 20011;
    std::mt19937 random(Seed);
    const auto below = [&random](std::size_t bound) { return static_cast<short>(random() % bound); };
    std::vector<Item> items;
    int identities = 0;
    std::optional<int> newest;
    std::optional<int> previous;
    ChkComboList list;
    const auto pointed = [&items](short index) {
        return index < 0 ? std::optional<int>() : items[static_cast<std::size_t>(index)].Identity;
    };
    for (int step = 0; step < 200000; ++step)
    {
        SCOPED_TRACE(step);
        const auto choice = random() % 100;
        if (choice < 45 || items.empty())
        {
            const short at = below(items.size() + 1);
            items.insert(items.begin() + at, {identities, 0});
            newest = identities++;
            list.Inserted(at);
        }
        else if (choice < 80)
        {
            const short at = below(items.size());
            const int gone = items[static_cast<std::size_t>(at)].Identity;
            items.erase(items.begin() + at);
            if (newest == gone)
                newest.reset();
            if (previous == gone)
                previous.reset();
            list.Removed(at);
        }
        else if (choice < 90)
        {
            const short at = below(items.size());
            const auto status = static_cast<std::int32_t>(random() % 5);
            items[static_cast<std::size_t>(at)].Status = status;
            list.Status(at, status);
        }
        else if (choice < 99)
        {
            const short at = below(items.size());
            previous = items[static_cast<std::size_t>(at)].Identity;
            list.PreviousIndex(at);
        }
        else if (random() % 20 == 0)
        {
            items.clear();
            newest.reset();
            previous.reset();
            list.Cleared();
        }
        ASSERT_EQ(static_cast<std::size_t>(list.Count()), items.size());
        ASSERT_EQ(pointed(list.NewIndex()), newest);
        ASSERT_EQ(pointed(list.PreviousIndex()), previous);
        if (!items.empty())
        {
            const short looked = below(items.size());
            ASSERT_EQ(list.Status(looked), items[static_cast<std::size_t>(looked)].Status);
        }
    }
}

TEST(ChkComboSelection, ReachesEveryItemByKeyButNotNothing)
{
    EXPECT_EQ(ReachableSelections(-1, 0), (SelectionRange{-1, -1}));
    EXPECT_EQ(ReachableSelections(-1, 3), (SelectionRange{-1, 2}));
    EXPECT_EQ(ReachableSelections(0, 3), (SelectionRange{0, 2}));
    EXPECT_EQ(ReachableSelections(2, 3), (SelectionRange{0, 2}));
    EXPECT_EQ(ReachableSelections(32766, 32767), (SelectionRange{0, 32766}));
}

TEST(ChkComboLook, ShowsAStatusByItsIcon)
{
    EXPECT_EQ(ItemIconFor(0, false), ItemIcon::None);
    EXPECT_EQ(ItemIconFor(0, true), ItemIcon::None);
    EXPECT_EQ(ItemIconFor(1, false), ItemIcon::Partial);
    EXPECT_EQ(ItemIconFor(1, true), ItemIcon::PartialSelected);
    EXPECT_EQ(ItemIconFor(2, false), ItemIcon::Complete);
    EXPECT_EQ(ItemIconFor(2, true), ItemIcon::CompleteSelected);
    EXPECT_EQ(ItemIconFor(3, false), ItemIcon::None);
    EXPECT_EQ(ItemIconFor(-1, true), ItemIcon::None);
}

TEST(ChkComboLook, MasksSystemColoursDifferently)
{
    EXPECT_EQ(ItemBackground(0x80000005U), (ItemColor{true, 5}));
    EXPECT_EQ(ItemBackground(0x80000012U), (ItemColor{true, 2})) << "the background keeps four bits";
    EXPECT_EQ(ItemForeground(0x80000012U), (ItemColor{true, 18}));
    EXPECT_EQ(ItemForeground(0x80000112U), (ItemColor{true, 18})) << "the text keeps eight bits";
    EXPECT_EQ(ItemBackground(0x00000001U), (ItemColor{false, 1}));
    EXPECT_EQ(ItemBackground(0x00FF8040U), (ItemColor{false, 0xFF8040}));
    EXPECT_EQ(ItemBackground(0x7FFF8040U), (ItemColor{false, 0xFF8040}));
    EXPECT_EQ(ItemForeground(0x02FF8040U), (ItemColor{false, 0xFF8040}));
}

TEST(ChkComboLook, PlacesIconAndText)
{
    EXPECT_EQ(ItemIconTop(0, 16), 1);
    EXPECT_EQ(ItemIconTop(0, 17), 1);
    EXPECT_EQ(ItemIconTop(3, 20), 4);
    EXPECT_EQ(ItemIconTop(0, 13), 0) << "rounded toward zero";
    EXPECT_EQ(ItemIconTop(0, 10), -2);
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::None), 4);
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::Partial), 17);
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::CompleteSelected), 17);
    // As the icons grow.
    const std::pair<int, int> sizes[] = {{125, 18}, {150, 21}, {200, 28}, {300, 42}, {400, 56}};
    for (const auto& [percent, size] : sizes)
    {
        EXPECT_EQ(ItemIconTop(10, 70, {percent}), (80 - size) / 2) << percent;
        EXPECT_EQ(ItemTextLeft(3, ItemIcon::Partial, {percent}), 3 + size) << percent;
    }
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::None, {125}), 4);
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::None, {200}), 5);
    EXPECT_EQ(ItemTextLeft(3, ItemIcon::None, {400}), 7);
}

TEST(ChkComboLook, DropsDownOneOrEightItems)
{
    EXPECT_EQ(DropDownHeight(22, 16, 0), 22 + 16 + 2);
    EXPECT_EQ(DropDownHeight(22, 16, 1), 22 + 8 * 16 + 2);
    EXPECT_EQ(DropDownHeight(22, 16, 32767), 22 + 8 * 16 + 2);
}

TEST(ChkComboLook, PagesByAllButOneOfTheItemsThatAreShown)
{
    const int shown = DropDownHeight(0, 1, 100) - DropDownHeight(0, 0, 100);
    EXPECT_EQ(SelectionPage, shown - 1);
}

TEST(ChkComboFocus, IsHandedOnOnceInTenMilliseconds)
{
    FocusDebounce debounce;
    EXPECT_TRUE(debounce.HandsOn(1000));
    EXPECT_FALSE(debounce.HandsOn(1000));
    EXPECT_FALSE(debounce.HandsOn(1010));
    EXPECT_TRUE(debounce.HandsOn(1011));
    EXPECT_FALSE(debounce.HandsOn(1021)) << "counted from the last one that was handed on";
    EXPECT_TRUE(debounce.HandsOn(1022));
}

// Right after the system's start as well, as if the focus had been handed on then.
TEST(ChkComboFocus, IsHandedOnTenMillisecondsAfterTheTicksStarted)
{
    FocusDebounce debounce;
    EXPECT_FALSE(debounce.HandsOn(10));
    EXPECT_TRUE(debounce.HandsOn(11));
}

// The count of ticks starts again at 0.
TEST(ChkComboFocus, IsHandedOnAcrossTheEndOfTheTicks)
{
    FocusDebounce debounce;
    EXPECT_TRUE(debounce.HandsOn(0xFFFFFFFBU));
    EXPECT_FALSE(debounce.HandsOn(5));
    EXPECT_TRUE(debounce.HandsOn(6));
}

TEST(ChkComboLook, SaysAStatusInWords)
{
    EXPECT_STREQ(StatusInWords(0), L"");
    EXPECT_STREQ(StatusInWords(1), L"partial");
    EXPECT_STREQ(StatusInWords(2), L"complete");
    EXPECT_STREQ(StatusInWords(3), L"");
    EXPECT_STREQ(StatusInWords(-1), L"");
}

} // namespace

} // namespace kiv
