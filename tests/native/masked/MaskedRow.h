#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kiv::test
{

// The behaviour of the masked boxes as tables of data. The rules are proved by them natively, the controls by
// real key strokes: a row holds what a user sees, in numbers and texts, and nothing of the code.

// A key: a character as a text box receives it, or Delete.
struct Stroke
{
    short KeyAscii = 0;
    short KeyCode = 0;
};

constexpr Stroke Typed(char character)
{
    return {static_cast<short>(character), 0};
}

constexpr Stroke EraseKey = Typed('\b');
constexpr Stroke DeleteStroke = {0, 46};
// Delete in a string of keys, where every other key is its character.
constexpr wchar_t DeleteInKeys = L'\x7F';

// A key that a masked box handles itself: (text, selection, key) -> (text, selection, changes).
struct KeyRow
{
    const char* Name;
    int Style;
    std::wstring_view Text;
    int SelStart;
    int SelLength;
    Stroke Key;
    std::wstring_view After;
    int SelStartAfter;
    // A text that the box shows on its way to After, if any: the host hears of it on its own.
    std::wstring_view Between = {};
    int SelLengthAfter = 0;
};

// The texts that the box takes, one Change event each.
inline std::vector<std::wstring> Changes(const KeyRow& row)
{
    std::vector<std::wstring> changes;
    if (!row.Between.empty())
        changes.emplace_back(row.Between);
    if (row.After != (row.Between.empty() ? row.Text : row.Between))
        changes.emplace_back(row.After);
    return changes;
}

// A key that a box without a mask leaves to the system, and what the system does with it.
struct PassedKeyRow
{
    const char* Name;
    int Style;
    int MaxLength;
    std::wstring_view Text;
    int SelStart;
    int SelLength;
    Stroke Key;
    std::wstring_view After;
    int SelStartAfter;
};

// Keys one after the other, from a caret without a selection.
struct TypingRow
{
    const char* Name;
    int Style;
    std::wstring_view Text;
    int SelStart;
    std::wstring_view Keys;
    std::wstring_view After;
    int SelStartAfter;
    // How many Change events they make.
    int Changes;
};

} // namespace kiv::test
