#pragma once

#include "host/container/ControlSite.h"
#include "host/container/Form.h"
#include "tests/support/NamedRow.h"

#include <vector>

namespace kiv::test
{

// How a host does away with a control, while the control tells it something.
enum class Blow
{
    Deactivate,
    Close,
    Remove,
    DestroyForm
};

struct BlowRow : NamedRow
{
    Blow What;
};

inline const std::vector<BlowRow> BlowRows = {
    {{"Deactivate"}, Blow::Deactivate},
    {{"Close"}, Blow::Close},
    {{"Remove"}, Blow::Remove},
    {{"DestroyForm"}, Blow::DestroyForm},
};

void Strike(Blow blow, host::Form& form, host::ControlSite& site);

} // namespace kiv::test
