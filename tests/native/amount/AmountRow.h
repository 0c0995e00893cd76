#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// The behaviour of CurrencyBox and PercentBox as tables of data. The rules are proved by them natively, the
// controls by real key strokes: a row holds what a user sees, in numbers and texts, and nothing of the code.
// Texts read as in English; where the decimals are behind a comma, every point and comma changes places.

// What there is between two brackets in a text of a row is selected; a lone bar is the caret. A text without
// either has its caret at the end.

// Keys typed one after the other. '\b' is Backspace, CtrlC is Ctrl+C.
constexpr wchar_t CtrlCKey = L'\x03';

struct CurrencyKeyRow
{
    const char* Name;
    std::int16_t NumIntDigits;
    std::int16_t NumDecDigits;
    const wchar_t* Before;
    std::wstring Keys;
    const wchar_t* After;
    // How many Change events they make.
    int Changes;
};

struct PercentKeyRow
{
    const char* Name;
    std::int16_t MaxDecimals;
    const wchar_t* Before;
    std::wstring Keys;
    const wchar_t* After;
    int Changes;
};

// A value that the host assigns as text (null for Null): what the box then holds, and what the label shows.
struct CurrencyLetRow
{
    const char* Name;
    bool AllowRounding;
    std::int16_t NumDecDigits;
    const wchar_t* Value;
    const wchar_t* Text;
    const wchar_t* Label;
};

// What Value reads from the box's text, in ten-thousandths; none for Null.
struct CurrencyReadRow
{
    const char* Name;
    const wchar_t* Text;
    std::optional<std::int64_t> Units;
    // Whether the text is valid in the widest range there is.
    bool Valid = true;
};

// The focus leaves a box with a text and bounds, in whole units.
struct CurrencyExitRow
{
    const char* Name;
    bool AllowRounding;
    std::int64_t MinValue;
    std::int64_t MaxValue;
    const wchar_t* Before;
    const wchar_t* After;
    // The label shows the amount instead of the box, and what it shows.
    bool Parked;
    const wchar_t* Label = L"";
};

// A paste into an empty box that rounds: what the box then holds, null where the paste is ignored.
struct CurrencyPasteRow
{
    const char* Name;
    std::int64_t MinValue;
    std::int64_t MaxValue;
    const wchar_t* Clipboard;
    const wchar_t* After;
};

struct PercentSettings
{
    bool Complement = false;
    bool DisplayPercent = true;
    std::int16_t MaxDigits = 3;
    std::int16_t MaxDecimals = 4;
};

struct PercentLetRow
{
    const char* Name;
    PercentSettings Settings;
    // As text; null for Null.
    const wchar_t* Value;
    const wchar_t* Text;
};

struct PercentReadRow
{
    const char* Name;
    PercentSettings Settings;
    const wchar_t* Text;
    // Null for Null.
    const wchar_t* Value;
    bool Valid = true;
};

// A paste into an empty box with the default bounds, 0 and 100.
struct PercentPasteRow
{
    const char* Name;
    const wchar_t* Clipboard;
    // Null where the paste is ignored.
    const wchar_t* After;
};

} // namespace kiv::test
