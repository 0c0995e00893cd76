#pragma once

#include "tests/native/amount/AmountRow.h"

namespace kiv::test
{

// Settings: complement, percentages rather than fractions, digits, decimals.

inline const std::vector<PercentLetRow> PercentLetRows = {
    {"Fraction", {}, L"0.075", L"7.5"},
    {"One", {}, L"1", L"100."},
    {"Zero", {}, L"0", L"0."},
    {"Small", {}, L"0.000001", L"0.0001"},
    {"TooSmall", {}, L"0.0000004", L"0."},
    {"Rounded", {}, L"0.123456789", L"12.3457"},
    {"HalfGoesUp", {}, L"0.0000005", L"0.0001"},
    {"OutOfRange", {}, L"5", L"500."},
    {"Negative", {}, L"-0.05", L"-5."},
    {"NegativeThatRoundsToZero", {}, L"-0.0000001", L"0."},
    {"MoreDigitsThanAllowed", {}, L"12.345", L"1234.5"},
    {"NoDecimals", {false, true, 3, 0}, L"0.075", L"8."},
    {"OneDigit", {false, true, 1, 2}, L"0.5", L"50."},
    {"SixDecimals", {false, true, 6, 6}, L"0.12345678", L"12.345678"},
    {"Complement", {true, true, 3, 4}, L"0.25", L"75."},
    {"ComplementOfDecimals", {true, true, 3, 4}, L"0.0725", L"92.75"},
    {"ComplementOfZero", {true, true, 3, 4}, L"0", L"100."},
    {"ComplementOfTooMuch", {true, true, 3, 4}, L"1.5", L"-50."},
    {"PlainFraction", {false, false, 3, 4}, L"0.075", L"0.075"},
    {"PlainOne", {false, false, 3, 4}, L"1", L"1."},
    {"PlainRounded", {false, false, 3, 4}, L"0.12345", L"0.1235"},
    {"ComplementOfAFraction", {true, false, 3, 4}, L"0.25", L"0.75"},
    {"ComplementOfATenth", {true, false, 3, 4}, L"0.1", L"0.9"},
    {"Null", {}, nullptr, L""},
    {"EmptyText", {}, L"", L""},
    {"Letters", {}, L"abc", L""},
    {"PercentSign", {}, L"5%", L""},
};

// The bounds are 0 and 100.
inline const std::vector<PercentReadRow> PercentReadRows = {
    {"Blank", {}, L"", nullptr},
    {"Percentage", {}, L"7.5", L"0.075"},
    {"WholePercentage", {}, L"7", L"0.07"},
    {"TrailingPoint", {}, L"7.", L"0.07"},
    {"LeadingPoint", {}, L".5", L"0.005"},
    {"Hundred", {}, L"100", L"1."},
    {"Zero", {}, L"0", L"0."},
    {"OutOfRange", {}, L"150", nullptr, false},
    {"JustOutOfRange", {}, L"100.00001", nullptr, false},
    // Bounds and text are compared in single precision.
    {"OutOfRangeByLessThanASingleShows", {}, L"100.000001", L"1."},
    {"FarOutOfRange", {}, L"99999999999999999999999999999999999999999999", nullptr, false},
    // Two decimals more than the display has.
    {"SixDecimals", {}, L"7.1234", L"0.071234"},
    {"RoundedToSixDecimals", {}, L"7.12345", L"0.071235"},
    {"RoundedExactly", {}, L"55.00005", L"0.550001"},
    {"TwoDecimals", {false, true, 3, 0}, L"7.55", L"0.08"},
    {"Complement", {true, true, 3, 4}, L"75.", L"0.25"},
    {"ComplementOfDecimals", {true, true, 3, 4}, L"92.75", L"0.0725"},
    {"ComplementOfHundred", {true, true, 3, 4}, L"100", L"0."},
    {"Fraction", {false, false, 3, 4}, L"0.075", L"0.075"},
    {"FractionRounded", {false, false, 3, 4}, L"0.12345", L"0.1235"},
    {"FractionAboveOne", {false, false, 3, 4}, L"75", L"75."},
    {"ComplementOfAFraction", {true, false, 3, 4}, L"0.75", L"0.25"},
    {"ComplementOfAFractionAboveOne", {true, false, 3, 4}, L"1.5", L"-0.5"},
};

inline const std::vector<PercentPasteRow> PercentPasteRows = {
    {"Fraction", L"0.05", L"5."},
    {"Zero", L"0", L"0."},
    // Checked as a percentage, assigned as a fraction.
    {"CheckedAs5SetAs500", L"5", L"500."},
    {"CheckedAs100SetAs10000", L"100", L"10000."},
    {"OutOfRange", L"150", nullptr},
    {"Negative", L"-1", nullptr},
    {"Letters", L"abc", nullptr},
    {"Empty", L"", nullptr},
    {"PercentSign", L"5%", nullptr},
    {"LineEnd", L"0.5\r\n", L"50."},
    // Checked up to the separator, set as a whole.
    {"CheckedAs1SetAs1000", L"1,000", L"100000."},
    {"CheckedAs5SetAsMinus5", L"5-", L"-500."},
};

} // namespace kiv::test
