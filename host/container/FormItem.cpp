#include "host/container/FormItem.h"

#include "host/container/ItemOwner.h"

namespace kiv::host
{

FormItem::FormItem(ItemOwner& owner, std::wstring name, const RECT& bounds, short tabIndex) :
    bounds_(bounds),
    owner_(owner),
    name_(std::move(name)),
    tabIndex_(tabIndex < 0 ? owner.NextTabIndex() : tabIndex)
{
}

void FormItem::Move(const RECT& bounds)
{
    InvalidateRect(owner_.Window(), nullptr, TRUE);
    bounds_ = bounds;
}

void FormItem::SetVisible(bool visible)
{
    visible_ = visible;
    InvalidateRect(owner_.Window(), &bounds_, TRUE);
}

void FormItem::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    InvalidateRect(owner_.Window(), &bounds_, TRUE);
}

} // namespace kiv::host
