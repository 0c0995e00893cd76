#include "runtime/constituents/Label.h"
#include "runtime/control/UserControl.h"

namespace kiv
{

// A form that is being designed shows none.
const Label* UserControl::CutLabel() const
{
    const Label* const label = TippedLabel();
    return label && label->IsCut() && ambient_.UserMode() ? label : nullptr;
}

void UserControl::RelayToToolTip(const MSG& message)
{
    if (const Label* const label = CutLabel())
        toolTip_.Relay(message, label->Place(), label->Caption());
    else
        toolTip_.Close();
}

void UserControl::UpdateToolTip()
{
    if (!toolTip_.IsOpen())
        return;
    if (const Label* const label = CutLabel())
        toolTip_.Change(label->Place(), label->Caption());
    else
        toolTip_.Close();
}

} // namespace kiv
