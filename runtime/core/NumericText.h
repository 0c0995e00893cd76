#pragma once

#include "runtime/core/Decimal.h"
#include "runtime/core/NumberLocale.h"

namespace kiv
{

// The number that a text stands for in a locale; none when the text is not numeric. Numeric is:
//
//   - digits with at most one decimal point, at least one digit: "5", "5.", ".5", "007";
//   - with group separators anywhere between or behind the digits before the point, "1,2,3" being 123 as
//     people's commas are taken as they come; never in front of the first digit or behind the point;
//   - with an exponent, "1e5", "1E-5", "1d+5";
//   - with one sign, in front ("+5", "- 5") or behind ("5-"), or in parentheses ("(5)" is -5), not both;
//   - with the currency symbol once, in front or behind: "$5", "-$5", "$-5", "($5)", "5 $";
//   - or a hexadecimal or octal number of at most 32 bits, without any of these: "&H10" is 16, "&O17" is 15;
//   - with blanks at both ends and around each sign, symbol and parenthesis.
//
// Not numeric are an empty text, blanks, "-", ".", "$", "5%", "1.2.3", "1e" and numbers beyond the range of a
// double. A number too small for a double is 0.
std::optional<Decimal> ParseNumber(std::wstring_view text, const NumberLocale& locale);

} // namespace kiv
