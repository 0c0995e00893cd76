#pragma once

#include "tests/native/masked/MaskedRow.h"

namespace kiv::test
{

// Styles: 0 SSN, 1 Federal ID, 2 Routing #, 3 Custom.

inline constexpr KeyRow NumberKeyRows[] = {
    // Digits replace and move on.
    {"DigitFillsTheFirstPlace", 0, L"___-__-____", 0, 0, Typed('1'), L"1__-__-____", 1},
    {"DigitReplacesADigit", 0, L"123-45-6789", 0, 0, Typed('9'), L"923-45-6789", 1},
    {"DigitBeforeADashStopsThere", 0, L"12_-__-____", 2, 0, Typed('3'), L"123-__-____", 3},
    {"DigitHopsOverTheFirstDash", 0, L"123-__-____", 3, 0, Typed('4'), L"123-4_-____", 5},
    {"DigitHopsOverTheSecondDash", 0, L"123-45-____", 6, 0, Typed('6'), L"123-45-6___", 8},
    {"DigitJustAfterADash", 0, L"123-__-____", 4, 0, Typed('4'), L"123-4_-____", 5},
    {"DigitFillsTheLastPlace", 0, L"123-45-678_", 10, 0, Typed('9'), L"123-45-6789", 11},
    {"DigitAtTheEndIsSwallowed", 0, L"123-45-6789", 11, 0, Typed('1'), L"123-45-6789", 11},
    {"DigitAtTheEndOfABlank", 0, L"___-__-____", 11, 0, Typed('1'), L"___-__-____", 11},
    {"SameDigitAgainChangesNothing", 0, L"123-45-6789", 0, 0, Typed('1'), L"123-45-6789", 1},
    {"DigitInTheMiddleOfABlank", 0, L"___-__-____", 5, 0, Typed('7'), L"___-_7-____", 6},
    {"FederalDigitHopsOverTheDash", 1, L"12-_______", 2, 0, Typed('3'), L"12-3______", 4},
    {"FederalDigitFillsTheLastPlace", 1, L"12-345678_", 9, 0, Typed('0'), L"12-3456780", 10},
    {"FederalDigitAtTheEnd", 1, L"12-3456789", 10, 0, Typed('0'), L"12-3456789", 10},

    // A selection turns blank first; the host hears of that and of the digit.
    {"DigitOverASelection", 0, L"123-45-6789", 4, 2, Typed('9'), L"123-9_-6789", 5, L"123-__-6789"},
    {"DigitOverAll", 0, L"123-45-6789", 0, 11, Typed('9'), L"9__-__-____", 1, L"___-__-____"},
    {"DigitOverABlankSelection", 0, L"___-__-____", 0, 11, Typed('9'), L"9__-__-____", 1},
    {"DigitOverASelectionThatBeginsWithADash", 0, L"123-45-6789", 3, 2, Typed('9'), L"123-95-6789", 5,
     L"123-_5-6789"},
    {"DigitOverADashAlone", 0, L"123-45-6789", 3, 1, Typed('9'), L"123-95-6789", 5},
    {"DigitOverASelectionThatEndsWithADash", 0, L"123-45-6789", 2, 2, Typed('9'), L"129-45-6789", 3,
     L"12_-45-6789"},
    {"DigitOverTheLastPlace", 0, L"123-45-6789", 10, 1, Typed('1'), L"123-45-6781", 11, L"123-45-678_"},
    {"FederalDigitOverAll", 1, L"12-3456789", 0, 10, Typed('5'), L"5_-_______", 1, L"__-_______"},

    // Backspace clears to the left, a dash is a stop of its own.
    {"BackspaceAtTheEnd", 0, L"123-45-6789", 11, 0, EraseKey, L"123-45-678_", 10},
    {"BackspaceAtTheStart", 0, L"123-45-6789", 0, 0, EraseKey, L"123-45-6789", 0},
    {"BackspaceAfterADashOnlyMoves", 0, L"123-45-6789", 7, 0, EraseKey, L"123-45-6789", 6},
    {"BackspaceBeforeADashClears", 0, L"123-45-6789", 6, 0, EraseKey, L"123-4_-6789", 5},
    {"BackspaceOverABlankPlace", 0, L"123-4_-____", 6, 0, EraseKey, L"123-4_-____", 5},
    {"BackspaceOverASelection", 0, L"123-45-6789", 4, 2, EraseKey, L"123-__-6789", 4},
    {"BackspaceOverAll", 0, L"123-45-6789", 0, 11, EraseKey, L"___-__-____", 0},
    {"BackspaceOverABlankSelectionOnlyCollapsesIt", 0, L"123-__-6789", 4, 2, EraseKey, L"123-__-6789", 4},
    {"BackspaceOverADashOnlyCollapsesIt", 0, L"123-45-6789", 3, 1, EraseKey, L"123-45-6789", 3},
    {"FederalBackspace", 1, L"12-3456789", 4, 0, EraseKey, L"12-_456789", 3},

    // Delete clears at the caret; in front of a dash, the digit before it.
    {"DeleteAtTheStart", 0, L"123-45-6789", 0, 0, DeleteStroke, L"_23-45-6789", 0},
    {"DeleteJustBeforeADash", 0, L"123-45-6789", 3, 0, DeleteStroke, L"12_-45-6789", 2},
    {"DeleteJustBeforeTheSecondDash", 0, L"123-45-6789", 6, 0, DeleteStroke, L"123-4_-6789", 5},
    {"DeleteJustAfterADash", 0, L"123-45-6789", 4, 0, DeleteStroke, L"123-_5-6789", 4},
    {"DeleteABlankPlace", 0, L"12_-45-6789", 2, 0, DeleteStroke, L"12_-45-6789", 2},
    {"DeleteAtTheEnd", 0, L"123-45-6789", 11, 0, DeleteStroke, L"123-45-6789", 11},
    {"DeleteASelection", 0, L"123-45-6789", 4, 2, DeleteStroke, L"123-__-6789", 4},
    {"DeleteAll", 0, L"123-45-6789", 0, 11, DeleteStroke, L"___-__-____", 0},
    {"DeleteASelectionThatBeginsWithADash", 0, L"123-45-6789", 3, 2, DeleteStroke, L"12_-_5-6789", 2,
     L"123-_5-6789"},
    {"DeleteADashAlone", 0, L"123-45-6789", 3, 1, DeleteStroke, L"12_-45-6789", 2},
    {"FederalDeleteJustBeforeTheDash", 1, L"12-3456789", 2, 0, DeleteStroke, L"1_-3456789", 1},

    // Nothing else is an answer; a selection stays as it is.
    {"LetterIsSwallowed", 0, L"123-45-6789", 0, 0, Typed('a'), L"123-45-6789", 0},
    {"LetterLeavesTheSelection", 0, L"123-45-6789", 2, 3, Typed('a'), L"123-45-6789", 2, {}, 3},
    {"DashIsSwallowed", 0, L"123-__-____", 3, 0, Typed('-'), L"123-__-____", 3},
    {"UnderscoreIsSwallowed", 0, L"123-45-6789", 0, 0, Typed('_'), L"123-45-6789", 0},
    {"SpaceIsSwallowed", 0, L"123-45-6789", 0, 0, Typed(' '), L"123-45-6789", 0},
    {"SlashIsSwallowed", 0, L"123-45-6789", 0, 0, Typed('/'), L"123-45-6789", 0},
    {"ColonIsSwallowed", 0, L"123-45-6789", 0, 0, Typed(':'), L"123-45-6789", 0},
    {"FederalLetterIsSwallowed", 1, L"12-3456789", 0, 0, Typed('x'), L"12-3456789", 0},
    {"RoutingLetterIsSwallowed", 2, L"0110", 4, 0, Typed('x'), L"0110", 4},
    {"RoutingDashIsSwallowed", 2, L"0110", 2, 1, Typed('-'), L"0110", 2, {}, 1},
    {"CustomLetterIsSwallowed", 3, L"12", 2, 0, Typed('x'), L"12", 2},
    {"CustomSpaceIsSwallowed", 3, L"12", 1, 0, Typed(' '), L"12", 1},
    {"CustomPointIsSwallowed", 3, L"12", 0, 2, Typed('.'), L"12", 0, {}, 2},
};

inline constexpr PassedKeyRow NumberPassedKeyRows[] = {
    {"CustomDigit", 3, 4, L"12", 2, 0, Typed('3'), L"123", 3},
    {"CustomDigitInTheMiddle", 3, 4, L"12", 1, 0, Typed('3'), L"132", 2},
    {"CustomDigitOverASelection", 3, 4, L"1234", 1, 2, Typed('9'), L"194", 2},
    {"CustomDigitInAFullBox", 3, 4, L"1234", 4, 0, Typed('5'), L"1234", 4},
    {"CustomBackspace", 3, 4, L"1234", 2, 0, EraseKey, L"134", 1},
    {"CustomBackspaceOverASelection", 3, 4, L"1234", 1, 2, EraseKey, L"14", 1},
    {"CustomDelete", 3, 4, L"1234", 1, 0, DeleteStroke, L"134", 1},
    {"RoutingDigit", 2, 9, L"0110", 4, 0, Typed('0'), L"01100", 5},
    {"RoutingDigitInAFullBox", 2, 9, L"011000015", 0, 0, Typed('9'), L"011000015", 0},
    {"RoutingBackspace", 2, 9, L"0110", 4, 0, EraseKey, L"011", 3},
    {"RoutingDelete", 2, 9, L"0110", 0, 4, DeleteStroke, L"", 0},
};

inline constexpr TypingRow NumberTypingRows[] = {
    {"WholeSSN", 0, L"___-__-____", 0, L"123456789", L"123-45-6789", 11, 9},
    {"TenthDigitIsSwallowed", 0, L"___-__-____", 0, L"1234567890", L"123-45-6789", 11, 9},
    {"TypedDashesAreSwallowed", 0, L"___-__-____", 0, L"123-45-6789", L"123-45-6789", 11, 9},
    {"WholeFederalId", 1, L"__-_______", 0, L"123456789", L"12-3456789", 10, 9},
    {"SecondBackspaceClearsBeforeTheDash", 0, L"123-45-6789", 7, L"\b\b", L"123-4_-6789", 5, 1},
    {"BackspaceToTheStart", 0, L"123-45-6789", 11, L"\b\b\b\b\b\b\b\b\b\b\b\b", L"___-__-____", 0, 9},
    {"DeleteStaysWhereItCleared", 0, L"123-45-6789", 0, L"\x7F\x7F", L"_23-45-6789", 0, 1},
    {"DeleteWalksLeftFromADashOnce", 0, L"123-45-6789", 3, L"\x7F\x7F", L"12_-45-6789", 2, 1},
    {"CorrectingADigit", 0, L"123-45-6789", 6, L"\b0", L"123-40-6789", 6, 2},
    {"LettersBetweenDigits", 1, L"__-_______", 0, L"1a2b3c", L"12-3______", 4, 3},
};

} // namespace kiv::test
