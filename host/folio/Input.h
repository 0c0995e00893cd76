#pragma once

#include "host/script/KeyChord.h"

#include <windows.h>

namespace kiv::host
{

// Real input, as keyboard and mouse would give it: it goes to whatever window has the focus or lies there.
// Throws std::runtime_error when the system does not take it.

void SendKey(const KeyChord& chord);
// By the key that types it in the current layout; by its code where no key does.
void SendCharacter(wchar_t character);

enum class MouseButton
{
    Left,
    Right,
};
void SendClick(POINT screen, MouseButton button);
// The left button, which stays down until it is released.
void SendPress(POINT screen);
void SendRelease();

// As another program would that copies the text.
void PutOnClipboard(std::wstring_view text);

} // namespace kiv::host
