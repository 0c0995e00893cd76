#pragma once

#include "runtime/core/Currency.h"
#include "runtime/core/NumberLocale.h"

namespace kiv
{

// Numbers as plain text: no group separators, no zeros at the end of the decimals, "-" in front of negative
// ones, a zero before the point of those below 1 ("-0.5").

std::wstring PlainText(Currency amount, const NumberLocale& locale);

// Rounded to 15 significant digits, a single to 7. From 1E+15 (1E+07) on and below 0.0001 in scientific
// notation, "1.25E-05". Infinities read "1.#INF" and "-1.#INF", what is no number "1.#QNAN".
std::wstring PlainText(double number, const NumberLocale& locale);
std::wstring PlainText(float number, const NumberLocale& locale);

} // namespace kiv
