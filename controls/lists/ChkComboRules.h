#pragma once

#include "runtime/core/Resolution.h"

#include <cstdint>
#include <vector>

namespace kiv
{

// What a ChkCombo keeps for its items beside what the combo box itself keeps, and where indexes go when items
// come and go. An index is -1 where there is none.
class ChkComboList
{
public:
    // As many as 16-bit indexes reach.
    static constexpr int MostItems = 32767;

    int Count() const { return static_cast<int>(statuses_.size()); }
    bool IsFull() const { return Count() == MostItems; }

    // Whether there is an item of that index, whether one can be added there (-1 is at the end), and whether
    // it can be selected (-1 selects nothing).
    bool Holds(int index) const { return index >= 0 && index < Count(); }
    bool CanInsert(int index) const { return index >= -1 && index <= Count(); }
    bool CanSelect(int index) const { return index >= -1 && index < Count(); }

    short NewIndex() const { return newIndex_; }
    short PreviousIndex() const { return previousIndex_; }
    void PreviousIndex(short index) { previousIndex_ = index; }

    // Any number is kept. index: of an item.
    std::int32_t Status(int index) const { return statuses_[static_cast<std::size_t>(index)]; }
    void Status(int index, std::int32_t status) { statuses_[static_cast<std::size_t>(index)] = status; }

    // The combo box holds that many items: fewer or more than are known here if somebody else has sent it
    // messages of his own. What came to be there has no status.
    void Follow(int count);
    // The combo box has taken an item in at that place, has let one go, or all of them.
    void Inserted(short index);
    void Removed(short index);
    void Cleared();

private:
    std::vector<std::int32_t> statuses_;
    short newIndex_ = -1;
    short previousIndex_ = -1;
};

// Where an index is that pointed to an item, after another was inserted or removed; -1 when it was the
// removed one itself.
short AfterInsertion(short index, short inserted);
short AfterRemoval(short index, short removed);

// The values that the keyboard can reach. From nothing selected it gets to an item, but not back.
struct SelectionRange
{
    short Min;
    short Max;

    bool operator==(const SelectionRange&) const = default;
};
SelectionRange ReachableSelections(short selection, int count);

// Items that the keyboard pages by: as many as a list of eight shows, less one that stays in sight.
constexpr short SelectionPage = 7;

// The picture in front of an item.
enum class ItemIcon
{
    None,
    Partial,
    PartialSelected,
    Complete,
    CompleteSelected
};
ItemIcon ItemIconFor(std::int32_t status, bool selected);

// A status in words; empty for none.
const wchar_t* StatusInWords(std::int32_t status);

// A colour of an unselected item: one of the system's, by its index, or one by its red, green and blue.
struct ItemColor
{
    bool IsSystem;
    std::uint32_t Value;

    bool operator==(const ItemColor&) const = default;
};
ItemColor ItemBackground(std::uint32_t oleColor);
ItemColor ItemForeground(std::uint32_t oleColor);

// Places in an item's rectangle, in pixels. The icon lies at the rectangle's left edge; the size is its first
// one.
constexpr int ItemIconSize = 14;
int ItemIconTop(int top, int bottom, PictureScale scale = {});
int ItemTextLeft(int left, ItemIcon icon, PictureScale scale = {});

// Height of the combo box with its list open, in pixels.
int DropDownHeight(int closedHeight, int itemHeight, int count);

// Hands the focus on, but not again within 10 milliseconds. Ticks are those of the system, which start again
// at 0 after 49 days.
class FocusDebounce
{
public:
    bool HandsOn(std::uint32_t tick);

private:
    std::uint32_t last_ = 0;
};

} // namespace kiv
