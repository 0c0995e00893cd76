#pragma once

#include <windows.h>

namespace kiv
{

// What ISubClass takes and returns for a message: as wide as a pointer, in the type that the contract's
// header uses for it.
#ifdef _WIN64
using MessageLong = LONGLONG;
#else
using MessageLong = LONG;
#endif

} // namespace kiv
