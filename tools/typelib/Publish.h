#pragma once

#include "tools/typelib/PublishedNames.h"
#include "tools/typelib/TypeLibrary.h"

namespace kiv::typelib
{
// Makes the published library of a compiled one: each placeholder among the members of the enumerations takes
// its published name, and each member of each enumeration gets its own name as help string. An error unless
// every placeholder names exactly one member of one enumeration and nothing else.
void Publish(TypeLibrary& library, const PublishedNames& names);
} // namespace kiv::typelib
