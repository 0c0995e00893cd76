#include "host/script/KeyChord.h"

#include "host/formfile/FormBlock.h"

#include <array>

namespace kiv::host
{

namespace
{

struct NamedKey
{
    std::string_view Name;
    int VirtualKey;
};

constexpr std::array<NamedKey, 28> NamedKeys = {{
    {"Backspace", 0x08}, {"Tab", 0x09},      {"Enter", 0x0D}, {"Esc", 0x1B},    {"Space", 0x20},
    {"PageUp", 0x21},    {"PageDown", 0x22}, {"End", 0x23},   {"Home", 0x24},   {"Left", 0x25},
    {"Up", 0x26},        {"Right", 0x27},    {"Down", 0x28},  {"Insert", 0x2D}, {"Delete", 0x2E},
    {"Menu", 0x5D},      {"F1", 0x70},       {"F2", 0x71},    {"F3", 0x72},     {"F4", 0x73},
    {"F5", 0x74},        {"F6", 0x75},       {"F7", 0x76},    {"F8", 0x77},     {"F9", 0x78},
    {"F10", 0x79},       {"F11", 0x7A},      {"F12", 0x7B},
}};

} // namespace

std::optional<KeyChord> ParseKeyChord(std::string_view text)
{
    KeyChord chord;
    for (std::size_t plus = text.find('+'); plus != std::string_view::npos && plus + 1 < text.size();
         plus = text.find('+'))
    {
        const std::string_view modifier = text.substr(0, plus);
        if (SameFormName(modifier, "Ctrl"))
            chord.Control = true;
        else if (SameFormName(modifier, "Alt"))
            chord.Alt = true;
        else if (SameFormName(modifier, "Shift"))
            chord.Shift = true;
        else
            return std::nullopt;
        text.remove_prefix(plus + 1);
    }
    for (const NamedKey& key : NamedKeys)
        if (SameFormName(key.Name, text))
        {
            chord.VirtualKey = key.VirtualKey;
            return chord;
        }
    if (text.size() != 1 || text[0] <= ' ' || text[0] > '~')
        return std::nullopt;
    chord.Character = text[0];
    return chord;
}

} // namespace kiv::host
