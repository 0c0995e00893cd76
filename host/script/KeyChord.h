#pragma once

#include <optional>
#include <string_view>

namespace kiv::host
{

// A key with the modifiers held down: "y", "Space", "Shift+Tab", "Ctrl+Alt+F5".
struct KeyChord
{
    bool Control = false;
    bool Alt = false;
    bool Shift = false;
    int VirtualKey = 0;    // Windows' code of a key with a name, or 0
    char Character = '\0'; // what the key types, where it has no name

    bool operator==(const KeyChord&) const = default;
};

// Nothing for a text that names no key. Case is ignored in names.
std::optional<KeyChord> ParseKeyChord(std::string_view text);

} // namespace kiv::host
