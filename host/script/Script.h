#pragma once

#include "host/formfile/FormText.h"
#include "host/script/KeyChord.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

enum class ScriptVerb
{
    Focus,       // Item
    Keys,        // Keys
    Type,        // Text
    Clipboard,   // Text
    Click,       // Item, Spot; or Part, Text
    RightClick,  // likewise
    DoubleClick, // likewise
    Press,       // Item, Spot
    Release,
    ExpectValue,    // Item.Member(Index) = Values[0]
    ExpectFocus,    // Item
    ExpectSelected, // Item
    ExpectEvent,    // Item, Member
    ExpectNoEvent,  // Item, Member (empty: any)
    ExpectWindow,   // Text (its caption)
    ExpectNoWindow,
    ExpectListItem, // Text (how it begins)
    ExpectNoListItem,
    AnswerMessageBox, // Text, Member (the button's caption; empty: the first button)
    Veto,             // Item, Member
    Set,              // Item.Member = Values[0]
    Call,             // Item.Member Values
    Shot,
    CloseDatabase,
    Close,
};

// What a click is meant for: an item of the form, or something in the window that is open in front of it.
enum class ScriptPart
{
    FormItem, // Item
    ListItem, // Text: how it begins
    Button,   // Text: its caption
};

// Where in an item the mouse goes; with none of the words, X and Y in pixels from its corner.
struct ScriptSpot
{
    enum class Place
    {
        Left,
        Middle,
        Right,
        Point,
    };
    Place Where = Place::Middle;
    int X = 0;
    int Y = 0;
};

// Nothing stands for Null.
using ScriptValue = std::optional<FormValue>;

struct ScriptStep
{
    int Line = 0;
    ScriptVerb Verb = ScriptVerb::Close;
    std::string Item;
    std::string Member;
    std::string Text;
    ScriptPart Part = ScriptPart::FormItem;
    ScriptSpot Spot;
    std::vector<KeyChord> Keys;
    std::vector<ScriptValue> Values;
    std::optional<FormValue> Index; // of the member, as in List(1)
};

struct Script
{
    std::string File; // its name, for messages
    std::vector<ScriptStep> Steps;
    std::vector<ScriptStep> Answers; // ExpectValue only, held against the form when it is closed
};

// Throws FormError at the first mistake.
Script ParseScript(std::string_view text, std::string_view file);

std::string FormatScriptValue(const ScriptValue& value);

} // namespace kiv::host
