#pragma once

#include "tests/native/amount/AmountRow.h"

namespace kiv::test
{

inline const std::vector<CurrencyLetRow> CurrencyLetRows = {
    // Rounded to whole units, halves away from zero.
    {"Whole", true, 2, L"1234", L"1234", L"1,234"},
    {"HalfUp", true, 2, L"12.5", L"13", L"13"},
    {"Half", true, 2, L"0.5", L"1", L"1"},
    {"OneAndAHalf", true, 2, L"1.5", L"2", L"2"},
    {"TwoAndAHalf", true, 2, L"2.5", L"3", L"3"},
    {"MinusAHalf", true, 2, L"-0.5", L"-1", L"-1"},
    {"MinusOneAndAHalf", true, 2, L"-1.5", L"-2", L"-2"},
    {"MinusTwoAndAHalf", true, 2, L"-2.5", L"-3", L"-3"},
    {"JustBelowAHalf", true, 2, L"0.4999", L"0", L"0"},
    {"MinusALittle", true, 2, L"-0.4", L"0", L"0"},
    {"Millions", true, 2, L"1234567.89", L"1234568", L"1,234,568"},
    {"Negative", true, 2, L"-1234567", L"-1234567", L"-1,234,567"},
    {"WithoutDecimalsRoundsAnyway", false, 0, L"12.5", L"13", L"13"},

    // With decimals: as many as the control has, no zero in front. A whole amount's label shows none.
    {"HalfWithDecimals", false, 2, L"0.5", L".50", L".50"},
    {"MinusHalfWithDecimals", false, 2, L"-0.5", L"-.50", L"-.50"},
    {"WholeWithDecimals", false, 2, L"12", L"12.00", L"12"},
    {"ThousandsWithDecimals", false, 2, L"1234.5", L"1234.50", L"1,234.50"},
    {"RoundedDecimals", false, 2, L"1234.565", L"1234.57", L"1,234.57"},
    {"RoundedDecimalsNegative", false, 2, L"-1234.565", L"-1234.57", L"-1,234.57"},
    {"ZeroWithDecimals", false, 2, L"0", L".00", L"0"},
    {"VerySmall", false, 2, L"0.004", L".00", L"0"},
    {"VerySmallNegative", false, 2, L"-0.004", L".00", L"0"},
    {"OneDecimal", false, 1, L"2.25", L"2.3", L"2.3"},
    {"FourDecimals", false, 4, L"2.25", L"2.2500", L"2.2500"},
    {"TenThousandth", false, 4, L"0.0001", L".0001", L".0001"},

    // The extremes. The label asks fifteen digits whether an amount is whole.
    {"Largest", false, 4, L"99999999999999.9999", L"99999999999999.9999", L"100,000,000,000,000"},
    {"Smallest", false, 4, L"-99999999999999.9999", L"-99999999999999.9999", L"-100,000,000,000,000"},
    {"LargestTwoDecimals", false, 2, L"99999999999999.99", L"99999999999999.99", L"100,000,000,000,000"},
    {"LargeWithCents", false, 2, L"12345678901234.56", L"12345678901234.56", L"12,345,678,901,234.56"},
    {"LargeWithFewCents", false, 2, L"12345678901234.04", L"12345678901234.04", L"12,345,678,901,234"},
    {"LessLargeWithFewCents", false, 2, L"1234567890123.04", L"1234567890123.04", L"1,234,567,890,123.04"},
    {"MoreDigitsThanAllowed", true, 2, L"100000000000000000", L"100000000000000000",
     L"100,000,000,000,000,000"},
    // Fifteen digits of this one are written in scientific notation, with a point.
    {"MoreDigitsThanFifteen", true, 2, L"123456789012345678", L"123456789012345678",
     L"123,456,789,012,345,678.00"},

    // Text as people write numbers.
    {"Groups", true, 2, L"1,000", L"1000", L"1,000"},
    {"Parentheses", true, 2, L"(5)", L"-5", L"-5"},
    {"TrailingMinus", true, 2, L"5-", L"-5", L"-5"},
    {"Symbol", true, 2, L"$1,234.50", L"1235", L"1,235"},
    {"Exponent", true, 2, L"1e3", L"1000", L"1,000"},
    {"Blanks", true, 2, L" 5 ", L"5", L"5"},

    // No number clears the field.
    {"Null", true, 2, nullptr, L"", L""},
    {"EmptyText", true, 2, L"", L"", L""},
    {"Letters", true, 2, L"abc", L"", L""},
    {"Percentage", true, 2, L"5%", L"", L""},
};

inline const std::vector<CurrencyReadRow> CurrencyReadRows = {
    {"Empty", L"", std::nullopt},
    {"Minus", L"-", std::nullopt},
    {"LonePoint", L".", std::nullopt},
    {"MinusPoint", L"-.", std::nullopt},
    {"TwoMinuses", L"--5", std::nullopt},
    {"Whole", L"1234", 12'340'000},
    {"Decimals", L"12.34", 123'400},
    {"Negative", L"-12.34", -123'400},
    {"TrailingPoint", L"12.", 120'000},
    {"LeadingPoint", L".5", 5'000},
    {"LeadingZeros", L"0005", 50'000},
    {"Zero", L"0", 0},
    {"Largest", L"99999999999999.9999", 999'999'999'999'999'999},
    {"Smallest", L"-99999999999999.9999", -999'999'999'999'999'999},
    {"OneUnitAboveTheLargest", L"100000000000000", 1'000'000'000'000'000'000, false},
    {"OneUnitBelowTheSmallest", L"-100000000000000", -1'000'000'000'000'000'000, false},
    {"AllThatCurrencyHolds", L"922337203685477.5807", 9'223'372'036'854'775'807, false},
    // The digits before a point have no limit while typing.
    {"MoreThanCurrencyHolds", L"922337203685477.5808", std::nullopt, false},
    {"FarMoreThanCurrencyHolds", L"-99999999999999999999999.5", std::nullopt, false},
};

inline const std::vector<CurrencyExitRow> CurrencyExitRows = {
    {"Empty", true, -100, 100, L"", L"", true, L""},
    {"LonePointIsClearedInView", true, -100, 100, L".", L"", false},
    {"LonePointIsClearedInViewUnrounded", false, -100, 100, L".", L"", false},
    {"LonePointIsClearedEvenOutOfRange", true, 5, 100, L".", L"", false},
    {"Rounds", true, -100, 100, L"12.5", L"13", true, L"13"},
    {"RoundsNegative", true, -100, 100, L"-12.5", L"-13", true, L"-13"},
    {"RoundsAway", true, -100, 100, L"-.4", L"0", true, L"0"},
    {"DropsATrailingPoint", true, -100, 100, L"12.", L"12", true, L"12"},
    {"DropsLeadingZeros", true, -100, 100, L"0012", L"12", true, L"12"},
    {"LeavesDecimals", false, -100, 100, L"12.5", L"12.5", true, L"12.50"},
    {"LeavesATrailingPoint", false, -100, 100, L"12.", L"12.", true, L"12"},
    {"LeavesLeadingZeros", false, -100, 100, L"0012", L"0012", true, L"12"},
    {"ShowsNoZeroInFront", false, -100, 100, L"0.5", L"0.5", true, L".50"},
    {"Thousands", true, -9999, 9999, L"1234", L"1234", true, L"1,234"},
    // A text that is no number is as good as blank.
    {"MinusAlone", true, -100, 100, L"-", L"-", true, L""},
    {"TwoMinuses", true, -100, 100, L"--5", L"--5", true, L""},
    // Out of range, in view; rounding comes first.
    {"OutOfRange", true, -100, 100, L"150", L"150", false},
    {"BelowTheRange", true, -100, 100, L"-101", L"-101", false},
    {"RoundsIntoTheRange", true, -100, 100, L"100.4", L"100", true, L"100"},
    {"RoundsOutOfTheRange", true, -100, 100, L"100.5", L"101", false},
    {"OutOfRangeByDecimals", false, -100, 100, L"100.01", L"100.01", false},
    {"AtTheBound", false, -100, 100, L"100.00", L"100.00", true, L"100"},
    {"MoreThanCurrencyHolds", true, -100, 100, L"9999999999999999999999.5", L"10000000000000000000000",
     false},
};

inline const std::vector<CurrencyPasteRow> CurrencyPasteRows = {
    {"InRange", -999, 999, L"250", L"250"},
    {"Rounded", -999, 999, L"12.5", L"13"},
    {"Negative", -999, 999, L"-5", L"-5"},
    {"AtTheBound", -999, 999, L"999", L"999"},
    {"AboveTheBound", -999, 999, L"999.0001", nullptr},
    {"BelowTheBound", -999, 999, L"-1000", nullptr},
    {"Letters", -999, 999, L"abc", nullptr},
    {"Empty", -999, 999, L"", nullptr},
    {"NumberAndLetters", -999, 999, L"5 apples", nullptr},
    {"Blanks", -999, 999, L" 7 ", L"7"},
    {"LineEnd", -999, 999, L"250\r\n", L"250"},
    {"Exponent", -999, 999, L"1e2", L"100"},
    {"Hexadecimal", -999, 999, L"&H10", L"16"},
    // Checked up to the separator, set as a whole.
    {"CheckedAs1SetAs1000", -999, 999, L"1,000", L"1000"},
    {"CheckedAs1SetAs1900", 0, 1, L"1,900", L"1900"},
    {"CheckedAs1Ignored", 500, 2000, L"1,000", nullptr},
    {"CheckedAs5SetAsMinus5", 0, 999, L"5-", L"-5"},
    {"CheckedAs0SetAs5", -999, 999, L"$5", L"5"},
    {"CheckedAs0Ignored", 1, 999, L"$5", nullptr},
    {"CheckedAs0SetAsMinus5", 0, 999, L"(5)", L"-5"},
    {"CheckedAsMinus1SetAs65535", -999, 999, L"&HFFFF", L"65535"},
};

} // namespace kiv::test
