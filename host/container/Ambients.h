#pragma once

#include "runtime/com/Variant.h"

#include <optional>

namespace kiv::host
{

class ControlSite;

// The value of an ambient property on a site; nothing for one that this container does not have.
std::optional<Variant> AmbientProperty(const ControlSite& site, DISPID ambient);

} // namespace kiv::host
