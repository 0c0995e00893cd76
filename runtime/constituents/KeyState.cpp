#include "runtime/constituents/KeyState.h"

#include <windows.h>

#include <array>

namespace kiv
{

short ShiftState()
{
    // All keys at once: asking for each of the three costs three times as much.
    std::array<BYTE, 256> keys = {};
    GetKeyboardState(keys.data());
    const auto bitWhenDown = [&keys](std::size_t key, int bit) { return (keys[key] & 0x80) != 0 ? bit : 0; };
    return static_cast<short>(bitWhenDown(VK_SHIFT, ShiftHeld) | bitWhenDown(VK_CONTROL, ControlHeld) |
                              bitWhenDown(VK_MENU, AltHeld));
}

} // namespace kiv
