#pragma once

#include "runtime/core/Decimal.h"

namespace kiv
{

// The number at the front of a text, whatever follows it: reading stops at the first character that cannot
// continue a number, a group separator or a currency symbol included. 0 when the text begins with none.
// Always:
//
//   - blanks, tabs and line ends are skipped wherever they stand, "1 000" reads as 1000;
//   - the decimal point is ".", in every locale;
//   - an exponent is marked by e or d, and counts only when digits follow, "1e" being 1;
//   - "&H1F" and "&O17" are hexadecimal and octal numbers, of at most 32 bits (0 beyond); those of at most
//     16 bits have a sign unless "&" follows: "&HFFFF" is -1, "&HFFFF&" is 65535, "&HFFFFFFFF" is -1.
//
// The first gives the exact digits, the second the nearest binary number (infinity beyond its range).
Decimal ExactVal(std::wstring_view text);
double Val(std::wstring_view text);

} // namespace kiv
