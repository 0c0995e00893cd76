#pragma once

#include <windows.h>

namespace kiv
{

// Whether a message to a window that has been made is one that the system never sends it: told that it is
// being made once more, or without what it points to. Both the system's controls and its default procedure
// would follow the pointer.
bool IsStray(UINT message, LPARAM lParam);

} // namespace kiv
