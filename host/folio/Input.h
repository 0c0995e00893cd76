#pragma once

#include "host/script/KeyChord.h"

#include <windows.h>

#include <string_view>

namespace kiv::host
{

// Real input, as keyboard and mouse would give it: it goes to whatever window has the focus or lies there.
// Throws std::runtime_error when the system does not take it.

void SendKey(const KeyChord& chord);
// Each character by the key that types it in the current layout; by its code where no key does.
void SendText(std::wstring_view text);

enum class MouseButton
{
    Left,
    Right,
};
void SendClick(POINT screen, MouseButton button);

} // namespace kiv::host
