#pragma once

#include "runtime/control/ControlClass.h"

#include <span>

namespace kiv
{

// Writes the type library and the classes to the registry, for all users. Throws ComError.
void Register(std::span<const ControlClass* const> classes);

// Removes all that Register writes. What is not there is fine.
void Unregister(std::span<const ControlClass* const> classes);

} // namespace kiv
