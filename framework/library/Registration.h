#pragma once

#include "runtime/control/ControlClass.h"

#include <span>

namespace kiv
{

// Writes the type library and the classes to the registry: for all users, or where that is refused, for the
// current one. Throws ComError.
void Register(std::span<const ControlClass* const> classes);

// Removes all that Register writes, for the current user and for all. What is not there is fine, and so is
// what may not be removed for all users where there was something for the current one. Throws ComError.
void Unregister(std::span<const ControlClass* const> classes);

} // namespace kiv
