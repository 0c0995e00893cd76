#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kiv::host
{

// What stands behind "=" in a form file: True or False, a whole number, a number with a fraction, or a text
// (UTF-8).
using FormValue = std::variant<bool, std::int64_t, double, std::string>;

// The value as the file says it:
//   True  False
//   1440  -20  &H8000000F (32 bits; a trailing & is allowed; more than eight digits: 64 bits)
//   8.25  1e-3
//   "a ""quoted"" word"  "two" & Chr(10) & "lines" (a character that a line cannot hold, by its code below
//   128)
// Throws std::invalid_argument, whose text says what is wrong, in words that fit behind "file:line: ".
FormValue ParseFormValue(std::string_view text);

// The shortest text that reads back as the same value. System colours are written in hexadecimal.
std::string FormatFormValue(const FormValue& value);

// A text in quotes, as FormatFormValue writes one.
std::string QuoteFormText(std::string_view text);

} // namespace kiv::host
