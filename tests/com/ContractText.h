#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace kiv::test
{

// All that hosts compile against, as lines for people: each type of the library with its members, in order.
// The same for both architectures.
std::string ContractText(ITypeLib* library);

} // namespace kiv::test
