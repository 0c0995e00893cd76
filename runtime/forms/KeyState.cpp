#include "runtime/forms/KeyState.h"

#include <windows.h>

namespace kiv
{

short ShiftState()
{
    const auto bitWhenDown = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
    return static_cast<short>(bitWhenDown(VK_SHIFT, 1) | bitWhenDown(VK_CONTROL, 2) |
                              bitWhenDown(VK_MENU, 4));
}

} // namespace kiv
