#include "host/container/FormItem.h"

#include "host/container/Form.h"

namespace kiv::host
{

FormItem::FormItem(Form& form, std::wstring name, const RECT& bounds, short tabIndex) :
    bounds_(bounds),
    form_(form),
    name_(std::move(name)),
    tabIndex_(tabIndex < 0 ? form.NextTabIndex() : tabIndex)
{
}

void FormItem::Move(const RECT& bounds)
{
    InvalidateRect(form_.Window(), nullptr, TRUE);
    bounds_ = bounds;
}

void FormItem::SetVisible(bool visible)
{
    visible_ = visible;
    InvalidateRect(form_.Window(), &bounds_, TRUE);
}

void FormItem::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    InvalidateRect(form_.Window(), &bounds_, TRUE);
}

} // namespace kiv::host
