#pragma once

#include <string>

namespace kiv
{

// What a single-line text box shows: its text, and its selection in characters from 0.
struct BoxState
{
    std::wstring Text;
    int SelStart = 0;
    int SelLength = 0;

    bool operator==(const BoxState&) const = default;
};

// Characters that a text box receives for editing keys and for cutting, copying and pasting by keyboard.
constexpr short CtrlA = 1;
constexpr short CtrlC = 3;
constexpr short Backspace = 8;
constexpr short CtrlV = 22;
constexpr short CtrlX = 24;
constexpr short CtrlZ = 26;

constexpr bool IsClipboardKey(short keyAscii)
{
    return keyAscii == CtrlC || keyAscii == CtrlV || keyAscii == CtrlX;
}

// The key code of Delete, which makes no character.
constexpr short DeleteKey = 46;

} // namespace kiv
