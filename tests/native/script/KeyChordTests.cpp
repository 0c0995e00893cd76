#include "host/script/KeyChord.h"

#include <gtest/gtest.h>

namespace kiv::host
{

namespace
{

KeyChord Chord(bool control, bool alt, bool shift, int virtualKey, char character)
{
    return {control, alt, shift, virtualKey, character};
}

TEST(KeyChord, ReadsNamesCharactersAndModifiers)
{
    const std::pair<const char*, KeyChord> rows[] = {
        {"y", Chord(false, false, false, 0, 'y')},
        {"Y", Chord(false, false, false, 0, 'Y')},
        {"+", Chord(false, false, false, 0, '+')},
        {"Ctrl++", Chord(true, false, false, 0, '+')},
        {"'", Chord(false, false, false, 0, '\'')},
        {"space", Chord(false, false, false, 0x20, '\0')},
        {"Shift+Tab", Chord(false, false, true, 0x09, '\0')},
        {"ALT+f4", Chord(false, true, false, 0x73, '\0')},
        {"Ctrl+Alt+Shift+Delete", Chord(true, true, true, 0x2E, '\0')},
    };
    for (const auto& [text, chord] : rows)
        EXPECT_EQ(ParseKeyChord(text), chord) << text;
}

TEST(KeyChord, RefusesWhatNamesNoKey)
{
    for (const char* text : {"", " ", "yy", "Sapce", "Super+y", "Ctrl+", "+y", "F13", "\x7F", "\x80", "\n"})
        EXPECT_EQ(ParseKeyChord(text), std::nullopt) << text;
}

} // namespace

} // namespace kiv::host
