#pragma once

#include "tests/native/amount/AmountRow.h"

namespace kiv::test
{

inline const std::vector<CurrencyKeyRow> CurrencyKeyRows = {
    // Digits before the point.
    {"SixteenDigitsKeepFourteen", 14, 2, L"", L"1234567890123456", L"12345678901234", 14},
    {"MinusTakesThePlaceOfADigit", 14, 2, L"", L"-12345678901234", L"-1234567890123", 14},
    {"MinusAloneFillsOneDigit", 1, 2, L"", L"-5", L"-", 1},
    {"OneDigitFillsOneDigit", 1, 2, L"", L"56", L"5", 1},
    {"DigitGoesInAtTheCaret", 14, 2, L"1|3", L"2", L"12|3", 1},
    {"FullTextRefusesAtAnyCaret", 5, 2, L"12|345", L"9", L"12|345", 0},
    {"LeadingZerosCount", 3, 0, L"", L"0001", L"000", 3},

    // The point and the decimals.
    {"PointAndDecimals", 14, 2, L"", L"12.345", L"12.34", 5},
    {"PointAfterFullDigits", 14, 2, L"12345678901234", L".567", L"12345678901234.56", 3},
    {"PointFirst", 14, 2, L"", L".5", L".5", 2},
    {"DigitAfterThePoint", 14, 2, L"12.", L"3", L"12.3", 1},
    {"FourDecimals", 14, 4, L"12.", L"34567", L"12.3456", 4},
    {"NoPointWithoutDecimals", 14, 0, L"12", L".", L"12", 0},
    {"NoSecondPoint", 14, 2, L"1.2", L".", L"1.2", 0},
    {"NoSecondPointInFront", 14, 2, L"|1.2", L".", L"|1.2", 0},
    // Full decimals refuse every digit, even one in front of the point.
    {"FullDecimalsRefuseAtTheEnd", 14, 2, L"12.34", L"5", L"12.34", 0},
    {"FullDecimalsRefuseInFront", 14, 2, L"|12.34", L"5", L"|12.34", 0},
    {"FullDecimalsRefuseOverAPart", 14, 2, L"12.3[4]", L"5", L"12.3[4]", 0},
    // With a point there is no limit to the digits in front of it.
    {"PointLiftsTheLimitInFront", 3, 2, L"|123.", L"999", L"999|123.", 3},
    {"PointIntoLongDigitsLeavesMoreDecimals", 14, 2, L"1|2345", L".", L"1.|2345", 1},

    // The minus sign, at the front only.
    {"MinusInFront", 14, 2, L"|12", L"-", L"-|12", 1},
    {"NoMinusBehind", 14, 2, L"12", L"-", L"12", 0},
    {"NoMinusInTheMiddle", 14, 2, L"1|2", L"-", L"1|2", 0},
    {"SecondMinusInFront", 14, 2, L"|-12", L"-", L"-|-12", 1},
    {"DigitInFrontOfTheMinus", 14, 2, L"|-12", L"9", L"9|-12", 1},
    {"MinusOverAll", 14, 2, L"[12]", L"-", L"-", 1},
    {"NoMinusOverTheEnd", 14, 2, L"1[2]", L"-", L"1[2]", 0},
    {"MinusIntoFullDigits", 2, 2, L"|12", L"-", L"-|12", 1},

    // Other characters.
    {"LettersAreRefused", 14, 2, L"1", L"xeEdDaZ", L"1", 0},
    {"BlankIsRefused", 14, 2, L"1", L" ", L"1", 0},
    {"PlusIsRefused", 14, 2, L"|1", L"+", L"|1", 0},
    {"SignsAreRefused", 14, 2, L"1", L"$%&()/:;=", L"1", 0},
    {"RefusedCharacterLeavesTheSelection", 14, 2, L"1[23]", L"x", L"1[23]", 0},
    {"BackspaceDeletes", 14, 2, L"12.3", L"\b", L"12.", 1},
    {"BackspaceDeletesASelectionOnly", 14, 2, L"1[2]3", L"\b", L"1|3", 1},
    {"BackspaceIntoFullDigits", 3, 0, L"123", L"\b", L"12", 1},
    {"CopyChangesNothing", 14, 2, L"1[2]3", std::wstring(1, CtrlCKey), L"1[2]3", 0},

    // A selection as long as the digits before the point, or longer, gives way before the character is looked
    // at: the host hears of the empty text first.
    {"DigitOverAllOfAFullAmount", 5, 2, L"[12345]", L"9", L"9", 2},
    {"DigitOverAllWithDecimals", 5, 2, L"[12345.67]", L"9", L"9", 2},
    {"DigitOverAsManyAsTheDigits", 5, 2, L"[-1234]56", L"9", L"9", 2},
    {"MinusOverAllOfAFullAmount", 5, 2, L"[12345]", L"-", L"-", 2},
    {"MinusOverALongSelectionAtTheEnd", 3, 2, L"1[234.5]", L"-", L"-", 2},
    {"PointOverAllOfAFullAmount", 5, 2, L"[12345]", L".", L".", 2},
    {"BackspaceOverAllOfAFullAmount", 5, 2, L"[12345]", L"\b", L"", 1},
    // So even a refused character clears it, and copying does.
    {"RefusedCharacterClearsALongSelection", 5, 2, L"[12345]", L"x", L"", 1},
    {"CopyingClearsALongSelection", 5, 2, L"[12345]", std::wstring(1, CtrlCKey), L"", 1},
    {"NegativeDecimalsShortenTheLongSelection", 5, -3, L"[123]4", L"x", L"", 1},
    {"NegativeDecimalsLeaveAShorterOne", 5, -3, L"[12]34", L"x", L"[12]34", 0},
    // A shorter one does not make room.
    {"DigitOverAPartOfAFullAmount", 5, 2, L"[1234]5", L"9", L"[1234]5", 0},
    {"DigitOverAllOfAShortAmount", 5, 2, L"[12]", L"9", L"9", 1},

    // With a point in the text, so does a selection as long as the point and full decimals, wherever it is.
    {"DigitOverPointAndDecimals", 14, 2, L"12[.34]", L"9", L"9", 2},
    {"DigitOverThreeInFront", 14, 2, L"[12.]34", L"9", L"9", 2},
    {"PointOverPointAndDecimals", 14, 2, L"12[.34]", L".", L".", 2},
    {"RefusedCharacterOverPointAndDecimals", 14, 2, L"12[.34]", L"x", L"", 1},
    {"NoDigitOverTwoInFront", 14, 2, L"[12].34", L"9", L"[12].34", 0},
    // A typed point clears such a selection in a text without one as well, even where no point is allowed.
    {"PointOverThreeOfAWholeAmount", 14, 2, L"1[234]5", L".", L".", 2},
    {"PointOverTwoOfAWholeAmount", 14, 2, L"1[23]45", L".", L"1.|45", 1},
    {"RefusedPointClearsOneDigitSelected", 14, 0, L"1[2]3", L".", L"", 1},
    {"DigitOverThreeOfAWholeAmount", 14, 2, L"1[234]5", L"9", L"19|5", 1},
};

} // namespace kiv::test
