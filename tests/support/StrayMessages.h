#pragma once

#include <windows.h>

#include <vector>

namespace kiv::test
{

// A window and all windows in it, a combo box's list included.
std::vector<HWND> WindowsOf(HWND window);

// What a program that sends messages about may send: every message of the system's own, with nothing in it,
// as a window of that class takes it. Left out are those that are meant to end a window or to keep the user
// busy in it, and the few that a plain window of the class does not survive either.
void SendStrayMessages(HWND window);

// A message that a plain window of a class does not survive.
struct DeadlyMessage
{
    const char* Class;
    UINT Message;
};
const std::vector<DeadlyMessage>& DeadlyMessages();

} // namespace kiv::test
