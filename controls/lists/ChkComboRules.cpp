#include "controls/lists/ChkComboRules.h"

namespace kiv
{

namespace
{

constexpr std::int32_t PartialStatus = 1;
constexpr std::int32_t CompleteStatus = 2;

constexpr int ItemsShown = 8;

ItemColor MaskedColor(std::uint32_t oleColor, std::uint32_t systemMask)
{
    const bool isSystem = (oleColor & 0x80000000U) != 0;
    return {isSystem, oleColor & (isSystem ? systemMask : 0xFFFFFFU)};
}

} // namespace

void ChkComboList::Follow(int count)
{
    statuses_.resize(static_cast<std::size_t>(count));
    const auto known = [count](short index) { return index < count ? index : short{-1}; };
    newIndex_ = known(newIndex_);
    previousIndex_ = known(previousIndex_);
}

void ChkComboList::Inserted(short index)
{
    // Behind items that somebody else has put into the combo box: they have a status, too.
    if (index > Count())
        Follow(index);
    statuses_.insert(statuses_.begin() + index, 0);
    newIndex_ = index;
    previousIndex_ = AfterInsertion(previousIndex_, index);
}

void ChkComboList::Removed(short index)
{
    statuses_.erase(statuses_.begin() + index);
    newIndex_ = AfterRemoval(newIndex_, index);
    previousIndex_ = AfterRemoval(previousIndex_, index);
}

void ChkComboList::Cleared()
{
    *this = {};
}

short AfterInsertion(short index, short inserted)
{
    return index >= inserted ? static_cast<short>(index + 1) : index;
}

short AfterRemoval(short index, short removed)
{
    if (index > removed)
        return static_cast<short>(index - 1);
    return index == removed ? short{-1} : index;
}

SelectionRange ReachableSelections(short selection, int count)
{
    return {static_cast<short>(selection < 0 ? -1 : 0), static_cast<short>(count - 1)};
}

const wchar_t* StatusInWords(std::int32_t status)
{
    switch (status)
    {
    case PartialStatus:
        return L"partial";
    case CompleteStatus:
        return L"complete";
    default:
        return L"";
    }
}

ItemIcon ItemIconFor(std::int32_t status, bool selected)
{
    switch (status)
    {
    case PartialStatus:
        return selected ? ItemIcon::PartialSelected : ItemIcon::Partial;
    case CompleteStatus:
        return selected ? ItemIcon::CompleteSelected : ItemIcon::Complete;
    default:
        return ItemIcon::None;
    }
}

// The two masks differ on purpose. The narrow one takes the higher numbered colours for others: as the
// background, button text (18) is the window frame's colour (2) and so on.
ItemColor ItemBackground(std::uint32_t oleColor)
{
    return MaskedColor(oleColor, 0xF);
}

ItemColor ItemForeground(std::uint32_t oleColor)
{
    return MaskedColor(oleColor, 0xFF);
}

int ItemIconTop(int top, int bottom, PictureScale scale)
{
    return (top + bottom - scale.Of(ItemIconSize)) / 2;
}

int ItemTextLeft(int left, ItemIcon icon, PictureScale scale)
{
    return left + scale.Of(icon == ItemIcon::None ? 1 : ItemIconSize);
}

int DropDownHeight(int closedHeight, int itemHeight, int count)
{
    return closedHeight + itemHeight * (count == 0 ? 1 : ItemsShown) + 2;
}

bool FocusDebounce::HandsOn(std::uint32_t tick)
{
    if (tick - last_ <= 10)
        return false;
    last_ = tick;
    return true;
}

} // namespace kiv
