#include "host/container/FormItem.h"

#include "host/container/ItemOwner.h"

#include <algorithm>

namespace kiv::host
{

FormItem::FormItem(ItemOwner& owner, FormItem* container, std::wstring name, const RECT& bounds,
                   short tabIndex) :
    bounds_(bounds),
    owner_(owner),
    container_(container),
    name_(std::move(name)),
    tabIndex_(tabIndex < 0 ? owner.NextTabIndex() : tabIndex)
{
    if (container_)
        container_->contents_.push_back(this);
}

FormItem::~FormItem()
{
    if (container_)
        std::erase(container_->contents_, this);
    for (FormItem* const item : contents_)
        item->container_ = nullptr;
}

bool FormItem::CanBeSeen() const
{
    return owner_.DesignMode() || (visible_ && ContainerCanBeSeen());
}

AccessibleInfo FormItem::Accessible() const
{
    AccessibleInfo info;
    info.Place = bounds_;
    MapWindowPoints(owner_.Page(), nullptr, reinterpret_cast<POINT*>(&info.Place), 2);
    info.State = (CanBeSeen() ? 0 : STATE_SYSTEM_INVISIBLE) | (CanBeUsed() ? 0 : STATE_SYSTEM_UNAVAILABLE);
    return info;
}

void FormItem::Move(const RECT& bounds)
{
    const long right = bounds.left - bounds_.left;
    const long down = bounds.top - bounds_.top;
    InvalidateRect(owner_.Page(), nullptr, TRUE);
    bounds_ = bounds;
    if (right != 0 || down != 0)
        ForEachContent([&](FormItem& item) {
            RECT moved = item.Bounds();
            OffsetRect(&moved, right, down);
            item.Move(moved);
        });
}

void FormItem::SetVisible(bool visible)
{
    visible_ = visible;
    OnContainerChanged();
}

void FormItem::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    OnContainerChanged();
}

void FormItem::OnContainerChanged()
{
    InvalidateRect(owner_.Page(), &bounds_, TRUE);
    // A control minds its own focus; that of what stands in this one goes on before it can have none any
    // more.
    const std::weak_ptr<const FormItem*> alive = Alive();
    if (!contents_.empty() && !(CanBeSeen() && CanBeUsed()) && HoldsFocus())
        owner_.FocusNext(false);
    if (!alive.expired())
        ForEachContent([](FormItem& item) { item.OnContainerChanged(); });
}

bool FormItem::HoldsFocus() const
{
    for (const FormItem* item = owner_.FocusedItem(); item; item = item->Container())
        if (item == this)
            return true;
    return false;
}

// What is done to a control may take others off the form, and this one with them.
void FormItem::ForEachContent(const std::function<void(FormItem&)>& work)
{
    const std::weak_ptr<const FormItem*> alive = Alive();
    const std::vector<FormItem*> contents = contents_;
    for (FormItem* const item : contents)
        if (!alive.expired() && std::find(contents_.begin(), contents_.end(), item) != contents_.end())
            work(*item);
}

} // namespace kiv::host
